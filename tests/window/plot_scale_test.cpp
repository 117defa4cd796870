// SPDX-License-Identifier: MIT
#include "window/plot_scale.h"

#include "data/numbers.h"

#include <gtest/gtest.h>

namespace tarvelint::test {
namespace {

TEST(PlotScale, theRowAtAPlaceIsRoundedHalfToEvenAfterTheFirstRowIsAdded)
{
    EXPECT_EQ(rowAt(0, 7, 1), 7);
    EXPECT_EQ(rowAt(2.4F, 7, 1), 9);
    EXPECT_EQ(rowAt(2.5F, 7, 1), 10);  // 9.5
    EXPECT_EQ(rowAt(2.5F, 8, 1), 10);  // 10.5
    EXPECT_EQ(rowAt(10, 100, 4), 102); // 102.5
    EXPECT_EQ(rowAt(-3, 1, 1), -2);
    EXPECT_THROW((void)rowAt(1e10F, 0, 1), NumericOverflow);
}

TEST(PlotScale, rowsComeBackFromTheirPlaces)
{
    for (const std::int16_t zoom : {std::int16_t{1}, std::int16_t{2}, std::int16_t{4}, std::int16_t{8}})
        for (std::int32_t row = 90; row < 130; ++row) EXPECT_EQ(rowAt(rowX(row, 100, zoom), 100, zoom), row);
}

TEST(PlotScale, theValueAtTheBottomMarginIsTheLowest)
{
    // An area of 110 units for 0 to 10: 10 units to a value, 0 at 104.5.
    const auto scale = valueScale(0, 10, 110);
    ASSERT_TRUE(scale);
    EXPECT_DOUBLE_EQ(valueAt(104.5F, 0, 110, scale->yScale), 0);
    EXPECT_DOUBLE_EQ(valueAt(4.5F, 0, 110, scale->yScale), 10);
    EXPECT_DOUBLE_EQ(valueAt(54.5F, 0, 110, scale->yScale), 5);
}

TEST(PlotScale, valuesComeBackFromTheirPlacesAsFarAs32BitsTell)
{
    const auto scale = valueScale(-2.5, 7.25, 240);
    ASSERT_TRUE(scale);
    for (double value = -4; value < 9; value += 0.37)
        EXPECT_NEAR(valueAt(valueY(*scale, value), scale->lo, 240, scale->yScale), value, 1e-5);
}

} // namespace
} // namespace tarvelint::test
