// SPDX-License-Identifier: MIT
#include "edit/selection.h"

#include "support/test_window.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarvelint::test {
namespace {

using testing::ElementsAre;

TEST(SelectAll, takesTheWholeRecordAndDrawsBothAreasAnew)
{
    TestWindow window;
    window.setReadings({{5, 6, 7}});
    window.selStart = window.selEnd = 1;
    Selection(window).mnuEditSelectAll_Click();
    EXPECT_EQ(window.selStart, 0);
    EXPECT_EQ(window.selEnd, 2);
    EXPECT_THAT(window.calls, ElementsAre("redraw 0 True", "redraw 1 True", "updateCues"));
    EXPECT_TRUE(window.data.saveCheck);
}

TEST(SelectAll, ofNothingEndsBeforeItBegins)
{
    TestWindow empty;
    Selection(empty).mnuEditSelectAll_Click();
    EXPECT_EQ(empty.selStart, 0);
    EXPECT_EQ(empty.selEnd, -1);
}

} // namespace
} // namespace tarvelint::test
