// SPDX-License-Identifier: MIT
#include "edit/selection.h"

#include "data/numbers.h"
#include "support/test_window.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <utility>

namespace tarvelint::test {
namespace {

using testing::ElementsAre;

using Rows = std::pair<std::int32_t, std::int32_t>;

/// A column of 40 readings, rows 10 to 20 selected, in a plot of 100 units.
struct Stepping : TestWindow {
    Selection selection{*this};

    Stepping()
    {
        setReadings({std::vector<double>(40, 4)});
        select(10, 20);
        fakeUi.surfaces[0].width = 100;
        view.HScroll1.Max = 30;
    }
    void select(std::int32_t start, std::int32_t end)
    {
        view.selStart = start;
        view.selEnd = end;
    }
    [[nodiscard]] Rows selected() const { return {view.selStart, view.selEnd}; }
};

TEST(SelectAll, takesTheWholeRecordAndDrawsBothAreasAnew)
{
    TestWindow window;
    window.setReadings({{5, 6, 7}});
    window.view.selStart = window.view.selEnd = 1;
    Selection(window).mnuEditSelectAll_Click();
    EXPECT_EQ(window.view.selStart, 0);
    EXPECT_EQ(window.view.selEnd, 2);
    EXPECT_THAT(window.calls, ElementsAre("redraw 0 True", "redraw 1 True", "updateCues"));
    EXPECT_TRUE(window.record.saveCheck);
}

TEST(SelectAll, ofNothingEndsBeforeItBegins)
{
    TestWindow empty;
    Selection(empty).mnuEditSelectAll_Click();
    EXPECT_EQ(empty.view.selStart, 0);
    EXPECT_EQ(empty.view.selEnd, -1);
}

TEST(ExtendSelection, movesTheEndOnThePointersSideOfTheAnchor)
{
    Stepping column;
    column.view.lastClick = 15;
    column.view.HScroll1.Value = 5;
    column.selection.ExtendSelection(17);
    EXPECT_EQ(column.selected(), Rows(10, 22)); // 17 + 5
    column.selection.ExtendSelection(3);
    EXPECT_EQ(column.selected(), Rows(8, 22));
    EXPECT_THAT(column.calls, ElementsAre("updateCues", "updateCues"));
}

TEST(ExtendSelection, draggedBackPastTheAnchorKeepsItsFurthestRow)
{
    Stepping column;
    column.select(15, 15);
    column.view.lastClick = 15;
    for (const float x : {25.0F, 20.0F, 15.0F, 11.0F}) column.selection.ExtendSelection(x);
    EXPECT_EQ(column.selected(), Rows(11, 20)); // at 20 the end came back, at 15 it stayed
}

TEST(ExtendSelection, endsAtTheRecordsFirstAndLastRow)
{
    Stepping column;
    column.view.lastClick = 15;
    column.selection.ExtendSelection(300);
    EXPECT_EQ(column.selected(), Rows(10, 39));
    column.selection.ExtendSelection(-300);
    EXPECT_EQ(column.selected(), Rows(0, 39));
}

TEST(ExtendSelection, roundsTheDistanceAndThenAddsTheFirstRow)
{
    Stepping column;
    column.view.lastClick = 0;
    column.view.zoomFactor = 2;
    column.view.HScroll1.Value = 1;
    column.selection.ExtendSelection(5); // 2.5 to 2, and 1: 3, where 3.5 would be 4
    EXPECT_EQ(column.selected(), Rows(10, 3));
}

TEST(Skip, sharesTheBoundaryRowAndEndsAtTheLast)
{
    Stepping column;
    EXPECT_TRUE(column.selection.skip(true));
    EXPECT_EQ(column.selected(), Rows(20, 30));
    column.selection.skip(true);
    EXPECT_EQ(column.selected(), Rows(30, 39)); // 40 would be past the last row
    column.calls.clear();
    EXPECT_FALSE(column.selection.skip(true));
    EXPECT_EQ(column.selected(), Rows(30, 39));
    EXPECT_TRUE(column.calls.empty());
}

TEST(Skip, redrawsBothPlotsTheCompanionOverItselfWhileTheEndIsInView)
{
    Stepping column;
    column.selection.skip(true);
    EXPECT_THAT(column.calls, ElementsAre("redraw 0 True", "redraw 1 False", "updateCues"));
}

TEST(Skip, scrollsWhenTheNewEndLiesBeyondTheView)
{
    Stepping column;
    column.fakeUi.surfaces[0].width = 12;
    column.selection.skip(true);
    EXPECT_EQ(column.view.HScroll1.Value, 18); // 30 - 12
    EXPECT_THAT(column.calls, ElementsAre("redraw 1 True", "redraw 0 True", "updateCues"));
}

TEST(Skip, anEndAtTheEdgeOfTheViewIsInView)
{
    Stepping column;
    column.fakeUi.surfaces[0].width = 30;
    column.selection.skip(true); // to rows 20 to 30
    EXPECT_EQ(column.view.HScroll1.Value, 0);
    column.fakeUi.surfaces[0].width = 29;
    column.select(10, 20);
    column.selection.skip(true);
    EXPECT_EQ(column.view.HScroll1.Value, 1);
}

TEST(Skip, aWidthWithAFractionScrollsToTheNearestRowHalvesToEven)
{
    Stepping column;
    column.fakeUi.surfaces[0].width = 12.5;
    column.selection.skip(true);
    EXPECT_EQ(column.view.HScroll1.Value, 18); // 17.5
    column.view.HScroll1.Value = 0;
    column.fakeUi.surfaces[0].width = 13.5;
    column.select(10, 20);
    column.selection.skip(true);
    EXPECT_EQ(column.view.HScroll1.Value, 16); // 16.5
}

TEST(Skip, aPlaceTooFarFor16BitsIsRaisedOutsideLongRecords)
{
    Stepping column;
    column.setReadings({std::vector<double>(70000, 4)});
    column.view.HScroll1.Max = 69000;
    column.select(30000, 40000);
    EXPECT_THROW(column.selection.skip(true), NumericOverflow);
}

TEST(Skip, redrawsWhenTheBarCannotFollow)
{
    Stepping column;
    column.fakeUi.surfaces[0].width = 12;
    column.view.HScroll1.Max = 0;
    column.selection.skip(true);
    EXPECT_THAT(column.calls, ElementsAre("redraw 0 True", "redraw 1 False", "updateCues"));
}

TEST(Skip, followsLongRecords)
{
    Stepping column;
    column.setReadings({std::vector<double>(70000, 4)});
    column.view.longRecord = true;
    column.view.HScroll1.Max = 69000;
    column.select(30000, 50000);
    column.selection.skip(true);
    EXPECT_EQ(column.selected(), Rows(50000, 69999));
    EXPECT_EQ(column.view.HScroll1.Value, 69000); // 69899 wanted, the bar's end taken
}

TEST(Skip, leavesAnEmptySelectionAlone)
{
    Stepping column;
    column.select(20, 10);
    EXPECT_FALSE(column.selection.skip(true));
    EXPECT_EQ(column.selected(), Rows(20, 10));
    EXPECT_TRUE(column.calls.empty());
}

TEST(Skip, movesWithoutADrawingForACommandThatDraws)
{
    Stepping column;
    EXPECT_TRUE(column.selection.skip(false));
    EXPECT_EQ(column.selected(), Rows(20, 30));
    EXPECT_TRUE(column.calls.empty());
    column.fakeUi.surfaces[0].width = 12;
    EXPECT_TRUE(column.selection.skip(false)); // rows 30 to 39
    EXPECT_EQ(column.view.HScroll1.Value, 27);
    EXPECT_TRUE(column.calls.empty());
}

} // namespace
} // namespace tarvelint::test
