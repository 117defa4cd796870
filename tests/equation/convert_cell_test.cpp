// SPDX-License-Identifier: MIT
#include "equation/convert_cell.h"

#include "support/grid.h"

#include <gtest/gtest.h>

#include <limits>

namespace tarvelint::test {
namespace {

TEST(ConvertCell, storesWhatReadingAndBaselineGiveAndLeavesTheOtherCellsAlone)
{
    DataSet data;
    setReadings(data, {{1, 2}});
    data.values(kBaseline, 0, 1) = 10;
    convertCell(data, 0, 1, [](double reading, double baseline) { return baseline - reading; });
    EXPECT_EQ(columnOf(data, kConverted, 0), (std::vector<double>{0, 8}));
    EXPECT_EQ(columnOf(data, kUnconverted, 0), (std::vector<double>{1, 2}));
}

TEST(ConvertCell, aValueThatIsNotFiniteBecomesMissing)
{
    DataSet data;
    setReadings(data, {{1}});
    convertCell(data, 0, 0, [](double, double) { return std::numeric_limits<double>::infinity(); });
    EXPECT_EQ(data.values(kConverted, 0, 0), data.blank);
}

TEST(HasBaseline, unlessItIsTheMissingNumber)
{
    DataSet data;
    setReadings(data, {{1, 2}});
    data.values(kBaseline, 0, 0) = data.blank;
    data.values(kBaseline, 0, 1) = 10;
    EXPECT_FALSE(hasBaseline(data, 0, 0));
    EXPECT_TRUE(hasBaseline(data, 0, 1));
}

} // namespace
} // namespace tarvelint::test
