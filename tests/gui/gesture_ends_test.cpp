// SPDX-License-Identifier: MIT
#include "plot_desk.h"

namespace tarvelint::test {

class GestureEndsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aWindowThatLosesTheFocusPutsThePointBack();
    void escapeWhileHeldPutsThePointBack();
    void aSecondRightPressRaisesTheDialogThatWaits();
    void closingTheWindowWhileTheDialogWaitsIsSafe();
    void aWindowClosesWhileTheButtonIsHeld();
    void aKeyEndsScrollingWithoutAButtonAndIsCarriedOut();
    void aQuickClickEndsScrollingAndHoldsNothing();
    void scrollingWithoutAButtonEndsWhenThePointerLeaves();
    void aReleaseThatWentNowhereIsMadeUpForByTheNextMovement();
};

namespace {

/// One-click mode with the pointer held at the right edge: scrolls until `play` ends it.
void scrollByHovering(PlotDesk& desk, const std::function<void()>& play)
{
    desk.traditional();
    desk.command([&] { desk.core().pointing.mnuToolsMode_Click(); });
    auto* timer = new QTimer(desk.form);
    QObject::connect(timer, &QTimer::timeout, timer, [&desk, timer, play] {
        if (!desk.core().scrolling.isAtEdge()) return;
        timer->stop();
        play();
    });
    timer->start(5);
    desk.moveTo(QPointF(desk.plot->width() - 1, 20), Qt::NoButton);
    QVERIFY(!timer->isActive());
    QTRY_VERIFY(!desk.core().scrolling.isAtEdge());
}

} // namespace

void GestureEndsTest::aWindowThatLosesTheFocusPutsThePointBack()
{
    PlotDesk desk(true);
    const int point = desk.pointFrom(20);
    desk.press(point);
    desk.move(point + 10);
    QEvent deactivated(QEvent::WindowDeactivate);
    QApplication::sendEvent(desk.form, &deactivated);
    QVERIFY(!desk.core().view.isHeld);
    QCOMPARE(desk.core().view.grabbedPoint, -1);
    desk.release(point + 10);
    QVERIFY(desk.core().sensors.isPoint(0, point));
}

void GestureEndsTest::escapeWhileHeldPutsThePointBack()
{
    PlotDesk desk(true);
    const int point = desk.pointFrom(20);
    desk.press(point);
    desk.move(point + 10);
    QTest::keyClick(desk.plot, Qt::Key_Escape);
    desk.release(point + 10);
    QVERIFY(desk.core().sensors.isPoint(0, point));
    QVERIFY(!desk.core().sensors.isPoint(0, point + 10));
}

void GestureEndsTest::aSecondRightPressRaisesTheDialogThatWaits()
{
    PlotDesk desk;
    int commands = 0;
    bool wasOpen = false;
    inValueDialog(desk, [&](ChangeForm& dialog) {
        QTest::mousePress(desk.plot, Qt::RightButton, {}, desk.at(90));
        desk.command([&] { ++commands; });
        wasOpen = dialog.isVisible();
        dialog.reject();
    });
    QTest::mousePress(desk.plot, Qt::RightButton, {}, desk.at(60));
    QCOMPARE(commands, 0);
    QVERIFY(wasOpen);
    QCOMPARE(desk.selected(), std::pair(60, 60));
}

void GestureEndsTest::closingTheWindowWhileTheDialogWaitsIsSafe()
{
    PlotDesk desk;
    desk.core().record.saveCheck = true;
    const QPointer<FrmMain> window = desk.window;
    inValueDialog(desk, [&](ChangeForm&) { desk.form->close(); });
    QTest::mousePress(desk.plot, Qt::RightButton, {}, desk.at(60));
    QTRY_VERIFY(!window);
    QVERIFY(valueDialog() == nullptr);
}

void GestureEndsTest::aWindowClosesWhileTheButtonIsHeld()
{
    PlotDesk desk(true);
    desk.core().record.saveCheck = true;
    const QPointer<FrmMain> window = desk.window;
    desk.press(desk.pointFrom(20));
    desk.form->close();
    QTRY_VERIFY(!window);
}

void GestureEndsTest::aKeyEndsScrollingWithoutAButtonAndIsCarriedOut()
{
    PlotDesk desk;
    scrollByHovering(desk, [&] { QTest::keyClick(desk.plot, Qt::Key_V); });
    QVERIFY(desk.core().view.HScroll1.Value > 0);
    QVERIFY(desk.core().view.HScroll1.Value < desk.core().view.HScroll1.Max);
    QCOMPARE(desk.core().view.curLayer, int(kConverted));
}

void GestureEndsTest::aQuickClickEndsScrollingAndHoldsNothing()
{
    PlotDesk desk;
    scrollByHovering(desk, [&] { QTest::mouseClick(desk.plot, Qt::LeftButton, {}, desk.at(60)); });
    QVERIFY(desk.core().view.HScroll1.Value < desk.core().view.HScroll1.Max);
    QTRY_VERIFY(desk.core().view.chainActive);
    QCOMPARE(desk.core().view.lastClick, desk.core().view.HScroll1.Value + 60);
    QVERIFY(!desk.core().view.isHeld);
}

void GestureEndsTest::scrollingWithoutAButtonEndsWhenThePointerLeaves()
{
    PlotDesk desk;
    scrollByHovering(desk, [&] {
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(desk.plot, &leave);
    });
    QVERIFY(desk.core().view.HScroll1.Value < desk.core().view.HScroll1.Max);
}

void GestureEndsTest::aReleaseThatWentNowhereIsMadeUpForByTheNextMovement()
{
    PlotDesk desk;
    desk.traditional();
    desk.press(60);
    desk.moveTo(QPointF(90, 20), Qt::NoButton);
    QVERIFY(!desk.core().view.isHeld);
    QCOMPARE(desk.selected(), std::pair(60, 60));
    desk.release(60);
}

} // namespace tarvelint::test

QTEST_MAIN(tarvelint::test::GestureEndsTest)
#include "gesture_ends_test.moc"
