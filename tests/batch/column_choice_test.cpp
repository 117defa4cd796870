// SPDX-License-Identifier: MIT
#include "batch/column_choice.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tarvelint::test {
namespace {

const std::vector<std::string> kLabels{"Day", "Time", "PAR", "VPD", "S-1", "7", "S\xE9ve"};

std::vector<int> chosen(std::string_view list)
{
    const std::vector<bool> flags = chosenColumns(list, kLabels);
    EXPECT_EQ(flags.size(), kLabels.size());
    std::vector<int> columns1;
    for (std::size_t i = 0; i < flags.size(); ++i)
        if (flags[i]) columns1.push_back(static_cast<int>(i) + 1);
    return columns1;
}

TEST(ColumnChoice, numbersRangesAndLabelsMix)
{
    EXPECT_EQ(chosen("1-3,6,S-1"), (std::vector<int>{1, 2, 3, 5, 6}));
}

TEST(ColumnChoice, blanksAroundItemsAndEmptyItemsDoNotCount)
{
    EXPECT_EQ(chosen(" 2 , ,Day,"), (std::vector<int>{1, 2}));
    EXPECT_TRUE(chosen("").empty());
}

TEST(ColumnChoice, blanksAroundTheDashOfARangeDoNotCount)
{
    EXPECT_EQ(chosen("1 - 4"), (std::vector<int>{1, 2, 3, 4}));
}

TEST(ColumnChoice, aWholeNumberIsAColumnNumberEvenWhereALabelReadsTheSame)
{
    EXPECT_EQ(chosen("7"), (std::vector<int>{7})); // column 7, not column 6 labelled "7"
}

TEST(ColumnChoice, labelsAreComparedByteForByte)
{
    EXPECT_EQ(chosen("S\xE9ve"), (std::vector<int>{7}));
    EXPECT_THROW(static_cast<void>(chosenColumns("day", kLabels)), ColumnChoiceFault);
}

TEST(ColumnChoice, whatTheFileDoesNotHaveIsAFaultThatNamesIt)
{
    for (const char* list : {"8", "0", "1-8", "Moon", "3-1", "99999999999999999999"}) {
        try {
            static_cast<void>(chosenColumns(list, kLabels));
            ADD_FAILURE() << list << " was taken";
        } catch (const ColumnChoiceFault& fault) {
            EXPECT_NE(std::string(fault.what()).find("--parameters"), std::string::npos) << fault.what();
        }
    }
}

} // namespace
} // namespace tarvelint::test
