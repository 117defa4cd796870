// SPDX-License-Identifier: MIT
#include "baseline/points_window.h"

#include <gtest/gtest.h>

#include <vector>

namespace tarvelint::test {
namespace {

TEST(TurboCalc, theBaselineIsAStraightLineInRowIndex)
{
    PointsWindow window({10, 9, 9, 16});
    window.turboCalc(0, 0, 3);
    EXPECT_EQ(window.baseline(), (Column{10, 12, 14, 16})); // slope (16 - 10) / 3 = 2
}

TEST(TurboCalc, aReadingConvertsByItsRatioToTheBaseline)
{
    PointsWindow window({6, 3, 2, 6});
    window.turboCalc(0, 0, 3);
    EXPECT_EQ(window.converted()[1], 119);                // 119 x (6/3 - 1)^1.23 = 119 x 1
    EXPECT_NEAR(window.converted()[2], 279.1347, 0.0001); // 119 x 2^1.23 = 119 x 2 x 1.172835
}

TEST(TurboCalc, theUsersEquationIsNotAsked)
{
    PointsWindow window({6, 3, 6});
    window.setText(Control::FormulaBox, "X+B");
    window.turboCalc(0, 0, 2);
    EXPECT_EQ(window.converted()[1], 119);
}

TEST(TurboCalc, aReadingAtOrAboveTheBaselineConvertsToZero)
{
    PointsWindow window({6, 8, 6, 6});
    window.turboCalc(0, 0, 3);
    EXPECT_EQ(window.converted(), (Column{0, 0, 0, 0}));
}

TEST(TurboCalc, aReadingAtOrBelowZeroConvertsToMissingAndStillHasABaseline)
{
    PointsWindow window({6, 0, -1, 6});
    window.turboCalc(0, 0, 3);
    EXPECT_EQ(window.converted(), (Column{0, blank, blank, 0}));
    EXPECT_EQ(window.baseline(), (Column{6, 6, 6, 6}));
}

TEST(TurboCalc, aBaselineAtOrBelowZeroConvertsToMissing)
{
    PointsWindow window({2, 1, 1, 1, -2});
    window.turboCalc(0, 0, 4); // slope -1: baseline 2, 1, 0, -1, -2
    EXPECT_EQ(window.baseline(), (Column{2, 1, 0, -1, -2}));
    EXPECT_EQ(window.converted(), (Column{0, 0, blank, blank, blank}));
}

TEST(TurboCalc, aBlankRowShiftsTheRestOfItsSegmentByOneStep)
{
    PointsWindow window({10, blank, 12, 13});
    window.turboCalc(0, 0, 3);
    EXPECT_EQ(window.baseline(), (Column{10, untouched, 11, 12}));
    EXPECT_EQ(window.converted(), (Column{0, untouched, 0, 0}));
}

TEST(TurboCalc, missingIsWhateverNumberTheRecordUsesForIt)
{
    PointsWindow window({10, -1, blank, 13});
    window.record.blank = -1;
    window.turboCalc(0, 0, 3);
    EXPECT_EQ(window.baseline(), (Column{10, untouched, 11, 12}));
}

TEST(TurboCalc, aMissingEndLeavesTheWholeSegmentAsItWas)
{
    PointsWindow left({blank, 9, 10});
    left.turboCalc(0, 0, 2);
    EXPECT_TRUE(left.nothingHappened());

    PointsWindow right({10, 9, blank});
    right.turboCalc(0, 0, 2);
    EXPECT_TRUE(right.nothingHappened());
}

TEST(TurboCalc, theBaselineIsSummedStepByStep)
{
    PointsWindow window({1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 2});
    window.turboCalc(0, 0, 10); // slope 0.1, which has no exact binary form: the sum ends just above 2
    EXPECT_EQ(window.baseline()[10], tenTenthsFrom(1));
    EXPECT_GT(window.baseline()[10], 2);
    EXPECT_GT(window.converted()[10], 0);
}

TEST(TurboCalc, onlyTheSegmentsRowsOfItsColumnChange)
{
    PointsWindow window(std::vector<Column>{{1, 1, 1, 1, 1}, {9, 4, 4, 4, 9}, {1, 1, 1, 1, 1}});
    window.turboCalc(1, 1, 3);
    EXPECT_EQ(window.column(kBaseline, 1), (Column{untouched, 4, 4, 4, untouched}));
    EXPECT_EQ(window.column(kConverted, 1), (Column{untouched, 0, 0, 0, untouched}));
    EXPECT_EQ(window.column(kUnconverted, 1), (Column{9, 4, 4, 4, 9}));
    EXPECT_EQ(window.column(kBaseline, 0), Column(5, untouched));
    EXPECT_EQ(window.column(kConverted, 2), Column(5, untouched));
}

TEST(TurboCalc, whatIsNotFiniteIsStoredAsMissing)
{
    PointsWindow steep({1e308, 1, -1e308}); // the difference of the ends overflows
    steep.turboCalc(0, 0, 2);
    EXPECT_EQ(steep.baseline(), (Column{1e308, blank, blank}));
    EXPECT_EQ(steep.converted(), (Column{0, blank, blank}));

    PointsWindow tiny({1e300, 1e-300, 1e300}); // B / X overflows
    tiny.turboCalc(0, 0, 2);
    EXPECT_EQ(tiny.converted(), (Column{0, blank, 0}));
}

TEST(TurboCalc, aSegmentOfOneRowTakesItsOwnReading)
{
    PointsWindow window({4, 5, 6});
    window.turboCalc(0, 1, 1);
    EXPECT_EQ(window.baseline(), (Column{untouched, 5, untouched}));
    EXPECT_EQ(window.converted(), (Column{untouched, 0, untouched}));
}

TEST(TurboCalc, rowsAndColumnsOutsideTheDataAreNeverTouched)
{
    PointsWindow window({4, 5, 6});
    window.turboCalc(0, -1, 2);
    window.turboCalc(0, 0, 3);
    window.turboCalc(1, 0, 2);
    window.turboCalc(-1, 0, 2);
    window.turboCalc(0, 2, 0);
    EXPECT_TRUE(window.nothingHappened());
}

TEST(TurboCalc, leavesItToItsCallersToMarkTheChange)
{
    PointsWindow window({4, 5, 6});
    window.turboCalc(0, 0, 2);
    EXPECT_TRUE(window.record.saveCheck);
}

} // namespace
} // namespace tarvelint::test
