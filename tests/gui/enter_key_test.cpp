// SPDX-License-Identifier: MIT
#include "every_dialog.h"

#include <QSignalSpy>

namespace tarvelint::test {

namespace {

QStringList checkedBoxes(const QDialog& dialog)
{
    QStringList names;
    for (const auto* box : dialog.findChildren<QCheckBox*>())
        if (box->isChecked()) names += box->objectName();
    return names;
}

} // namespace

class EnterKeyTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

    void theThemeTheTestWasStartedForIsInForce()
    {
        QCheckBox plain;
        QTest::keyClick(&plain, Qt::Key_Return);
        QCOMPARE(plain.isChecked(), qgetenv("QT_QPA_PLATFORMTHEME") == "gtk3");
    }

    void enterPressesTheDefaultButtonWhereverTheFocusIs_data() { addDialogs(); }
    void enterPressesTheDefaultButtonWhereverTheFocusIs()
    {
        QFETCH(QString, which);
        QFETCH(QString, button);
        Dialogs dialogs;
        const qsizetype count = focusable(dialogs.show(which)).size();
        QVERIFY(count > 0 || which == QStringLiteral("splash"));
        for (qsizetype i = 0; i < count; ++i) {
            for (const auto& [key, modifier] : {std::pair(Qt::Key_Return, Qt::KeyboardModifiers(Qt::NoModifier)),
                                                std::pair(Qt::Key_Enter, Qt::KeyboardModifiers(Qt::KeypadModifier))}) {
                QDialog& dialog = dialogs.show(which);
                const QStringList checked = checkedBoxes(dialog);
                const QSignalSpy pressed(dialog.findChild<QPushButton*>(button), &QPushButton::clicked);
                QWidget* focused = focusable(dialog).at(i);
                focused->setFocus();
                const QByteArray name = focused->objectName().toUtf8();
                QTest::keyClick(focused, key, modifier);
                QVERIFY2(pressed.count() == 1, name.constData());
                QCOMPARE(checkedBoxes(dialog), checked);
                dialogs.bench.setup().Form_Show(); // OK hides it, and the next round opens it again
                dialogs.bench.setup().boxes.turboCheck = true;
            }
        }
    }

    void enterOnTheDefaultButtonPressesItOnce_data() { addDialogs(); }
    void enterOnTheDefaultButtonPressesItOnce()
    {
        QFETCH(QString, which);
        QFETCH(QString, button);
        Dialogs dialogs;
        QDialog& dialog = dialogs.show(which);
        QTRY_VERIFY(isActive(dialog));
        auto* target = dialog.findChild<QPushButton*>(button);
        const QSignalSpy pressed(target, &QPushButton::clicked);
        target->setFocus();
        QTest::keyClick(target, Qt::Key_Return);
        QCOMPARE(pressed.count(), 1);
    }

    void enterOnCancelCancels_data()
    {
        QTest::addColumn<QString>("which");
        QTest::addColumn<QString>("button");
        QTest::addColumn<QString>("standard");
        const auto row = [](const char* which, const char* button, const char* standard) {
            QTest::newRow(which) << QString::fromLatin1(which) << QString::fromLatin1(button)
                                 << QString::fromLatin1(standard);
        };
        row("column setup", "CancelButton", "OKButton");
        row("options", "cmdCancel", "cmdApplyCur");
        row("save contents", "CancelButton", "OKButton");
    }
    void enterOnCancelCancels()
    {
        QFETCH(QString, which);
        QFETCH(QString, button);
        QFETCH(QString, standard);
        Dialogs dialogs;
        QDialog& dialog = dialogs.show(which);
        QTRY_VERIFY(isActive(dialog));
        auto* cancel = dialog.findChild<QPushButton*>(button);
        const QSignalSpy pressed(dialog.findChild<QPushButton*>(standard), &QPushButton::clicked);
        cancel->setFocus();
        QTest::keyClick(cancel, Qt::Key_Return);
        QVERIFY(!dialog.isVisible());
        QCOMPARE(pressed.count(), 0);
    }

    void spaceTogglesACheckBoxAndEnterWithCtrlDoesNothing()
    {
        Dialogs dialogs;
        QDialog& dialog = dialogs.show(QStringLiteral("save contents"));
        QTRY_VERIFY(isActive(dialog));
        auto* box = dialog.findChild<QCheckBox*>(QStringLiteral("inCheck"));
        const bool was = box->isChecked();
        QTest::keyClick(box, Qt::Key_Return, Qt::ControlModifier);
        QVERIFY(dialog.isVisible());
        QCOMPARE(box->isChecked(), was);
        QTest::keyClick(box, Qt::Key_Space);
        QCOMPARE(box->isChecked(), !was);
    }
};

} // namespace tarvelint::test

QTEST_MAIN(tarvelint::test::EnterKeyTest)
#include "enter_key_test.moc"
