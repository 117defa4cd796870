// SPDX-License-Identifier: MIT
#include "view/scrolling.h"

#include "support/test_window.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarvelint::test {
namespace {

using testing::ElementsAre;

/// 1000 rows, of which 100 fit the main area.
struct Resized : TestWindow {
    Scrolling scrolling{*this};

    Resized()
    {
        record.allocate(1, 1000);
        fakeUi.surfaces[0].width = 100;
    }
};

TEST(Resize, ofTheMainAreaFitsTheBarAndThenDrawsBoth)
{
    Resized window;
    window.scrolling.Picture1_Resize(0);
    EXPECT_EQ(window.view.HScroll1.Max, 899); // 1000 - 100 - 1
    EXPECT_EQ(window.view.HScroll1.LargeChange, 100);
    EXPECT_THAT(window.calls, ElementsAre("redraw 0 True", "redraw 1 True"));
}

TEST(Resize, ofTheCompanionDrawsThatAndLeavesTheBarAlone)
{
    Resized window;
    window.scrolling.Picture1_Resize(1);
    EXPECT_EQ(window.view.HScroll1.Max, 0);
    EXPECT_THAT(window.calls, ElementsAre("redraw 1 True"));
}

} // namespace
} // namespace tarvelint::test
