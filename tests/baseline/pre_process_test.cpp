// SPDX-License-Identifier: MIT
#include "baseline/zero_flow.h"

#include "support/test_window.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

namespace tarvelint::test {
namespace {

using Column = std::vector<double>;
using Rows = std::vector<std::int32_t>;

/// VPD (column 0) and PAR (column 1) of a record, one character a row: '-' both low, 'v' only VPD low, 'p' only PAR
/// low, '#' both high, 'V' VPD missing and PAR low, 'P' PAR missing and VPD low. Missing is -1, which is low.
class LullWindow : public TestWindow {
public:
    explicit LullWindow(const std::string& rows, std::int32_t minimum = 0)
    {
        record.blank = -1;
        Column vpd;
        Column par;
        for (const char row : rows) {
            vpd.push_back(row == 'V' ? -1 : row == '-' || row == 'v' || row == 'P' ? 0 : 9);
            par.push_back(row == 'P' ? -1 : row == '-' || row == 'p' || row == 'V' ? 0 : 9);
        }
        setReadings({vpd, par});
        conversionSettings.zeroFlow.vpdCol = 0;
        conversionSettings.zeroFlow.parCol = 1;
        conversionSettings.zeroFlow.lullTime = minimum;
    }
    [[nodiscard]] Rows flagged()
    {
        preProcess(record, conversionSettings.zeroFlow);
        Rows rows;
        for (std::int32_t r = 0; r < record.lines; ++r)
            if (record.lullFlags[static_cast<std::size_t>(r)]) rows.push_back(r);
        return rows;
    }
};

TEST(PreProcess, aLullIsFlaggedOnceItIsLongerThanTheMinimum)
{
    // Row 1 opens; counts 2 to 5 in rows 2 to 5; above 3 from row 4 on.
    EXPECT_EQ(LullWindow("#-----#####", 3).flagged(), (Rows{4, 5}));
}

TEST(PreProcess, withoutAMinimumEveryRowButTheFirstIsFlagged)
{
    EXPECT_EQ(LullWindow("#----##").flagged(), (Rows{2, 3, 4}));
}

TEST(PreProcess, oneLowConditionOpensARun)
{
    EXPECT_EQ(LullWindow("#v-##").flagged(), Rows{2});
    EXPECT_EQ(LullWindow("#p-##").flagged(), Rows{2});
}

TEST(PreProcess, aRowAtEitherLimitOpensARun)
{
    for (const std::int32_t column : {0, 1}) {
        LullWindow window("##-##");
        window.conversionSettings.zeroFlow.vpdLimit = window.conversionSettings.zeroFlow.parLimit = 0.5F;
        window.record.values(kUnconverted, column, 1) = 0.5; // the other one is high
        EXPECT_EQ(window.flagged(), Rows{2}) << "column " << column;
        LullWindow above("##-##");
        above.conversionSettings.zeroFlow.vpdLimit = above.conversionSettings.zeroFlow.parLimit = 0.5F;
        above.record.values(kUnconverted, column, 1) = 0.5625;
        EXPECT_EQ(above.flagged(), Rows{}) << "column " << column;
    }
}

TEST(PreProcess, goingOnNeedsBothConditions)
{
    EXPECT_EQ(LullWindow("#--v###").flagged(), Rows{2});
    EXPECT_EQ(LullWindow("#--p###").flagged(), Rows{2});
}

TEST(PreProcess, theRowThatBreaksARunIsNoStartItself)
{
    // Were row 1 a start, row 2 would be flagged.
    EXPECT_EQ(LullWindow("-v--###").flagged(), Rows{3});
}

TEST(PreProcess, aMissingReadingEndsARun)
{
    EXPECT_EQ(LullWindow("---V###").flagged(), (Rows{1, 2}));
    EXPECT_EQ(LullWindow("---P###").flagged(), (Rows{1, 2}));
}

TEST(PreProcess, aMissingReadingMayOpenARun)
{
    EXPECT_EQ(LullWindow("#V-##").flagged(), Rows{2});
}

TEST(PreProcess, limitsAre32BitsWide)
{
    LullWindow window("--");
    window.conversionSettings.zeroFlow.vpdLimit = 0.05F; // 0.0500000007...: 0.05 is within
    window.conversionSettings.zeroFlow.parLimit = 0.01F; // 0.0099999998...: 0.01 is not
    window.record.values(kUnconverted, 0, 1) = 0.05;
    EXPECT_EQ(window.flagged(), Rows{1});

    LullWindow par("--");
    par.conversionSettings.zeroFlow.parLimit = 0.01F;
    par.record.values(kUnconverted, 1, 1) = 0.01;
    EXPECT_EQ(par.flagged(), Rows{});
}

TEST(PreProcess, aRunMayReachTheLastRow)
{
    EXPECT_EQ(LullWindow("##---").flagged(), (Rows{3, 4}));
}

TEST(PreProcess, theSearchStopsWhereNoLullFitsAnyMore)
{
    // 10 rows, minimum 3: the search stops at row 10 - 3 - 1 = 6, though rows 6 to 9 would count to 4.
    EXPECT_EQ(LullWindow("######----", 3).flagged(), Rows{});
}

TEST(PreProcess, theRowBeforeTheStopIsStillTried)
{
    // Row 5 = 10 - 3 - 2 opens; counts 2 to 5 in rows 6 to 9.
    EXPECT_EQ(LullWindow("#####-----", 3).flagged(), (Rows{8, 9}));
}

TEST(PreProcess, aRunMayJumpOverTheStop)
{
    // 11 rows, minimum 3: the stop is row 7. Row 6 breaks the run, row 7 is reached from it and opens.
    EXPECT_EQ(LullWindow("#####-#----", 3).flagged(), Rows{10});
}

TEST(PreProcess, afterJumpingOverTheStopTheSearchEndsWithTheRecord)
{
    EXPECT_EQ(LullWindow("#####-######", 3).flagged(), Rows{});
}

TEST(PreProcess, anyMinimumLengthIsSafe)
{
    EXPECT_EQ(LullWindow("------", INT32_MAX).flagged(), Rows{});
    EXPECT_EQ(LullWindow("#--#--", -5).flagged(), (Rows{2, 5}));
    EXPECT_EQ(LullWindow("#--#--", INT32_MIN).flagged(), (Rows{2, 5}));
}

TEST(PreProcess, flagsOfAnEarlierRunStay)
{
    LullWindow window("####--");
    window.record.lullFlags[0] = true;
    EXPECT_EQ(window.flagged(), (Rows{0, 5}));
}

TEST(PreProcess, anEmptyRecordAndOneRowHaveNoLull)
{
    EXPECT_EQ(LullWindow("").flagged(), Rows{});
    EXPECT_EQ(LullWindow("-").flagged(), Rows{});
}

TEST(PreProcess, aColumnThatDoesNotExistFlagsNothing)
{
    for (const auto column : std::vector<std::int16_t>{-1, 2, 32767}) {
        LullWindow vpd("----");
        vpd.conversionSettings.zeroFlow.vpdCol = column;
        EXPECT_EQ(vpd.flagged(), Rows{});
        LullWindow par("----");
        par.conversionSettings.zeroFlow.parCol = column;
        EXPECT_EQ(par.flagged(), Rows{});
    }
}

} // namespace
} // namespace tarvelint::test
