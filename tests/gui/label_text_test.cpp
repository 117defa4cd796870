// SPDX-License-Identifier: MIT
#include "dialogs/label_text.h"

#include <QTest>

#include <string>

namespace tarvelint::test {

namespace {

const std::string kLatin1 = "Temp\xE9rature"; // "é" as the single byte of Windows-1252

} // namespace

class LabelTextTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void labelsShowAsUtf8WhenTheyAreValidElseAsWindows1252()
    {
        QCOMPARE(labelForScreen("Temp\xC3\xA9rature"), QString::fromUtf8("Temp\u00e9rature"));
        QCOMPARE(labelForScreen(kLatin1), QString::fromUtf8("Temp\u00e9rature"));
        QCOMPARE(labelForScreen("\x80 \x9C"), QString::fromUtf8("\u20ac \u0153"));
        QCOMPARE(labelForScreen("cut \xC3"), QString::fromUtf8("cut \u00c3")); // a UTF-8 sequence without its end
        QCOMPARE(labelForScreen(""), QString());
    }

    void everyByteSurvivesTheScreenUnedited()
    {
        for (int byte = 0; byte < 256; ++byte) {
            const std::string label{'x', static_cast<char>(byte), 'y'};
            QCOMPARE(labelFromScreen(labelForScreen(label), label), label);
            QCOMPARE(labelForScreen(label).size(), 3);
        }
        const std::string mark = "\xEF\xBB\xBFx"; // a byte-order mark is part of its label
        QCOMPARE(labelFromScreen(labelForScreen(mark), mark), mark);
    }

    void lineEndsAndControlCharactersBecomeBlanks()
    {
        QCOMPARE(blanksForControls(QStringLiteral("PAR, sum")), QStringLiteral("PAR, sum"));
        QCOMPARE(blanksForControls(QStringLiteral("a\r\nb\tc")), QStringLiteral("a  b c"));
        QCOMPARE(blanksForControls(QString(QChar(u'\0')) + QChar(0x1b) + QChar(0x7f)), QStringLiteral("   "));
        QCOMPARE(blanksForControls(QString(QChar(0x80)) + QChar(0x85) + QChar(0x9f)), QStringLiteral("   "));
        QCOMPARE(blanksForControls(QString(QChar(0x2028)) + QChar(0x2029)), QStringLiteral("  "));
        const QString kept = QString(QChar(0x1f)) + QChar(0x20) + QChar(0x7e) + QChar(0xa0) + QChar(0x3b1);
        QCOMPARE(blanksForControls(kept), QLatin1Char(' ') + kept.mid(1)); // beside the ends of the two ranges
    }

    void controlCharactersThatAFileBroughtStayUntilTheLabelIsEdited()
    {
        const std::string label = "PAR\x01sum\t";
        QCOMPARE(labelForScreen(label), QStringLiteral("PAR sum "));
        QCOMPARE(labelFromScreen(QStringLiteral("PAR sum "), label), label);
        QCOMPARE(labelFromScreen(QStringLiteral("PAR sum x"), label), std::string("PAR sum x"));
        QCOMPARE(labelFromScreen(QStringLiteral("PAR\nmean"), label), std::string("PAR mean"));
    }

    void anEditedLabelKeepsItsEncodingWhereThatHasTheCharacters()
    {
        const QString euro = QString::fromUtf8("\u20ac");
        QCOMPARE(labelFromScreen(euro, "ascii"), std::string("\xE2\x82\xAC"));
        QCOMPARE(labelFromScreen(euro, "\xC3\xA9"), std::string("\xE2\x82\xAC"));
        QCOMPARE(labelFromScreen(euro, kLatin1), std::string("\x80"));
        const QString alpha = QString::fromUtf8("\u03b1"); // Greek is not in Windows-1252
        QCOMPARE(labelFromScreen(alpha, kLatin1), std::string("\xCE\xB1"));
        // "Ã©" in Windows-1252 would be the bytes C3 A9, which read as "é" the next time.
        QCOMPARE(labelForScreen(labelFromScreen(QString::fromUtf8("\u00c3\u00a9"), kLatin1)),
                 QString::fromUtf8("\u00c3\u00a9"));
    }
};

} // namespace tarvelint::test

QTEST_APPLESS_MAIN(tarvelint::test::LabelTextTest)
#include "label_text_test.moc"
