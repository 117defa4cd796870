// SPDX-License-Identifier: MIT
#include "baseline/block_maxima.h"

#include "support/test_window.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tarvelint::test {
namespace {

using Column = std::vector<double>;

constexpr double blank = 99999;
constexpr double untouched = -7; ///< stands in the baseline and converted layers beforehand

/// One column on view, and the "Baseline" button.
class ButtonWindow : public TestWindow {
public:
    explicit ButtonWindow(const Column& readings)
    {
        setReadings({readings});
        for (std::int32_t r = 0; r < record.lines; ++r)
            record.values(kBaseline, 0, r) = record.values(kConverted, 0, r) = untouched;
        choose(0);
    }
    [[nodiscard]] Column baseline()
    {
        BlockMaxima(*this).baseButton_Click();
        return column(kBaseline, 0);
    }
};

TEST(BaseButton, aLineRunsFromTheFirstReadingToTheBlocksHighest)
{
    EXPECT_EQ(ButtonWindow({1, 2, 5, 2}).baseline(), (Column{1, 3, 5, untouched}));
}

TEST(BaseButton, ofEqualHighestReadingsTheFirstCounts)
{
    EXPECT_EQ(ButtonWindow({1, 5, 2, 5}).baseline(), (Column{1, 5, untouched, untouched}));
}

TEST(BaseButton, linesJoinTheHighestReadingsOfBlocksOf48Rows)
{
    Column readings(100, 1);
    readings[10] = 5;
    readings[60] = 7.5;
    readings[97] = 2;
    const Column baseline = ButtonWindow(readings).baseline();
    EXPECT_NEAR(baseline[5], 3, 1e-12);  // from 1 in row 0 to 5 in row 10: 0.4 a row
    EXPECT_EQ(baseline[10], 5);          // each line starts from the reading itself
    EXPECT_NEAR(baseline[30], 6, 1e-12); // from 5 in row 10 to 7.5 in row 60: 0.05 a row
    EXPECT_EQ(baseline[60], 7.5);
    EXPECT_NEAR(baseline[97], 2, 1e-12); // the short last block counts
    EXPECT_EQ(baseline[98], untouched);
    EXPECT_EQ(baseline[99], untouched);
}

TEST(BaseButton, row47EndsTheFirstBlockAndRow48BeginsTheSecond)
{
    Column readings(50, 1);
    readings[47] = 9;
    readings[48] = 8;
    const Column baseline = ButtonWindow(readings).baseline();
    EXPECT_EQ(baseline[47], 9);
    EXPECT_EQ(baseline[48], 8);
    EXPECT_EQ(baseline[49], untouched);
}

TEST(BaseButton, aLineIsSummedStepByStep)
{
    Column readings(11, 1);
    readings[10] = 2;
    double sum = 1;
    for (int i = 0; i < 10; ++i) sum = sum + 0.1;
    EXPECT_EQ(ButtonWindow(readings).baseline()[10], sum);
    EXPECT_GT(sum, 2);
}

TEST(BaseButton, theNextLineStartsFromTheReadingNotFromTheSum)
{
    Column readings(49, 1);
    readings[10] = 2;
    EXPECT_EQ(ButtonWindow(readings).baseline()[10], 2);
}

TEST(BaseButton, aHighestReadingInRow0AloneWritesThatRow)
{
    EXPECT_EQ(ButtonWindow({5, 1, 1}).baseline(), (Column{5, untouched, untouched}));
    EXPECT_EQ(ButtonWindow(Column{5}).baseline(), Column{5});
}

TEST(BaseButton, missingReadingsAreNoMaximumButLieUnderTheLine)
{
    EXPECT_EQ(ButtonWindow({1, blank, 5, blank}).baseline(), (Column{1, 3, 5, untouched}));
}

TEST(BaseButton, aMissingRow0StartsTheLineAtTheFirstMaximum)
{
    Column readings(50, 1);
    readings[0] = blank;
    readings[46] = 9;
    readings[49] = 3;
    const Column baseline = ButtonWindow(readings).baseline();
    EXPECT_EQ(baseline[45], untouched);
    EXPECT_EQ(baseline[46], 9);
    EXPECT_EQ(baseline[47], 7); // from 9 in row 46 to 3 in row 49
    EXPECT_EQ(baseline[48], 5);
    EXPECT_EQ(baseline[49], 3);
}

TEST(BaseButton, aMissingRow0AndOneMaximumWriteThatRow)
{
    EXPECT_EQ(ButtonWindow({blank, 2, 6, 3}).baseline(), (Column{untouched, untouched, 6, untouched}));
}

TEST(BaseButton, aBlockWithoutReadingsIsPassedOver)
{
    Column readings(97, blank);
    readings[0] = 4;
    readings[96] = 100;
    const Column baseline = ButtonWindow(readings).baseline(); // 1 a row over all three blocks
    EXPECT_EQ(baseline[48], 52);
    EXPECT_EQ(baseline[96], 100);
}

TEST(BaseButton, aColumnWithoutReadingsStaysAsItWas)
{
    EXPECT_EQ(ButtonWindow(Column(60, blank)).baseline(), Column(60, untouched));
}

TEST(BaseButton, negativeReadingsHaveAHighestToo)
{
    EXPECT_EQ(ButtonWindow({-5, -4, -3}).baseline(), (Column{-5, -4, -3}));
}

TEST(BaseButton, aLineThatOverflowsIsStoredAsMissing)
{
    EXPECT_EQ(ButtonWindow({-1e308, 0, 1e308}).baseline(), (Column{-1e308, blank, blank}));
}

TEST(BaseButton, onlyTheBaselineOfTheColumnOnViewChanges)
{
    TestWindow window;
    window.setReadings({{1, 2, 3}, {4, 5, 6}});
    window.choose(1);
    BlockMaxima(window).baseButton_Click();
    EXPECT_EQ(window.column(kBaseline, 1), (Column{4, 5, 6}));
    EXPECT_EQ(window.column(kUnconverted, 1), (Column{4, 5, 6}));
    EXPECT_EQ(window.column(kConverted, 1), Column(3, 0));
    EXPECT_EQ(window.column(kBaseline, 0), Column(3, 0));
}

/// Remembers what stood where when the undo copy was taken.
class UndoSeen : public ButtonWindow {
public:
    using ButtonWindow::ButtonWindow;
    Column baselineAtUndo;
    std::int32_t selStartAtUndo = -1;
    std::int32_t selEndAtUndo = -1;
    void undoSave(std::int32_t column0) override
    {
        TestWindow::undoSave(column0);
        baselineAtUndo = column(kBaseline, 0);
        selStartAtUndo = view.selStart;
        selEndAtUndo = view.selEnd;
    }
};

TEST(BaseButton, theWholeColumnIsSelectedAndCopiedForUndoFirst)
{
    UndoSeen window({1, 2, 3});
    window.view.selStart = window.view.selEnd = 1;
    BlockMaxima(window).baseButton_Click();
    EXPECT_EQ(window.baselineAtUndo, Column(3, untouched));
    EXPECT_EQ(window.selStartAtUndo, 0);
    EXPECT_EQ(window.selEndAtUndo, 2);
    EXPECT_EQ(window.calls, (std::vector<std::string>{"undoSave 0", "redraw 0 True", "redraw 1 True", "updateCues"}));
    EXPECT_FALSE(window.record.saveCheck);
}

TEST(BaseButton, theTimeSettingIsReadAndMeansNothing)
{
    ButtonWindow window({1, 2, 5, 2});
    window.settings.values["Time"] = "no number";
    EXPECT_EQ(window.baseline(), (Column{1, 3, 5, untouched}));
    EXPECT_EQ(window.settings.log, std::vector<std::string>{"read Time"});
}

TEST(BaseButton, nothingHappensWithoutAColumnOrARecord)
{
    ButtonWindow window({1, 2, 3});
    for (const std::int32_t none : {-1, 1}) {
        window.choose(none);
        EXPECT_EQ(window.baseline(), Column(3, untouched));
    }
    EXPECT_TRUE(window.calls.empty());
    EXPECT_TRUE(window.record.saveCheck);

    ButtonWindow empty(Column{});
    EXPECT_EQ(empty.baseline(), Column{});
    EXPECT_TRUE(empty.calls.empty());
}

TEST(BaseButton, onAColumnWithoutReadingsIsNoChange)
{
    ButtonWindow window({blank, blank});
    EXPECT_EQ(window.baseline(), (Column{untouched, untouched}));
    EXPECT_TRUE(window.record.saveCheck);
}

} // namespace
} // namespace tarvelint::test
