// SPDX-License-Identifier: MIT
#include "pointer_fixture.h"

namespace tarvelint::test {
namespace {

// ---- modes

TEST(Mode, goesFromTraditionalToOneClickToSloppyAndBack)
{
    Pointed window;
    window.pointing.mnuToolsMode_Click();
    EXPECT_TRUE(window.view.lineMode);
    EXPECT_FALSE(window.view.Sloppy);
    EXPECT_EQ(window.text(Control::statusPanel1), "Mode: one-click baseline");
    EXPECT_EQ(window.pointer(), Pointer::northSouth);
    window.pointing.mnuToolsMode_Click();
    EXPECT_TRUE(window.view.Sloppy);
    EXPECT_EQ(window.text(Control::statusPanel1), "Mode: sloppy one-click");
    window.pointing.mnuToolsMode_Click();
    EXPECT_FALSE(window.view.lineMode);
    EXPECT_FALSE(window.view.Sloppy);
    EXPECT_EQ(window.text(Control::statusPanel1), "Mode: traditional, edit data");
    EXPECT_EQ(window.pointer(), Pointer::cross);
}

TEST(Mode, onlySloppyDrawsAndKeepsTheChainAndItsPointer)
{
    Pointed window;
    window.view.chainActive = true;
    window.pointing.mnuToolsMode_Click();
    EXPECT_FALSE(window.view.chainActive);
    EXPECT_THAT(window.calls, IsEmpty());
    window.press(30);
    window.calls.clear();
    window.pointing.mnuToolsMode_Click();
    EXPECT_TRUE(window.view.chainActive);
    EXPECT_EQ(window.pointer(), Pointer::fourWay);
    EXPECT_THAT(window.calls, ElementsAre("redraw 0 True", "redraw 1 True"));
}

TEST(Mode, underTurboStaysAsItIs)
{
    Pointed window;
    window.turbo({});
    window.pointing.mnuToolsMode_Click();
    EXPECT_FALSE(window.view.lineMode);
    EXPECT_EQ(window.text(Control::statusPanel1), "");
}

TEST(Break, endsAChainOnlyInTheOneClickModes)
{
    Pointed window;
    window.view.chainActive = true;
    window.pointing.mnuToolsBreak_Click();
    EXPECT_TRUE(window.view.chainActive);
    window.oneClick();
    window.setPointer(Pointer::fourWay);
    window.pointing.mnuToolsBreak_Click();
    EXPECT_FALSE(window.view.chainActive);
    EXPECT_EQ(window.pointer(), Pointer::northSouth);
}

// ---- traditional presses

TEST(TraditionalPress, beginsASelectionAtItsRow)
{
    Pointed window;
    window.press(33);
    EXPECT_EQ(window.selected(), Rows(33, 33));
    EXPECT_EQ(window.view.lastClick, 33);
    EXPECT_THAT(window.calls, ElementsAre("updateCues", "redraw 0 True", "redraw 1 True"));
}

TEST(TraditionalPress, addsTheFirstRowBeforeItRounds)
{
    Pointed window;
    window.view.zoomFactor = 2;
    window.view.HScroll1.Value = 21;
    window.pointing.Picture1_MouseDown({PointerButton::left, false, 5}); // 21 + 2.5 = 23.5 to 24
    EXPECT_EQ(window.selected(), Rows(24, 24));
}

TEST(TraditionalPress, withShiftExtendsFromTheAnchorToEitherSide)
{
    Pointed window;
    window.press(33);
    window.release(33);
    window.press(40, true);
    EXPECT_EQ(window.selected(), Rows(33, 40));
    window.release(40);
    window.press(25, true);
    EXPECT_EQ(window.selected(), Rows(25, 40));
    EXPECT_EQ(window.view.lastClick, 33);
}

TEST(TraditionalPress, withShiftOnTheAnchorMovesTheStart)
{
    Pointed window;
    window.press(33);
    window.view.selStart = 30;
    window.release(33);
    window.press(33, true);
    EXPECT_EQ(window.view.selStart, 33);
}

TEST(Press, besideTheRecordTakesTheNearestRow)
{
    Pointed window;
    window.press(130);
    EXPECT_EQ(window.selected(), Rows(99, 99));
    window.release(130);
    window.press(-20);
    EXPECT_EQ(window.selected(), Rows(0, 0));
}

TEST(Press, countsAsAMovementFirstAndIsHeldUntilTheRelease)
{
    Pointed window;
    window.press(33);
    EXPECT_EQ(window.text(Control::inLabel), "33.0000");
    EXPECT_EQ(window.view.pointerX, 13);
    EXPECT_TRUE(window.view.isHeld);
    window.release(33);
    EXPECT_FALSE(window.view.isHeld);
    EXPECT_TRUE(window.view.buttonReleased);
}

TEST(Press, ofASecondButtonWhileOneIsHeldIsIgnored)
{
    Pointed window;
    window.press(33);
    window.calls.clear();
    window.rightPress(40);
    window.pointing.Picture1_MouseDown({PointerButton::other, false, 40});
    EXPECT_THAT(window.calls, IsEmpty());
    EXPECT_EQ(window.selected(), Rows(33, 33));
}

TEST(Press, ofTheMiddleButtonWorksLikeTheLeftButDragsNothing)
{
    Pointed window;
    window.pointing.Picture1_MouseDown({PointerButton::other, false, 13});
    EXPECT_EQ(window.selected(), Rows(33, 33));
    EXPECT_EQ(window.view.heldButton, PointerButton::other);
    window.calls.clear();
    window.move(40);
    EXPECT_THAT(window.calls, IsEmpty());
    window.release(40);
    EXPECT_FALSE(window.view.isHeld);
}

TEST(Press, withoutARecordDoesNothing)
{
    TestWindow window;
    PlotPointer pointing{window};
    pointing.Picture1_MouseDown({PointerButton::left, false, 5});
    pointing.Picture1_MouseMove(6);
    pointing.Picture1_MouseUp(6);
    pointing.Picture1_DblClick();
    EXPECT_TRUE(window.calls.empty());
    EXPECT_FALSE(window.view.isHeld);
}

// ---- movement

TEST(Movement, showsTheThreeLayersDayAndTimeOfItsRow)
{
    Pointed window;
    window.record.values(kBaseline, 2, 31) = 1234.5;
    window.record.values(kConverted, 2, 31) = 0.25;
    window.move(31);
    EXPECT_EQ(window.text(Control::inLabel), "31.0000");
    EXPECT_EQ(window.text(Control::baseLabel), "1,234.5000");
    EXPECT_EQ(window.text(Control::outLabel), "0.2500");
    EXPECT_EQ(window.text(Control::dateLabel), "180");
    EXPECT_EQ(window.text(Control::timeLabel), "1230");
}

TEST(Movement, leavesADayOrTimeEmptyWhoseColumnDoesNotExist)
{
    Pointed window;
    window.view.dateCol = 0;
    window.view.timeCol = 9;
    window.move(31);
    EXPECT_EQ(window.text(Control::dateLabel), "");
    EXPECT_EQ(window.text(Control::timeLabel), "");
}

TEST(Movement, besideTheRecordShowsTheNearestRow)
{
    Pointed window;
    window.move(400);
    EXPECT_EQ(window.text(Control::inLabel), "99.0000");
}

TEST(Movement, inTraditionalModeScrollsAndSelectsOnlyWhileHeld)
{
    Pointed window;
    window.fakeUi.plotToolTip = "old";
    window.move(31);
    EXPECT_THAT(window.calls, IsEmpty());
    EXPECT_EQ(window.fakeUi.plotToolTip, "");
    window.press(31);
    window.calls.clear();
    window.view.buttonReleased = true;
    window.move(35);
    EXPECT_THAT(window.calls, ElementsAre("doScroll 15 True"));
    EXPECT_FALSE(window.view.buttonReleased);
}

TEST(Movement, inOneClickModeScrollsWithoutSelectingAndTellsTheReading)
{
    Pointed window;
    window.oneClick();
    window.move(31);
    EXPECT_THAT(window.calls, ElementsAre("doScroll 11 False"));
    EXPECT_EQ(window.fakeUi.plotToolTip, "31.0000");
    window.view.curLayer = kConverted;
    window.move(32);
    EXPECT_EQ(window.fakeUi.plotToolTip, "");
}

TEST(Movement, whileTheWindowIsBusyOnlyNotesThePlace)
{
    Pointed window;
    window.oneClick(true);
    window.view.hoverRow = 5;
    window.pointing.moveWhileBusy(12);
    EXPECT_EQ(window.view.pointerX, 12);
    EXPECT_EQ(window.text(Control::inLabel), "32.0000");
    EXPECT_EQ(window.view.hoverRow, 5);
    EXPECT_THAT(window.calls, IsEmpty());
}

// ---- sloppy mode

TEST(Sloppy, snapsToTheHighestOfSevenRowsWhereTheBaselineIsHigh)
{
    Pointed window;
    window.oneClick(true);
    window.move(40);
    EXPECT_EQ(window.view.hoverRow, 43); // readings rise
    EXPECT_THAT(window.calls, ElementsAre("doScroll 20 False", "redraw 0 False"));
    EXPECT_EQ(window.fakeUi.plotToolTip, "43.0000");
}

TEST(Sloppy, snapsToTheLowestWhereItIsLow)
{
    Pointed window;
    window.oneClick(true);
    window.conversionSettings.baselineIsHigh = false;
    window.move(40);
    EXPECT_EQ(window.view.hoverRow, 37);
}

TEST(Sloppy, ofEqualReadingsThePointersRowWinsElseTheFirst)
{
    Pointed window;
    window.oneClick(true);
    for (std::int32_t r = 37; r <= 43; ++r) window.reading(r, 5);
    window.move(40);
    EXPECT_EQ(window.view.hoverRow, 40);
    window.reading(38, 6);
    window.reading(42, 6);
    window.move(40);
    EXPECT_EQ(window.view.hoverRow, 38);
}

TEST(Sloppy, looksOnlyAtRowsThatExist)
{
    Pointed window;
    window.oneClick(true);
    window.move(99);
    EXPECT_EQ(window.view.hoverRow, 99);
    window.conversionSettings.baselineIsHigh = false;
    window.move(1);
    EXPECT_EQ(window.view.hoverRow, 0);
}

TEST(Sloppy, takesAMissingReadingAsTheNumberItIs)
{
    Pointed window;
    window.oneClick(true);
    window.reading(39, kMissing);
    window.move(40);
    EXPECT_EQ(window.view.hoverRow, 39);
}

// ---- one-click presses

TEST(OneClick, theFirstClickBeginsAChain)
{
    Pointed window;
    window.oneClick();
    window.press(30);
    EXPECT_TRUE(window.view.chainActive);
    EXPECT_EQ(window.pointer(), Pointer::fourWay);
    EXPECT_EQ(window.selected(), Rows(30, 30));
    EXPECT_EQ(window.view.lastClick, 30);
}

TEST(OneClick, theNextConvertsFromTheLastClickAndDrawsOnce)
{
    Pointed window;
    window.oneClick();
    window.press(30);
    window.release(30);
    window.calls.clear();
    window.press(45);
    EXPECT_EQ(window.selected(), Rows(30, 45));
    EXPECT_EQ(window.view.lastClick, 45);
    EXPECT_THAT(window.calls, ElementsAre("convertSelection False", "redraw 0 True", "redraw 1 True", "updateCues"));
}

TEST(OneClick, aClickToTheLeftSelectsFromItToTheOldOne)
{
    Pointed window;
    window.oneClick();
    window.press(45);
    window.release(45);
    window.press(30);
    EXPECT_EQ(window.selected(), Rows(30, 45));
    EXPECT_EQ(window.view.lastClick, 30);
}

TEST(OneClick, sloppyTakesTheRowItHasSnappedTo)
{
    Pointed window;
    window.oneClick(true);
    window.press(30);
    EXPECT_EQ(window.selected(), Rows(33, 33)); // the press is a movement first
}

// ---- double clicks

TEST(DoubleClick, breaksAChainWithoutTurbo)
{
    Pointed window;
    window.oneClick();
    window.press(30);
    window.release(30);
    window.pointing.Picture1_DblClick();
    EXPECT_FALSE(window.view.chainActive);
    EXPECT_EQ(window.pointer(), Pointer::northSouth);
}

TEST(DoubleClick, addsAPointUnderTurboWhereThePointerLastWas)
{
    Pointed window;
    window.turbo({});
    window.move(37);
    window.calls.clear();
    window.pointing.Picture1_DblClick();
    EXPECT_EQ(window.view.markRow, 37);
    EXPECT_THAT(window.calls, ElementsAre("setPoint 37 -1 False", "redraw 0 True", "redraw 1 True", "updateCues"));
}

TEST(DoubleClick, beepsOnAMissingReading)
{
    Pointed window;
    window.turbo({});
    window.reading(37, kMissing);
    window.move(37);
    window.pointing.Picture1_DblClick();
    EXPECT_EQ(window.fakeUi.beeps, 1);
    EXPECT_EQ(window.view.markRow, -1);
    EXPECT_THAT(window.calls, IsEmpty());
}

TEST(DoubleClick, onAParameterColumnUnderTurboIsABreakThatDoesNothing)
{
    Pointed window;
    window.turbo({});
    window.view.curSensor = -1;
    window.move(37);
    window.pointing.Picture1_DblClick();
    EXPECT_THAT(window.calls, IsEmpty());
}

TEST(DoubleClick, whileAnotherButtonIsHeldIsIgnored)
{
    Pointed window;
    window.turbo({});
    window.pointing.Picture1_MouseDown({PointerButton::other, false, 13});
    window.calls.clear();
    window.pointing.Picture1_DblClick();
    EXPECT_THAT(window.calls, IsEmpty());
    EXPECT_EQ(window.view.heldButton, PointerButton::other);
}

TEST(DoubleClick, aDragAfterItGoesOnFromTheAnchorWithNoPointInHand)
{
    Pointed window;
    window.turbo({37});
    window.press(37);
    window.release(37);
    window.pointing.Picture1_DblClick();
    window.calls.clear();
    window.move(45);
    EXPECT_THAT(window.calls, ElementsAre("doScroll 25 True"));
    EXPECT_EQ(window.view.lastClick, 37);
}

} // namespace
} // namespace tarvelint::test
