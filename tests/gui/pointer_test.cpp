// SPDX-License-Identifier: MIT
#include "plot_desk.h"

#include <QCursor>
#include <QLineEdit>

namespace tarvelint::test {

class PointerTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aDragSelectsFromItsPressToItsRelease();
    void aClickWithShiftExtendsTheSelection();
    void cuesFollowThePointer();
    void aReleaseOutsideEndsTheDrag();
    void aPointIsPickedMovedAndDropped();
    void aDoubleClickAddsAPoint();
    void aMissingReadingUnderADropBeepsAndKeepsThePoint();
    void commandsAreDroppedWhileTheButtonIsHeld();
    void oneClickAfterAnotherLaysABaseline();
    void aRightPressEditsTheValue();
    void theMiddleButtonSelectsAndIsLetGo();
    void aMouseClickOnAButtonLeavesTheFocusOnThePlot();
    void arrowsOnAFocusedCheckBoxBelongToTheSelection();
    void theCompanionTakesNoPresses();
    void keysReachThePlotAndTextBoxesKeepTheirs();
    void theRowCursorIsShownOverThePlot();
};

void PointerTest::aDragSelectsFromItsPressToItsRelease()
{
    PlotDesk desk;
    desk.traditional();
    desk.press(60);
    desk.move(90);
    QTRY_COMPARE(desk.selected(), std::pair(60, 90));
    desk.release(90);
    desk.move(120);
    QTest::qWait(0);
    QCOMPARE(desk.selected(), std::pair(60, 90));
}

void PointerTest::aClickWithShiftExtendsTheSelection()
{
    PlotDesk desk;
    desk.traditional();
    QTest::mouseClick(desk.plot, Qt::LeftButton, {}, desk.at(60));
    QTest::mouseClick(desk.plot, Qt::LeftButton, Qt::ShiftModifier, desk.at(100));
    QCOMPARE(desk.selected(), std::pair(60, 100));
    QTest::mouseClick(desk.plot, Qt::LeftButton, Qt::ShiftModifier, desk.at(20));
    QCOMPARE(desk.selected(), std::pair(20, 100));
}

void PointerTest::cuesFollowThePointer()
{
    PlotDesk desk;
    desk.move(60);
    const QString expected = QString::number(desk.reading(60), 'f', 4);
    QTRY_COMPARE(desk.text("inLabel"), expected);
}

void PointerTest::aReleaseOutsideEndsTheDrag()
{
    PlotDesk desk;
    desk.traditional();
    desk.press(60);
    QTest::mouseRelease(desk.plot, Qt::LeftButton, {}, QPoint(90, -200));
    QVERIFY(!desk.core().view.isHeld);
}

void PointerTest::aPointIsPickedMovedAndDropped()
{
    PlotDesk desk(true);
    const int point = desk.pointFrom(20);
    int target = point + 10;
    while (desk.core().record.isBlank(desk.reading(target))) ++target;
    desk.press(point);
    desk.move(target);
    QTRY_COMPARE(desk.core().view.dragRow, target);
    desk.release(target);
    QVERIFY(desk.core().sensors.isPoint(0, target));
    QVERIFY(!desk.core().sensors.isPoint(0, point));
    QCOMPARE(desk.core().record.values(kBaseline, kS1, target), desk.reading(target));
}

void PointerTest::aDoubleClickAddsAPoint()
{
    PlotDesk desk(true);
    const int before = desk.pointFrom(20);
    int row = before + 12;
    while (desk.core().record.isBlank(desk.reading(row))) ++row;
    desk.move(row);
    QTest::mouseClick(desk.plot, Qt::LeftButton, {}, desk.at(row));
    QTest::mouseDClick(desk.plot, Qt::LeftButton, {}, desk.at(row));
    QVERIFY(desk.core().sensors.isPoint(0, row));
    QVERIFY(desk.core().sensors.isPoint(0, before));
}

void PointerTest::aMissingReadingUnderADropBeepsAndKeepsThePoint()
{
    PlotDesk desk(true);
    const int point = desk.pointFrom(20);
    desk.core().record.values(kUnconverted, kS1, point + 10) = 99999;
    desk.press(point);
    desk.move(point + 10);
    desk.release(point + 10);
    QVERIFY(desk.core().sensors.isPoint(0, point));
}

void PointerTest::commandsAreDroppedWhileTheButtonIsHeld()
{
    PlotDesk desk;
    desk.traditional();
    desk.press(60);
    desk.entry("mnuViewZoomIn")->trigger();
    QTest::keyClick(desk.plot, Qt::Key_Space);
    QCOMPARE(int(desk.core().view.zoomFactor), 1);
    QCOMPARE(desk.selected(), std::pair(60, 60));
    desk.release(60);
    desk.entry("mnuViewZoomIn")->trigger();
    QCOMPARE(int(desk.core().view.zoomFactor), 2);
}

