// SPDX-License-Identifier: MIT
#include "data/data_set.h"

#include <gtest/gtest.h>

#include <limits>
#include <new>
#include <stdexcept>

namespace tarvelint::test {
namespace {

/// Every cell holds its own address: 100 * layer + 10 * column + row.
DataSet numberedCells(std::int16_t columns, std::int32_t lines)
{
    DataSet data;
    data.allocate(columns, lines);
    for (int layer = 1; layer <= kLayers; ++layer)
        for (std::int32_t c = 0; c < columns; ++c)
            for (std::int32_t r = 0; r < lines; ++r) data.values(layer, c, r) = 100 * layer + 10 * c + r;
    return data;
}

/// How many of all cells hold `value`.
int cellsHolding(const DataSet& data, double value)
{
    int count = 0;
    for (int layer = 1; layer <= kLayers; ++layer)
        for (std::int32_t c = 0; c < data.columns; ++c)
            for (std::int32_t r = 0; r < data.lines; ++r) count += data.values(layer, c, r) == value ? 1 : 0;
    return count;
}

TEST(DataSet, aFreshWindowHoldsNoData)
{
    const DataSet data;
    EXPECT_EQ(data.columns, 0);
    EXPECT_EQ(data.lines, 0);
    EXPECT_TRUE(data.labels.empty());
    EXPECT_TRUE(data.lullFlags.empty());
    EXPECT_FALSE(data.hasColumn(0));
    EXPECT_FALSE(data.hasRow(0));
}

TEST(DataSet, aFreshWindowHoldsTheDefaults)
{
    const DataSet data;
    EXPECT_EQ(data.blank, 99999);
    EXPECT_FALSE(data.zeroOut);
}

TEST(DataSet, aFileOfOneColumnAndOneRowHasOneCellInEachLayer)
{
    DataSet data;
    data.allocate(1, 1);
    data.values(kUnconverted, 0, 0) = 1.5;
    data.values(kBaseline, 0, 0) = 2.5;
    data.values(kConverted, 0, 0) = 3.5;
    EXPECT_EQ(data.values(kUnconverted, 0, 0), 1.5);
    EXPECT_EQ(data.values(kBaseline, 0, 0), 2.5);
    EXPECT_EQ(data.values(kConverted, 0, 0), 3.5);
    EXPECT_EQ(data.lullFlags.size(), 1U);
    EXPECT_FALSE(data.hasColumn(1));
    EXPECT_FALSE(data.hasRow(1));
}

TEST(DataSet, theLayersAreNumberedUnconvertedBaselineConverted)
{
    EXPECT_EQ(kUnconverted, 1);
    EXPECT_EQ(kBaseline, 2);
    EXPECT_EQ(kConverted, 3);
}

TEST(DataSet, allocationMakesEveryCell0AndEveryLullFlagFalse)
{
    DataSet data;
    data.allocate(4, 5);
    EXPECT_EQ(data.columns, 4);
    EXPECT_EQ(data.lines, 5);
    EXPECT_EQ(cellsHolding(data, 0.0), 3 * 4 * 5);
    EXPECT_EQ(data.lullFlags, std::vector<bool>(5, false));
}

TEST(DataSet, aSecondAllocationLeavesNothingOfTheEarlierFile)
{
    DataSet data = numberedCells(4, 5);
    data.lullFlags.assign(5, true);
    data.allocate(2, 3);
    EXPECT_EQ(cellsHolding(data, 0.0), 3 * 2 * 3);
    EXPECT_EQ(data.lullFlags, std::vector<bool>(3, false));
}

TEST(DataSet, everyCellHasItsOwnPlace)
{
    const DataSet data = numberedCells(4, 5);
    for (int layer = 1; layer <= kLayers; ++layer)
        for (std::int32_t c = 0; c < 4; ++c)
            for (std::int32_t r = 0; r < 5; ++r) EXPECT_EQ(data.values(layer, c, r), 100 * layer + 10 * c + r);
}

TEST(DataSet, theLayersOfACellAreNeighboursThenTheColumnsOfARow)
{
    const DataSet data = numberedCells(2, 2);
    const double* const cells = data.values.row(0);
    // Row 0: column 0 in layers 1 to 3, column 1 in layers 1 to 3; then row 1.
    const std::vector<double> inMemory(cells, cells + 12);
    EXPECT_EQ(inMemory, (std::vector<double>{100, 200, 300, 110, 210, 310, 101, 201, 301, 111, 211, 311}));
}

TEST(DataSet, aRowStartsOneStrideAfterTheRowBefore)
{
    const DataSet data = numberedCells(3, 2);
    EXPECT_EQ(data.values.rowStride(), 9);
    EXPECT_EQ(data.values.row(1) - data.values.row(0), 9);
    EXPECT_EQ(*data.values.row(1), 101);
}

TEST(DataSet, aColumnViewWalksTheRowsOfOneLayer)
{
    DataSet data = numberedCells(3, 4);
    const auto column = data.values.column(kBaseline, 2);
    for (std::int32_t r = 0; r < 4; ++r) EXPECT_EQ(column[r], 220 + r);
    column[1] = -1;
    EXPECT_EQ(data.values(kBaseline, 2, 1), -1);
    EXPECT_EQ(cellsHolding(data, -1), 1);
}

TEST(DataSet, aReadingThatEqualsBlankIsAMissingValue)
{
    DataSet data;
    EXPECT_TRUE(data.isBlank(99999));
    EXPECT_FALSE(data.isBlank(99999.0000001));
    EXPECT_FALSE(data.isBlank(0));
    data.blank = -1;
    EXPECT_TRUE(data.isBlank(-1));
    EXPECT_FALSE(data.isBlank(99999));
}

TEST(DataSet, aValueThatIsNotFiniteIsStoredAsBlank)
{
    DataSet data;
    data.blank = -9999;
    EXPECT_EQ(data.storable(std::numeric_limits<double>::infinity()), -9999);
    EXPECT_EQ(data.storable(-std::numeric_limits<double>::infinity()), -9999);
    EXPECT_EQ(data.storable(std::numeric_limits<double>::quiet_NaN()), -9999);
    EXPECT_EQ(data.storable(1e308), 1e308);
    EXPECT_EQ(data.storable(0.25), 0.25);
}

TEST(DataSet, columnsAndRowsOutsideTheDataAreKnownAsSuch)
{
    DataSet data;
    data.allocate(2, 3);
    EXPECT_TRUE(data.hasColumn(0));
    EXPECT_TRUE(data.hasColumn(1));
    EXPECT_FALSE(data.hasColumn(2));
    EXPECT_FALSE(data.hasColumn(-1));
    EXPECT_TRUE(data.hasRow(2));
    EXPECT_FALSE(data.hasRow(3));
    EXPECT_FALSE(data.hasRow(-1));
}

TEST(DataSet, anAllocationWithoutRowsIsEmpty)
{
    DataSet data = numberedCells(2, 2);
    data.allocate(3, 0);
    EXPECT_EQ(data.columns, 3);
    EXPECT_EQ(data.lines, 0);
    EXPECT_TRUE(data.lullFlags.empty());
}

TEST(DataSet, movingHandsTheCellsOver)
{
    DataSet from = numberedCells(2, 2);
    const double* const cells = from.values.row(0);
    DataSet to;
    to = std::move(from);
    EXPECT_EQ(to.values.row(0), cells);
    EXPECT_EQ(to.values(kConverted, 1, 1), 311);
}

#if !defined(__SANITIZE_ADDRESS__)
// The address sanitizer ends the program at such a request instead of refusing it.
TEST(DataSet, anAllocationThatIsRefusedChangesNothing)
{
    DataSet data = numberedCells(2, 2);
    // 32,767 columns of 400 million rows in three layers are 314 terabytes, more than the address space holds.
    EXPECT_THROW(data.allocate(32767, 400'000'000), std::bad_alloc);
    EXPECT_EQ(data.columns, 2);
    EXPECT_EQ(data.lines, 2);
    EXPECT_EQ(data.lullFlags.size(), 2U);
    EXPECT_EQ(data.values(kConverted, 1, 1), 311);
}
#endif

} // namespace
} // namespace tarvelint::test
