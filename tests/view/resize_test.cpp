// SPDX-License-Identifier: MIT
#include "view/scrolling.h"

#include "support/test_window.h"
#include "window/plot_scale.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarvelint::test {
namespace {

using testing::ElementsAre;

TEST(Resize, fitsTheBarAndThenDrawsBothAreas)
{
    TestWindow window;
    Scrolling scrolling{window};
    window.record.allocate(1, 1000);
    window.fakeUi.surfaces[0].width = 100;
    scrolling.Form_Resize();
    EXPECT_EQ(window.view.HScroll1.Max, 899); // 1000 - 100 - 1
    EXPECT_EQ(window.view.HScroll1.LargeChange, 100);
    EXPECT_THAT(window.calls, ElementsAre("redraw 0 True", "redraw 1 True"));
}

TEST(Resize, keepsTheLastRowWithinReach)
{
    TestWindow window;
    Scrolling scrolling{window};
    window.record.allocate(1, 1000);
    for (const float width : {100.0F, 453.0F, 933.0F}) {
        window.fakeUi.surfaces[0].width = width;
        scrolling.Form_Resize();
        window.setScrollValue(window.view.HScroll1.Max);
        EXPECT_EQ(lastVisibleRow(width, 1, window.view.HScroll1.Value, 1000), 999) << width;
    }
}

} // namespace
} // namespace tarvelint::test
