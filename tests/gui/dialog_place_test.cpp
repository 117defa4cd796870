// SPDX-License-Identifier: MIT
#include "dialogs/dialog_place.h"

#include "desk.h"

#include "dialogs/column_setup_dialog.h"

#include <QRegularExpression>
#include <QScreen>

namespace tarvelint::test {

namespace {

constexpr QRect kScreen(0, 24, 1600, 1176); // under a panel of 24 pixels
constexpr QSize kDialog(600, 400);

} // namespace

class DialogPlaceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

    void itStandsRightOfItsWindowWhereThereIsRoom()
    {
        QCOMPARE(besideWindow(kScreen, {100, 150, 700, 500}, kDialog), QPoint(800, 150));  // 100 + 700
        QCOMPARE(besideWindow(kScreen, {300, 150, 700, 500}, kDialog), QPoint(1000, 150)); // and ends at 1600
    }

    void elseLeftOfIt()
    {
        QCOMPARE(besideWindow(kScreen, {301, 150, 1000, 500}, kDialog),
                 QPoint(301, 650));                                                     // 1 too many, and 299 too few
        QCOMPARE(besideWindow(kScreen, {601, 150, 700, 500}, kDialog), QPoint(1, 150)); // 601 - 600
        QCOMPARE(besideWindow(kScreen, {600, 150, 900, 500}, kDialog), QPoint(0, 150));
    }

    void elseBelowIt()
    {
        QCOMPARE(besideWindow(kScreen, {100, 150, 1300, 650}, kDialog), QPoint(100, 800)); // and ends at 1200
        QCOMPARE(besideWindow(kScreen, {-50, 150, 1500, 500}, kDialog), QPoint(0, 650));
        QCOMPARE(besideWindow(kScreen, {500, 24, 1100, 500}, {1200, 400}), QPoint(400, 524)); // 1600 - 1200
    }

    void elseOverItsMiddle()
    {
        QCOMPARE(besideWindow(kScreen, {100, 150, 1300, 651}, kDialog),
                 QPoint(450, 276));                                          // 100 + 700 / 2, 150 + 251 / 2
        QCOMPARE(besideWindow(kScreen, kScreen, kDialog), QPoint(500, 412)); // 24 + (1176 - 400) / 2
    }

    void itDoesNotLeaveTheScreenWithAWindowThatDoes()
    {
        QCOMPARE(besideWindow(kScreen, {100, 1000, 700, 500}, kDialog), QPoint(800, 800)); // 1200 - 400
        QCOMPARE(besideWindow(kScreen, {100, -90, 700, 500}, kDialog), QPoint(800, 24));
        QCOMPARE(besideWindow(kScreen, {-900, 150, 700, 500}, kDialog), QPoint(0, 650)); // its sides are off the screen
        QCOMPARE(besideWindow(kScreen, {5000, 5000, 700, 500}, kDialog), QPoint(1000, 800));
        QCOMPARE(besideWindow(kScreen, {-5000, -5000, 700, 500}, kDialog), QPoint(0, 24));
    }

    void oneLargerThanTheScreenBeginsAtItsCorner()
    {
        QCOMPARE(besideWindow(kScreen, {100, 150, 700, 500}, {1700, 1200}), QPoint(0, 24));
        QCOMPARE(besideWindow(kScreen, {100, 150, 700, 500}, {1700, 300}), QPoint(0, 250)); // 150 + 200 / 2
    }

    void onASecondScreenItStaysThere()
    {
        const QRect second(1600, 0, 1600, 1200);
        QCOMPARE(besideWindow(second, {1700, 150, 700, 500}, kDialog), QPoint(2400, 150));
        QCOMPARE(besideWindow(second, {1700, 150, 1400, 700}, kDialog), QPoint(2100, 300)); // over it
    }

    void theColumnSetupLeavesItsWindowInView()
    {
        Desk desk;
        desk.open(TARVELINT_SAMPLE);
        const auto* dialog = desk.find<ColumnSetupDialog>("labelForm");
        QVERIFY(dialog->isVisible());
        const QRect window = desk.form->frameGeometry();
        QTRY_COMPARE(dialog->frameGeometry().topLeft(), window.topRight() + QPoint(1, 0));
        QVERIFY(desk.form->screen()->availableGeometry().contains(dialog->frameGeometry()));
    }

    void itFollowsItsWindowToTheNextShowing()
    {
        Desk desk;
        desk.openSample();
        const auto* dialog = desk.find<ColumnSetupDialog>("labelForm");
        const int room = desk.form->screen()->availableGeometry().right() + 1;
        desk.form->move(room - desk.form->frameGeometry().width(), 80);
        desk.click("labelButton");
        QTRY_VERIFY(dialog->isVisible());
        QTRY_COMPARE(dialog->frameGeometry().topRight(), desk.form->frameGeometry().topLeft() - QPoint(1, 0));
    }
};

} // namespace tarvelint::test

QTEST_MAIN(tarvelint::test::DialogPlaceTest)
#include "dialog_place_test.moc"
