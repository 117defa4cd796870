// SPDX-License-Identifier: MIT
#include "pointer_fixture.h"

#include <stdexcept>

namespace tarvelint::test {
namespace {

TEST(PickPoint, takesTheFirstPointWithinThreeRows)
{
    Pointed window;
    window.turbo({37, 42});
    window.press(40);
    EXPECT_EQ(window.view.grabbedPoint, 37);
    EXPECT_EQ(window.view.markRow, 37);
    window.release(40);
}

TEST(PickPoint, reachesThreeRowsAndNoFurther)
{
    for (const std::int32_t row : {36, 44}) {
        Pointed window;
        window.turbo({row});
        window.press(40);
        EXPECT_EQ(window.view.grabbedPoint, -1) << row;
    }
    for (const std::int32_t row : {37, 43}) {
        Pointed window;
        window.turbo({row});
        window.press(40);
        EXPECT_EQ(window.view.grabbedPoint, row) << row;
    }
}

TEST(PickPoint, findsNoneOutOfReachAndForgetsTheOldOne)
{
    Pointed window;
    window.turbo({37});
    window.view.markRow = 37;
    window.press(60);
    EXPECT_EQ(window.view.grabbedPoint, -1);
    EXPECT_EQ(window.view.markRow, -1);
}

TEST(PickPoint, findsNoneInTheConvertedViewOrOnAParameterColumn)
{
    Pointed converted;
    converted.turbo({37});
    converted.view.markRow = 37;
    converted.view.curLayer = kConverted;
    converted.press(37);
    EXPECT_EQ(converted.view.markRow, -1);
    Pointed parameter;
    parameter.turbo({37});
    parameter.view.curSensor = -1;
    parameter.press(37);
    EXPECT_EQ(parameter.view.grabbedPoint, -1);
}

TEST(PickPoint, withoutTurboIsNotTried)
{
    Pointed window;
    window.turbo({37});
    window.view.Turbo = false;
    window.press(37);
    EXPECT_EQ(window.view.grabbedPoint, -1);
}

TEST(Drag, showsThePointWhereItWouldGoAndDoesNothingElse)
{
    Pointed window;
    window.turbo({37});
    window.press(37);
    window.calls.clear();
    window.move(45);
    EXPECT_EQ(window.view.dragRow, 45);
    EXPECT_EQ(window.selected(), Rows(37, 37));
    EXPECT_THAT(window.calls, ElementsAre("redraw 0 True"));
}

TEST(Drop, movesThePoint)
{
    Pointed window;
    window.turbo({37});
    window.press(37);
    window.move(45);
    window.calls.clear();
    window.release(45);
    EXPECT_EQ(window.view.markRow, 45);
    EXPECT_EQ(window.view.grabbedPoint, -1);
    EXPECT_EQ(window.view.dragRow, -1);
    EXPECT_THAT(window.calls, ElementsAre("setPoint 45 37 False", "redraw 0 True", "redraw 1 True", "updateCues"));
}

TEST(Drop, withoutADragRecomputesOnItsOwnRow)
{
    Pointed window;
    window.turbo({37});
    window.press(37);
    window.calls.clear();
    window.release(37);
    EXPECT_EQ(window.calls.front(), "setPoint 37 37 False");
}

TEST(Drop, onAMissingReadingBeepsAndPutsItBack)
{
    Pointed window;
    window.turbo({37});
    window.reading(45, kMissing);
    window.press(37);
    window.move(45);
    window.calls.clear();
    window.release(45);
    EXPECT_EQ(window.fakeUi.beeps, 1);
    EXPECT_EQ(window.view.markRow, 37);
    EXPECT_EQ(window.view.grabbedPoint, -1);
    EXPECT_THAT(window.calls, ElementsAre("redraw 0 True", "redraw 1 True", "updateCues"));
}

TEST(Drop, besideTheRecordGoesToItsLastRow)
{
    Pointed window;
    window.turbo({37});
    window.press(37);
    window.calls.clear();
    window.release(400);
    EXPECT_EQ(window.calls.front(), "setPoint 99 37 False");
}

TEST(Release, withoutAPointInHandOnlyEndsTheHolding)
{
    Pointed window;
    window.press(37);
    window.calls.clear();
    window.release(50);
    EXPECT_THAT(window.calls, IsEmpty());
    EXPECT_FALSE(window.view.isHeld);
}

TEST(EndOfAGesture, putsThePointInHandBack)
{
    Pointed window;
    window.turbo({37});
    window.press(37);
    window.move(45);
    window.calls.clear();
    window.pointing.endGesture();
    EXPECT_EQ(window.view.grabbedPoint, -1);
    EXPECT_EQ(window.view.dragRow, -1);
    EXPECT_FALSE(window.view.isHeld);
    EXPECT_TRUE(window.view.buttonReleased);
    EXPECT_THAT(window.calls, ElementsAre("redraw 0 True", "redraw 1 True", "updateCues"));
}

TEST(EndOfAGesture, leavesAChainAndDrawsNothingWithoutAPoint)
{
    Pointed window;
    window.oneClick();
    window.press(37);
    window.calls.clear();
    window.pointing.endGesture();
    EXPECT_TRUE(window.view.chainActive);
    EXPECT_THAT(window.calls, IsEmpty());
}

TEST(HoverScrolling, endsWithoutAButtonOnly)
{
    Pointed window;
    window.pointing.endHoverScrolling();
    EXPECT_TRUE(window.view.buttonReleased);
    window.view.buttonReleased = false;
    window.view.isHeld = true;
    window.pointing.endHoverScrolling();
    EXPECT_FALSE(window.view.buttonReleased);
}

// ---- by keyboard

TEST(EnterOnTheRow, isPressAndRelease)
{
    Pointed window;
    window.pointing.pressAt(13, false);
    EXPECT_EQ(window.selected(), Rows(33, 33));
    EXPECT_FALSE(window.view.isHeld);
    window.pointing.pressAt(20, true);
    EXPECT_EQ(window.selected(), Rows(33, 40));
}

TEST(EnterOnTheRow, takesAPointInHandAndTheNextOneDropsIt)
{
    Pointed window;
    window.turbo({37});
    window.pointing.pressAt(18, false); // row 38 reaches it
    EXPECT_EQ(window.view.grabbedPoint, 37);
    EXPECT_FALSE(window.view.isHeld); // commands go on
    window.pointing.moveRowCursor(25);
    EXPECT_EQ(window.view.dragRow, 45);
    window.calls.clear();
    window.pointing.pressAt(25, false);
    EXPECT_EQ(window.calls.front(), "setPoint 45 37 False");
    EXPECT_EQ(window.view.grabbedPoint, -1);
}

TEST(EnterOnTheRow, aPointInHandDoesNotFollowTheMouse)
{
    Pointed window;
    window.turbo({37});
    window.pointing.pressAt(18, false);
    window.move(50);
    EXPECT_EQ(window.view.dragRow, -1);
    window.release(50); // of a press that was not taken
    EXPECT_EQ(window.view.grabbedPoint, 37);
}

TEST(EnterOnTheRow, holdsNothingWhateverHappensMeanwhile)
{
    struct Closing : Pointed {
        void convertSelection(bool) override { throw std::runtime_error("closing"); }
    } window;
    window.oneClick();
    window.pointing.pressAt(10, false);
    EXPECT_THROW(window.pointing.pressAt(20, false), std::runtime_error);
    EXPECT_FALSE(window.view.isHeld);
}

TEST(DoubleClickOnTheRow, addsAPointAndHoldsNothing)
{
    Pointed window;
    window.turbo({});
    window.pointing.doubleClickAt(17);
    EXPECT_EQ(window.view.markRow, 37);
    EXPECT_FALSE(window.view.isHeld);
}

TEST(RowCursorMovement, showsCuesAndSnapsButDoesNotScroll)
{
    Pointed window;
    window.oneClick(true);
    window.pointing.moveRowCursor(49); // the last unit, where a pointer would scroll
    EXPECT_EQ(window.text(Control::inLabel), "69.0000");
    EXPECT_EQ(window.view.hoverRow, 72);
    EXPECT_THAT(window.calls, ElementsAre("redraw 0 False"));
}

} // namespace
} // namespace tarvelint::test
