// SPDX-License-Identifier: MIT
#include "app/qt/frm_splash.h"
#include "when_shown.h"

#include <QFile>
#include <QFrame>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>

#include <sstream>

namespace tarvelint::test {

namespace {

/// The string table with an organisation's texts.
StringTable tableWith(const char* lines)
{
    StringTable table;
    std::istringstream stream(lines);
    table.addTexts(stream);
    return table;
}

QString shown(const FrmSplash& splash, const char* label)
{
    return splash.findChild<QLabel*>(QString::fromLatin1(label))->text();
}

bool takesRoom(const FrmSplash& splash, const char* label)
{
    return !splash.findChild<QLabel*>(QString::fromLatin1(label))->isHidden();
}

} // namespace

class SplashTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

    void theSplashShowsTitleVersionAndTheOrganisationsTexts()
    {
        const FrmSplash splash(
            tableWith("1042=credit\n1043=people\n1046=a@example.org\\nb@example.org\n1047=group\n1049=fair\n"),
            QStringLiteral("1.2.3"));
        QCOMPARE(shown(splash, "lblProductName"), QStringLiteral("Tarvelint"));
        QCOMPARE(shown(splash, "lblVersion"), QStringLiteral("Version 1.2.3"));
        QCOMPARE(shown(splash, "lblCompanyProduct"), QStringLiteral("group"));
        QCOMPARE(shown(splash, "lblCredit"), QStringLiteral("credit"));
        QCOMPARE(shown(splash, "lblDevelopers"), QStringLiteral("people"));
        QCOMPARE(shown(splash, "lblFairUse"), QStringLiteral("Fair Use Policy:"));
        QCOMPARE(shown(splash, "lblWarning"), QStringLiteral("fair"));
        QCOMPARE(shown(splash, "lblContactsHeading"), QStringLiteral("Contacts:"));
        QCOMPARE(shown(splash, "lblContacts"), QStringLiteral("a@example.org\nb@example.org"));
        QCOMPARE(splash.findChild<QPushButton*>(QStringLiteral("Command1"))->text(), QStringLiteral("OK"));
        QVERIFY(splash.findChild<QFrame*>(QStringLiteral("fraMainFrame")) != nullptr);
    }

    void textsThatAreLeftOutTakeNoRoomNorDoTheirHeadings()
    {
        const FrmSplash splash(tableWith("1049=fair\n"), QStringLiteral("1.2.3"));
        QVERIFY(takesRoom(splash, "lblFairUse") && takesRoom(splash, "lblWarning"));
        QVERIFY(!takesRoom(splash, "lblContacts") && !takesRoom(splash, "lblContactsHeading"));
        QVERIFY(!takesRoom(splash, "lblCompanyProduct"));
    }

    void noTextOfTheSplashIsCutOff()
    {
        std::string words;
        for (int i = 0; i < 150; ++i) words += "word ";
        const std::string longText = "1049=" + words + "\\nand a line\n";
        FrmSplash splash(tableWith(longText.c_str()), QStringLiteral("1.2.3"));
        splash.show();
        QVERIFY(QTest::qWaitForWindowExposed(&splash));
        for (const auto* label : splash.findChildren<QLabel*>())
            if (label->isVisible()) QVERIFY(label->height() >= label->heightForWidth(label->width()));
    }

    void theTagIsEmptyAtStartUp()
    {
        const FrmSplash splash(StringTable{}, QStringLiteral("1.2.3"));
        QCOMPARE(splash.tagText, QString());
    }

    void buttonFrameAndEscDismissTheSplashOnce_data()
    {
        QTest::addColumn<QString>("way");
        for (const char* way : {"button", "Esc", "frame"}) QTest::newRow(way) << QString::fromLatin1(way);
    }
    void buttonFrameAndEscDismissTheSplashOnce()
    {
        QFETCH(const QString, way);
        FrmSplash splash(StringTable{}, QStringLiteral("1.2.3"));
        const QSignalSpy dismissed(&splash, &FrmSplash::dismissed);
        splash.show();
        QVERIFY(QTest::qWaitForWindowExposed(&splash));
        if (way == QStringLiteral("button")) click(splash, "Command1");
        if (way == QStringLiteral("Esc")) QTest::keyClick(&splash, Qt::Key_Escape);
        if (way == QStringLiteral("frame")) splash.close();
        QVERIFY(!splash.isVisible());
        QCOMPARE(dismissed.count(), 1);
    }

    void theButtonAsksForTheDataWindowAtStartUpAndOnlyClosesTheAboutBox_data()
    {
        QTest::addColumn<QString>("tag");
        QTest::addColumn<int>("dataWindows");
        QTest::newRow("start-up") << QString() << 1;
        QTest::newRow("about box") << QStringLiteral("1") << 0;
    }
    void theButtonAsksForTheDataWindowAtStartUpAndOnlyClosesTheAboutBox()
    {
        QFETCH(const QString, tag);
        FrmSplash splash(StringTable{}, QStringLiteral("1.2.3"));
        splash.tagText = tag;
        const QSignalSpy wanted(&splash, &FrmSplash::mainFormWanted);
        const QSignalSpy dismissed(&splash, &FrmSplash::dismissed);
        splash.show();
        QVERIFY(QTest::qWaitForWindowExposed(&splash));
        click(splash, "Command1");
        QVERIFY(!splash.isVisible());
        QTEST(int(wanted.count()), "dataWindows");
        QCOMPARE(dismissed.count(), 1);
    }

    void theProgramBringsTextsForEveryAboutNumberAndAnIconInEverySize()
    {
        useProgramResources();
        QFile file(QStringLiteral(":/about_texts.txt"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const StringTable table = tableWith(file.readAll().constData());
        for (const int number : {1042, 1043, 1046, 1047, 1049}) QVERIFY(!table.find(number).value_or("").empty());
        const QRegularExpression placeholder(QStringLiteral("@|example|\\byour?\\b|name here|to be"),
                                             QRegularExpression::CaseInsensitiveOption);
        for (const int number : {1042, 1043, 1046, 1047, 1049}) // they read as finished, whoever deploys it
            QVERIFY(!QString::fromStdString(table.find(number).value_or("")).contains(placeholder));
        for (const int size : {16, 24, 32, 48, 64, 128, 256})
            QVERIFY(programIcon().availableSizes().contains(QSize(size, size)));
    }
};

} // namespace tarvelint::test

QTEST_MAIN(tarvelint::test::SplashTest)
#include "splash_test.moc"
