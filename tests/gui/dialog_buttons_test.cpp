// SPDX-License-Identifier: MIT
#include "every_dialog.h"

namespace tarvelint::test {

class DialogButtonsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

    void cancelStandsLeftOfWhatItCancels_data()
    {
        QTest::addColumn<QString>("cancel");
        QTest::newRow("column setup") << QStringLiteral("CancelButton");
        QTest::newRow("options") << QStringLiteral("cmdCancel");
        QTest::newRow("save contents") << QStringLiteral("CancelButton");
    }
    void cancelStandsLeftOfWhatItCancels()
    {
        QFETCH(QString, cancel);
        Dialogs dialogs;
        QDialog& dialog = dialogs.show(QString::fromLatin1(QTest::currentDataTag()));
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        const auto* left = dialog.findChild<QPushButton*>(cancel);
        const auto buttons = dialog.findChildren<QPushButton*>();
        QVERIFY(buttons.size() > 1);
        for (const auto* button : buttons) {
            QCOMPARE(button->y(), left->y());
            QVERIFY(button == left || button->x() > left->x() + left->width());
        }
    }

    void noButtonBearsAnIcon_data() { addDialogs(); }
    void noButtonBearsAnIcon()
    {
        QFETCH(QString, which);
        Dialogs dialogs;
        const auto buttons = dialogs.show(which).findChildren<QPushButton*>();
        QVERIFY(!buttons.empty());
        for (const auto* button : buttons) QVERIFY(button->icon().isNull());
    }
};

} // namespace tarvelint::test

QTEST_MAIN(tarvelint::test::DialogButtonsTest)
#include "dialog_buttons_test.moc"
