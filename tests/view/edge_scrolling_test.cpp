// SPDX-License-Identifier: MIT
#include "view/scrolling.h"

#include "support/test_window.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

namespace tarvelint::test {
namespace {

using std::chrono::milliseconds;
using testing::ElementsAre;
using testing::IsEmpty;

/// 1000 rows in 100 units, from row 500 on: 10 rows a step, at most 899. The pointer is held at an edge; each pass
/// plays the next of `passes`.
struct Held : TestWindow {
    Scrolling scrolling{*this};
    std::vector<std::function<void()>> passes;
    std::size_t played = 0;

    explicit Held(std::int32_t first = 500)
    {
        record.allocate(1, 1000);
        fakeUi.surfaces[0].width = 100;
        scrolling.fitScrollBar();
        view.HScroll1.Value = first;
        setEnabled(Control::Picture1_0, true);
        fakeUi.onPendingEvents = [this] {
            if (played < passes.size())
                passes[played++]();
            else
                view.buttonReleased = true;
        };
    }
    void scroll(float x, bool extend)
    {
        calls.clear();
        view.pointerX = x;
        view.buttonReleased = false;
        scrolling.doScroll(x, extend);
    }
    [[nodiscard]] std::int32_t value() const { return view.HScroll1.Value; }
};

TEST(DoScroll, betweenTheEdgesDoesNothingUnlessItExtends)
{
    Held window;
    window.scroll(50, false);
    EXPECT_THAT(window.calls, IsEmpty());
    window.scroll(50, true);
    EXPECT_THAT(window.calls, ElementsAre("ExtendSelection 50", "redraw 0 False", "redraw 1 False"));
    EXPECT_EQ(window.value(), 500);
}

TEST(DoScroll, theEdgesAreTheLastUnitAndTheFirstTwo)
{
    for (const float x : {98.9F, 2.0F}) {
        Held window;
        window.scroll(x, false);
        EXPECT_EQ(window.value(), 500) << x;
    }
    for (const float x : {99.0F, 130.0F}) {
        Held window;
        window.scroll(x, false);
        EXPECT_EQ(window.value(), 510) << x;
    }
    for (const float x : {1.9F, -7.0F}) {
        Held window;
        window.scroll(x, false);
        EXPECT_EQ(window.value(), 490) << x;
    }
}

TEST(DoScroll, aPassMovesDrawsTheSelectionAlongAndDrawsBothAreasAfresh)
{
    Held window;
    window.passes = {[&] { window.view.buttonReleased = false; }};
    window.scroll(105, true);
    EXPECT_EQ(window.value(), 520);
    EXPECT_THAT(window.calls, ElementsAre("ExtendSelection 100", "redraw 0 True", "redraw 1 True",
                                          "ExtendSelection 100", "redraw 0 True", "redraw 1 True",
                                          "ExtendSelection 105", "redraw 0 False", "redraw 1 False"));
}

TEST(DoScroll, atTheLeftEdgeTheSelectionIsDrawnToTheEdge)
{
    Held window;
    window.scroll(-4, true);
    EXPECT_EQ(window.value(), 490);
    EXPECT_THAT(window.calls, ElementsAre("ExtendSelection 0", "redraw 0 True", "redraw 1 True", "ExtendSelection -4",
                                          "redraw 0 False", "redraw 1 False"));
}

TEST(DoScroll, withoutExtendingAReleaseJustEndsIt)
{
    Held window;
    window.scroll(105, false);
    EXPECT_THAT(window.calls, ElementsAre("redraw 0 True", "redraw 1 True"));
}

TEST(DoScroll, endsWhereThePointerComesBackTo)
{
    Held right;
    right.passes = {[&] { right.view.pointerX = 97; }};
    right.scroll(105, true);
    EXPECT_EQ(right.value(), 510);
    EXPECT_THAT(right.calls, ElementsAre("ExtendSelection 100", "redraw 0 True", "redraw 1 True", "ExtendSelection 97",
                                         "redraw 0 False", "redraw 1 False"));
    Held left;
    left.passes = {[&] { left.view.pointerX = 1; }};
    left.scroll(0, false);
    EXPECT_EQ(left.value(), 490);
    EXPECT_THAT(left.calls, ElementsAre("redraw 0 True", "redraw 1 True", "redraw 0 False", "redraw 1 False"));
}

TEST(DoScroll, theSelectionIsDrawnToWhereThePointerComesBackToFromTheLeft)
{
    Held window;
    window.passes = {[&] { window.view.pointerX = -3; }, [&] { window.view.pointerX = 40; }};
    window.scroll(-3, true);
    EXPECT_EQ(window.value(), 480);
    EXPECT_THAT(window.calls,
                ElementsAre("ExtendSelection 0", "redraw 0 True", "redraw 1 True", "ExtendSelection 0", "redraw 0 True",
                            "redraw 1 True", "ExtendSelection 40", "redraw 0 False", "redraw 1 False"));
}

TEST(DoScroll, thePointerHasToComeAWayBackFromTheEdge)
{
    Held right;
    right.passes = {[&] { right.view.pointerX = 98; }}; // 98 is not below 100 - 2
    right.scroll(105, false);
    EXPECT_EQ(right.value(), 520);
    Held left;
    left.passes = {[&] { left.view.pointerX = 0; }};
    left.scroll(-1, false);
    EXPECT_EQ(left.value(), 480);
}

TEST(DoScroll, thePointersReturnCountsBeforeARelease)
{
    Held window;
    window.passes = {[&] {
        window.view.pointerX = 50;
        window.view.buttonReleased = true;
    }};
    window.scroll(105, true);
    EXPECT_EQ(window.calls[3], "ExtendSelection 50");
}

TEST(DoScroll, endsByItselfAtTheLastScreen)
{
    Held window(885);
    window.passes = {[] {}, [] {}, [] {}};
    window.scroll(105, true);
    EXPECT_EQ(window.value(), 899);
    EXPECT_EQ(window.played, 1U); // 895, then 905 would be too far
    EXPECT_THAT(window.calls, ElementsAre("ExtendSelection 100", "redraw 0 True", "redraw 1 True",
                                          "ExtendSelection 100", "redraw 0 True", "redraw 1 True"));
}

TEST(DoScroll, endsByItselfAtTheFirstRow)
{
    Held window(15);
    window.passes = {[] {}, [] {}, [] {}};
    window.scroll(0, true);
    EXPECT_EQ(window.value(), 0);
    EXPECT_EQ(window.played, 1U); // 5, then -5 would be too far
    EXPECT_THAT(window.calls, ElementsAre("ExtendSelection 0", "redraw 0 True", "redraw 1 True", "ExtendSelection 0",
                                          "redraw 0 True", "redraw 1 True"));
}

TEST(DoScroll, aStepThatJustReachesTheEndIsNotYetTheLast)
{
    Held right(889);
    right.passes = {[] {}, [] {}, [] {}};
    right.scroll(105, true);
    EXPECT_EQ(right.value(), 899);
    EXPECT_EQ(right.played, 1U); // 899 is Max itself, then 909 would be too far
    EXPECT_THAT(right.calls, ElementsAre("ExtendSelection 100", "redraw 0 True", "redraw 1 True", "ExtendSelection 100",
                                         "redraw 0 True", "redraw 1 True"));
    Held left(10);
    left.passes = {[] {}, [] {}, [] {}};
    left.scroll(0, true);
    EXPECT_EQ(left.value(), 0);
    EXPECT_EQ(left.played, 1U); // 0, then -10 would be too far
    EXPECT_THAT(left.calls, ElementsAre("ExtendSelection 0", "redraw 0 True", "redraw 1 True", "ExtendSelection 0",
                                        "redraw 0 True", "redraw 1 True"));
}

TEST(DoScroll, aStepOfNoRowsCountsAsOne)
{
    Held window;
    window.view.HScroll1.SmallChange = 0;
    window.scroll(105, false);
    EXPECT_EQ(window.value(), 501);
}

TEST(DoScroll, takesAtLeast50MillisecondsForAPass)
{
    Held window;
    window.passes = {[] {}, [] {}};
    window.scroll(105, false);
    EXPECT_EQ(window.fakeUi.waited, milliseconds(150)); // two passes and the one in which the button is released
}

TEST(DoScroll, isOneLoopAtATime)
{
    Held window;
    window.passes = {[&] { window.scrolling.doScroll(105, true); }};
    window.scroll(105, false);
    EXPECT_EQ(window.value(), 520);
    window.scroll(105, false); // and free again afterwards
    EXPECT_EQ(window.value(), 530);
}

TEST(DoScroll, isFreeAgainAfterItsWindowWasAskedToClose)
{
    Held window;
    window.passes = {[] { throw std::runtime_error("closing"); }};
    EXPECT_THROW(window.scroll(105, false), std::runtime_error);
    window.scroll(105, false);
    EXPECT_EQ(window.value(), 520);
}

// ---- wheel and keys

TEST(Wheel, fifteenDegreesAreOneStepAwayTowardsEarlierRows)
{
    Held window;
    window.scrolling.turnWheel(120, false);
    EXPECT_EQ(window.value(), 490);
    window.scrolling.turnWheel(-240, false);
    EXPECT_EQ(window.value(), 510);
}

TEST(Wheel, lessAddsUpAndTurningBackBeginsAnew)
{
    Held window;
    window.scrolling.turnWheel(70, false);
    EXPECT_EQ(window.value(), 500);
    window.scrolling.turnWheel(70, false);
    EXPECT_EQ(window.value(), 490);
    window.scrolling.turnWheel(110, false); // 20 are left from before
    EXPECT_EQ(window.value(), 480);
    window.scrolling.turnWheel(-119, false);
    EXPECT_EQ(window.value(), 480);
    window.scrolling.turnWheel(-1, false);
    EXPECT_EQ(window.value(), 490);
}

TEST(Wheel, stopsAtTheRecordsEnds)
{
    Held window(5);
    window.scrolling.turnWheel(120, false);
    EXPECT_EQ(window.value(), 0);
    window.scrolling.turnWheel(-120 * 200, false);
    EXPECT_EQ(window.value(), 899);
}

TEST(Wheel, withCtrlZoomsWhileTheEntryIsEnabled)
{
    Held window;
    window.scrolling.showZoomEntries();
    window.scrolling.turnWheel(240, true);
    EXPECT_EQ(window.view.zoomFactor, 4);
    window.scrolling.turnWheel(-120, true);
    EXPECT_EQ(window.view.zoomFactor, 2);
    window.scrolling.turnWheel(120 * 9, true);
    EXPECT_EQ(window.view.zoomFactor, 8);
    window.setEnabled(Control::mnuViewZoomOut, false);
    window.scrolling.turnWheel(-120, true);
    EXPECT_EQ(window.view.zoomFactor, 8);
}

TEST(Wheel, whatWasTurnedWithoutCtrlDoesNotZoom)
{
    Held window;
    window.scrolling.showZoomEntries();
    window.scrolling.turnWheel(119, false);
    window.scrolling.turnWheel(1, true);
    EXPECT_EQ(window.view.zoomFactor, 1);
}

TEST(ScrollKeys, moveByAScreenOrToTheEnds)
{
    using enum Scrolling::ScrollKey;
    Held window;
    window.scrolling.pressScrollKey(pageDown);
    EXPECT_EQ(window.value(), 600);
    window.scrolling.pressScrollKey(pageUp);
    EXPECT_EQ(window.value(), 500);
    window.scrolling.pressScrollKey(end);
    EXPECT_EQ(window.value(), 899);
    window.scrolling.pressScrollKey(pageDown);
    EXPECT_EQ(window.value(), 899);
    window.scrolling.pressScrollKey(home);
    EXPECT_EQ(window.value(), 0);
}

TEST(ScrollKeys, drawBothAreasOnlyWhenTheViewMoves)
{
    Held window(899);
    window.scrolling.pressScrollKey(Scrolling::ScrollKey::end);
    EXPECT_THAT(window.calls, IsEmpty());
    window.scrolling.pressScrollKey(Scrolling::ScrollKey::pageUp);
    EXPECT_THAT(window.calls, ElementsAre("redraw 1 True", "redraw 0 True"));
}

} // namespace
} // namespace tarvelint::test
