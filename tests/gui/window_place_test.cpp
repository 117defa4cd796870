// SPDX-License-Identifier: MIT
#include "app/qt/window_place.h"

#include "desk.h"

#include <QRegularExpression>
#include <QScreen>

#include <array>

namespace tarvelint::test {

namespace {

constexpr QRect kScreen(0, 24, 1600, 1176); // under a panel of 24 pixels
constexpr QSize kLeast(520, 444);

} // namespace

/// On a screen of 1280 x 720 pixels at scale 2: 640 x 360 of a window's own.
class WindowPlaceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

    void aPlaceThatIsWhollySeenStays()
    {
        const QRect place(100, 100, 700, 500);
        QCOMPARE(placedIn(kScreen, place, kLeast), place);
        QCOMPARE(placedIn(kScreen, kScreen, kLeast), kScreen);
    }

    void aPlaceThatOverhangsIsMovedWhollyOntoTheScreen()
    {
        QCOMPARE(placedIn(kScreen, {1500, 1100, 700, 500}, kLeast),
                 QRect(900, 700, 700, 500)); // 1600 - 700, 1200 - 500
        QCOMPARE(placedIn(kScreen, {-650, -490, 700, 500}, kLeast), QRect(0, 24, 700, 500));
        QCOMPARE(placedIn(kScreen, {90000, -90000, 700, 500}, kLeast), QRect(900, 24, 700, 500));
    }

    void aWindowLargerThanTheScreenIsMadeSmallerInThatDirectionOnly()
    {
        QCOMPARE(placedIn(kScreen, {10, 100, 2000, 500}, kLeast), QRect(0, 100, 1600, 500));
        QCOMPARE(placedIn(kScreen, {10, 100, 700, 5000}, kLeast), QRect(10, 24, 700, 1176));
    }

    void aWindowBelowItsLeastSizeIsMadeLarger()
    {
        QCOMPARE(placedIn(kScreen, {10, 100, 1, 1}, kLeast), QRect(10, 100, 520, 444));
        QCOMPARE(placedIn(kScreen, {1590, 1190, -30, 0}, kLeast), QRect(1080, 756, 520, 444));
    }

    void theLeastSizeIsTheScreensWhereThatIsSmaller()
    {
        QCOMPARE(leastSize({1600, 1176}), QSize(520, 444));
        QCOMPARE(leastSize({640, 360}), QSize(520, 360));
        QCOMPARE(leastSize({480, 800}), QSize(480, 444));
    }

    void aWindowBelongsToTheScreenThatShowsMostOfIt()
    {
        const std::array screens{QRect(0, 0, 1000, 1000), QRect(1000, 0, 1000, 1000)};
        QCOMPARE(areaOf(screens, {900, 0, 300, 300}), screens[1]);
        QCOMPARE(areaOf(screens, {700, 0, 400, 300}), screens[0]);
        QCOMPARE(areaOf(screens, {5000, 0, 400, 300}), screens[0]); // none: the first
    }

    void theFirstWindowIsWhollyOnASmallScreen()
    {
        const QRect free = QApplication::primaryScreen()->availableGeometry();
        QCOMPARE(free, QRect(0, 0, 640, 360));
        const Desk desk; // first placed at 1000 x 1000 twips, 67 pixels, where 293 are left in height
        QCOMPARE(desk.form->minimumSize(), QSize(520, 360));
        QCOMPARE(desk.form->frameGeometry(), QRect(67, 0, 520, 360));
    }

    void aStoredPlaceThatOverhangsASmallScreenIsMovedAndCut()
    {
        Desk desk;
        desk.toolkit().setGeometry({200 * 15, 100 * 15, 1000 * 15, 340 * 15});
        QCOMPARE(desk.form->frameGeometry(), QRect(0, 0, 640, 360));
        desk.toolkit().setGeometry({300 * 15, 0, 600 * 15, 360 * 15});
        QCOMPARE(desk.form->frameGeometry(), QRect(40, 0, 600, 360)); // 640 - 600
    }

    void aWindowThatHasBeenPushedOffComesBackWithItsFrame()
    {
        Desk desk;
        desk.form->move(500, 200);
        QTRY_COMPARE(desk.form->pos(), QPoint(500, 200));
        desk.toolkit().comeOntoTheScreen();
        QTRY_COMPARE(desk.form->frameGeometry(), QRect(120, 0, 520, 360));
        desk.form->setWindowState(Qt::WindowMinimized);
        desk.form->move(500, 200);
        desk.toolkit().comeOntoTheScreen(); // it is not there to be placed
        QCOMPARE(desk.form->pos(), QPoint(500, 200));
    }
};

} // namespace tarvelint::test

QTEST_MAIN(tarvelint::test::WindowPlaceTest)
#include "window_place_test.moc"
