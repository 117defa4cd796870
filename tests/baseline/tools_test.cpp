// SPDX-License-Identifier: MIT
#include "baseline/tools.h"

#include "points_window.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarvelint::test {
namespace {

using testing::ElementsAre;

/// Ten readings with a baseline and converted values, rows 2 to 4 selected; skipping selects rows 4 to 6.
struct Selected : PointsWindow {
    Tools tools{*this, points};

    Selected() : PointsWindow(Column{10, 11, 12, 13, 14, 15, 16, 17, 18, 19})
    {
        select(2, 4);
        calls.clear();
    }
    bool skip(bool draws) override
    {
        select(4, 6);
        return PointsWindow::skip(draws);
    }
    void turbo(const Rows& rows)
    {
        view.Turbo = true;
        mark(rows);
    }
};

TEST(Delete, ofReadingsBlanksAllThreeLayersAndMovesOn)
{
    Selected window;
    window.tools.mnuToolsDelete_Click();
    EXPECT_EQ(window.readings(), (Column{10, 11, blank, blank, blank, 15, 16, 17, 18, 19}));
    for (std::int32_t r = 2; r <= 4; ++r) {
        EXPECT_EQ(window.baseline()[static_cast<std::size_t>(r)], blank);
        EXPECT_EQ(window.converted()[static_cast<std::size_t>(r)], blank);
    }
    EXPECT_EQ(window.baseline()[1], untouched);
    EXPECT_EQ(window.baseline()[5], untouched);
    EXPECT_THAT(window.calls, ElementsAre("undoSave 0", "skip False", "redraw 0 True", "redraw 1 True", "updateCues"));
    EXPECT_FALSE(window.record.saveCheck);
}

TEST(Delete, inTheOtherViewsLeavesReadingsAndSelection)
{
    for (const int layer : {kBaseline, kConverted}) {
        Selected window;
        window.view.curLayer = layer;
        window.tools.mnuToolsDelete_Click();
        EXPECT_EQ(window.readings()[3], 13);
        EXPECT_EQ(window.baseline()[3], blank);
        EXPECT_EQ(window.converted()[3], blank);
        EXPECT_EQ(window.view.selStart, 2);
        EXPECT_THAT(window.calls, ElementsAre("undoSave 0", "redraw 0 True", "redraw 1 True", "updateCues"));
    }
}

TEST(Delete, withAPickedPointRemovesOnlyThat)
{
    Selected window;
    window.turbo({1, 3, 8});
    window.view.markRow = 3;
    window.tools.mnuToolsDelete_Click();
    EXPECT_EQ(window.marks(), (Rows{1, 8}));
    EXPECT_EQ(window.view.markRow, -1);
    EXPECT_EQ(window.readings()[3], 13);
    EXPECT_THAT(window.calls, ElementsAre("redraw 0 True", "redraw 1 True", "updateCues"));
    EXPECT_FALSE(window.record.saveCheck);
}

TEST(Delete, aPickedPointCountsOnlyUnderTurbo)
{
    Selected window;
    window.mark({3});
    window.view.markRow = 3;
    window.tools.mnuToolsDelete_Click();
    EXPECT_EQ(window.marks(), Rows{3});
    EXPECT_EQ(window.readings()[3], blank);
}

TEST(Delete, underTurboDropsThePointsOfTheStretchItMovedOnTo)
{
    Selected window;
    window.turbo({0, 3, 5, 9});
    window.tools.mnuToolsDelete_Click();
    EXPECT_EQ(window.marks(), (Rows{0, 3, 9})); // rows 4 to 6, not 2 to 4
    EXPECT_EQ(window.readings()[3], blank);
}

TEST(Delete, underTurboWithoutPointsThereRecomputesTheSegmentOnce)
{
    Selected window;
    window.turbo({1, 9});
    window.tools.mnuToolsDelete_Click();
    EXPECT_EQ(window.marks(), (Rows{1, 9}));
    EXPECT_EQ(window.baseline()[1], 11); // from 11 to 19 in eight rows, and rows 2 to 4 are skipped:
    EXPECT_EQ(window.baseline()[5], 12); // the line goes on one step behind row 1
}

TEST(Delete, onAParameterColumnUnderTurboTouchesNoPoints)
{
    Selected window;
    window.turbo({1, 5});
    window.view.curSensor = -1;
    window.tools.mnuToolsDelete_Click();
    window.view.curSensor = 0;
    EXPECT_EQ(window.marks(), (Rows{1, 5}));
}

TEST(Delete, ofAnEmptySelectionDoesNothing)
{
    Selected window;
    window.select(4, 2);
    window.tools.mnuToolsDelete_Click();
    EXPECT_TRUE(window.nothingHappened());
    EXPECT_TRUE(window.calls.empty());
}

TEST(Delete, aPickedPointGoesAlsoWithAnEmptySelection)
{
    Selected window;
    window.turbo({3});
    window.view.markRow = 3;
    window.select(4, 2);
    window.tools.mnuToolsDelete_Click();
    EXPECT_EQ(window.marks(), Rows{});
}

TEST(Clear, isDelete)
{
    Selected window;
    window.tools.mnuEditClear_Click();
    EXPECT_EQ(window.readings()[3], blank);
}

TEST(InterpolateEntry, fillsTheSelectionAndShowsIt)
{
    Selected window;
    window.record.values(kUnconverted, 0, 3) = 99;
    window.tools.mnuToolsInterpolate_Click();
    EXPECT_EQ(window.readings()[3], 13);
    EXPECT_THAT(window.calls, ElementsAre("undoSave 0", "redraw 0 True", "redraw 1 True", "updateCues"));
}

TEST(InterpolateEntry, onAParameterColumnOnlyBeeps)
{
    Selected window;
    window.record.parameters = {true};
    window.select(4, 2);
    window.tools.mnuToolsInterpolate_Click();
    EXPECT_EQ(window.fakeUi.beeps, 1);
    EXPECT_TRUE(window.nothingHappened());
    EXPECT_TRUE(window.calls.empty());
}

TEST(InterpolateEntry, ofOneRowBeepsAfterItsCopy)
{
    Selected window;
    window.select(3, 3);
    window.tools.mnuToolsInterpolate_Click();
    EXPECT_EQ(window.fakeUi.beeps, 1);
    EXPECT_EQ(window.calls.front(), "undoSave 0");
}

TEST(InterpolateEntry, ofAnEmptySelectionDoesNothing)
{
    Selected window;
    window.select(4, 2);
    window.tools.mnuToolsInterpolate_Click();
    EXPECT_TRUE(window.nothingHappened());
    EXPECT_TRUE(window.calls.empty());
}

} // namespace
} // namespace tarvelint::test