void PointerTest::oneClickAfterAnotherLaysABaseline()
{
    PlotDesk desk;
    desk.traditional();
    desk.command([&] { desk.core().pointing.mnuToolsMode_Click(); });
    QTest::mouseClick(desk.plot, Qt::LeftButton, {}, desk.at(60));
    QCOMPARE(desk.plot->cursor().shape(), Qt::SizeAllCursor);
    QTest::mouseClick(desk.plot, Qt::LeftButton, {}, desk.at(100));
    QCOMPARE(desk.core().record.values(kBaseline, kS1, 60), desk.reading(60));
    QVERIFY(!desk.core().record.isBlank(desk.core().record.values(kConverted, kS1, 80)));
    QTest::keyClick(desk.plot, Qt::Key_Escape);
    QCOMPARE(desk.plot->cursor().shape(), Qt::SizeVerCursor);
}

void PointerTest::aRightPressEditsTheValue()
{
    PlotDesk desk;
    const QString old = QString::number(desk.reading(60), 'f', 4);
    QString offered;
    QString title;
    inValueDialog(desk, [&](ChangeForm& dialog) {
        auto* box = dialog.findChild<QLineEdit*>(QStringLiteral("newValue"));
        offered = box->selectedText();
        title = dialog.windowTitle();
        QTest::keyClicks(box, QStringLiteral("12abc"));
        QTest::keyClick(box, Qt::Key_Return);
    });
    QTest::mousePress(desk.plot, Qt::RightButton, {}, desk.at(60));
    QCOMPARE(title, QStringLiteral("Change the value"));
    QCOMPARE(offered, old);
    QCOMPARE(desk.reading(60), 12.0);
}

void PointerTest::theMiddleButtonSelectsAndIsLetGo()
{
    PlotDesk desk(true);
    const int point = desk.pointFrom(20);
    QTest::mouseClick(desk.plot, Qt::MiddleButton, {}, desk.at(point));
    QVERIFY(!desk.core().view.isHeld);
    QCOMPARE(desk.core().view.grabbedPoint, -1);
    desk.move(point + 20);
    QCOMPARE(desk.core().view.dragRow, -1);
    QVERIFY(desk.core().sensors.isPoint(0, point));
}

void PointerTest::aMouseClickOnAButtonLeavesTheFocusOnThePlot()
{
    PlotDesk desk;
    desk.plot->setFocus();
    desk.tick("scaleBox0");
    desk.click("viewButton");
    QCOMPARE(desk.form->focusWidget(), desk.plot);
}

void PointerTest::arrowsOnAFocusedCheckBoxBelongToTheSelection()
{
    PlotDesk desk;
    desk.command([&] { desk.core().selection.mnuEditSelectAll_Click(); });
    auto* box = desk.find("labelBox");
    box->setFocus(Qt::TabFocusReason);
    QTest::keyClick(box, Qt::Key_Left);
    QCOMPARE(desk.core().view.selEnd, desk.core().record.lines - 2);
    QCOMPARE(desk.form->focusWidget(), box);
}

void PointerTest::theCompanionTakesNoPresses()
{
    PlotDesk desk;
    desk.traditional();
    desk.chooseFirstSensor(1);
    QTest::mouseClick(desk.find("Picture1_1"), Qt::LeftButton, {}, QPoint(60, 10));
    QCOMPARE(desk.selected(), std::pair(0, 0));
}

void PointerTest::keysReachThePlotAndTextBoxesKeepTheirs()
{
    PlotDesk desk;
    const int before = desk.core().view.zoomFactor;
    desk.type("maxLabel0", "5+");
    QCOMPARE(int(desk.core().view.zoomFactor), before);
    desk.plot->setFocus();
    QTest::keyClick(desk.plot, Qt::Key_Plus, Qt::ShiftModifier);
    QCOMPARE(int(desk.core().view.zoomFactor), 2 * before);
    QTest::keyClick(desk.plot, Qt::Key_Minus, Qt::KeypadModifier);
    QCOMPARE(int(desk.core().view.zoomFactor), before);
    QTest::keyClick(desk.plot, Qt::Key_V, Qt::AltModifier | Qt::ControlModifier);
    QCOMPARE(desk.core().view.curLayer, int(kUnconverted));
}

void PointerTest::theRowCursorIsShownOverThePlot()
{
    PlotDesk desk;
    desk.plot->setFocus();
    const QColor mark = desk.plot->palette().color(QPalette::Highlight);
    const auto isMarked = [&](int x) {
        const QImage picture = desk.Desk::plot(0);
        for (int y = 0; y < desk.plot->height(); ++y)
            if (test::at(picture, x, y) == mark) return true;
        return false;
    };
    QVERIFY(!isMarked(2));
    QTest::keyClick(desk.plot, Qt::Key_Right, Qt::ControlModifier); // comes to row 0
    QTest::keyClick(desk.plot, Qt::Key_Right, Qt::ControlModifier);
    QTest::keyClick(desk.plot, Qt::Key_Right, Qt::ControlModifier);
    QVERIFY(isMarked(2));
    QVERIFY(desk.plot->accessibleName().contains(QStringLiteral("row 3")));
}

} // namespace tarvelint::test

QTEST_MAIN(tarvelint::test::PointerTest)
#include "pointer_test.moc"
