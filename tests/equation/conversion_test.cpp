// SPDX-License-Identifier: MIT
#include "equation/conversion.h"

#include "data/numbers.h"
#include "support/test_window.h"
#include "window/breather.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

namespace tarvelint::test {
namespace {

using testing::ElementsAre;

/// A column of 40 readings on view, all 4 but for what a test sets; equation "X+B", selection rows 10 to 20.
class Column : public TestWindow {
public:
    Conversion conversion{*this};

    Column()
    {
        setReadings({std::vector<double>(40, 4), std::vector<double>(40, 1)});
        for (std::int32_t row = 0; row < 40; ++row) set(kConverted, row, 7);
        choose(0);
        setChecked(Control::highBox, true);
        setText(Control::FormulaBox, "X+B");
        select(10, 20);
        fakeUi.surfaces[0].width = 100;
        view.HScroll1.Max = 30;
    }
    void set(int layer, std::int32_t row, double value) { record.values(layer, 0, row) = value; }
    [[nodiscard]] double at(int layer, std::int32_t row) const { return record.values(layer, 0, row); }
    void select(std::int32_t start, std::int32_t end)
    {
        view.selStart = start;
        view.selEnd = end;
    }
    [[nodiscard]] std::pair<std::int32_t, std::int32_t> selection() const { return {view.selStart, view.selEnd}; }

    void undoSave(std::int32_t column) override
    {
        TestWindow::undoSave(column);
        pointerAtUndo = pointer();
        convertedAtUndo = at(kConverted, 10);
    }
    bool skip(bool draws) override
    {
        pointerAtSkip = pointer();
        focusedBeforeSkip = !fakeUi.focused.empty();
        return TestWindow::skip(draws);
    }
    Pointer pointerAtSkip = Pointer::standard;
    bool focusedBeforeSkip = false;
    Pointer pointerAtUndo = Pointer::standard;
    double convertedAtUndo = -1;
};

using Rows = std::pair<std::int32_t, std::int32_t>;

TEST(Convert, drawsAStraightBaselineBetweenTheEndReadingsAndConvertsEveryRow)
{
    Column column;
    column.set(kUnconverted, 10, 5);
    column.set(kUnconverted, 20, 3);
    column.conversion.convButton_Click();
    EXPECT_EQ(column.at(kBaseline, 10), 5);
    EXPECT_DOUBLE_EQ(column.at(kBaseline, 11), 4.8); // (5 - 3) / 10 a row
    EXPECT_DOUBLE_EQ(column.at(kBaseline, 20), 3);
    EXPECT_EQ(column.at(kConverted, 10), 10);
    EXPECT_DOUBLE_EQ(column.at(kConverted, 11), 8.8);
    EXPECT_EQ(column.at(kConverted, 9), 7);
    EXPECT_EQ(column.at(kConverted, 21), 7);
}

TEST(Convert, sumsTheBaselineStepByStep)
{
    Column column;
    column.set(kUnconverted, 10, 1);
    column.set(kUnconverted, 20, 0.3);
    column.conversion.convButton_Click();
    double v = 1;
    for (int i = 0; i < 10; ++i) v = v - (1 - 0.3) / 10;
    EXPECT_EQ(column.at(kBaseline, 20), v);
}

TEST(Convert, copiesForUndoUnderTheHourglassBeforeItChangesAnything)
{
    Column column;
    column.setPointer(Pointer::cross);
    column.conversion.convButton_Click();
    EXPECT_EQ(column.pointerAtUndo, Pointer::hourglass);
    EXPECT_EQ(column.convertedAtUndo, 7);
    EXPECT_THAT(column.calls, ElementsAre("undoSave 0", "skip True"));
    EXPECT_EQ(column.pointer(), Pointer::cross);
    EXPECT_EQ(column.fakeUi.focused, std::vector{Control::Picture1_0});
    EXPECT_FALSE(column.record.saveCheck);
    EXPECT_TRUE(column.isEnabled(Control::mnuFileSave));
}

TEST(Convert, movesTheSelectionOnStillUnderTheHourglass)
{
    Column column;
    column.setPointer(Pointer::cross);
    column.conversion.convButton_Click();
    EXPECT_EQ(column.pointerAtSkip, Pointer::hourglass);
    EXPECT_FALSE(column.focusedBeforeSkip) << "the plot takes the keys when all is done";
}

TEST(Convert, inOneClickModeTheSelectionStaysAndIsShown)
{
    Column column;
    column.view.lineMode = true;
    column.conversion.convButton_Click();
    EXPECT_THAT(column.calls, ElementsAre("undoSave 0", "redraw 0 True", "redraw 1 True", "updateCues"));
    EXPECT_EQ(column.selection(), Rows(10, 20));
}

TEST(Convert, atTheRecordsEndShowsTheNewValuesItself)
{
    Column column;
    column.skips = false;
    column.conversion.convButton_Click();
    EXPECT_THAT(column.calls, ElementsAre("undoSave 0", "skip True", "redraw 0 True", "redraw 1 True", "updateCues"));
}

TEST(Convert, leavesTheShowingToACommandThatAsksForThat)
{
    Column column;
    column.conversion.convertSelection(false);
    EXPECT_THAT(column.calls, ElementsAre("undoSave 0", "skip False"));
    Column atTheEnd;
    atTheEnd.skips = false;
    atTheEnd.conversion.convertSelection(false);
    EXPECT_THAT(atTheEnd.calls, ElementsAre("undoSave 0", "skip False"));
    Column gaps;
    for (std::int32_t row = 10; row <= 20; ++row) gaps.set(kUnconverted, row, 99999);
    gaps.conversion.convertSelection(false);
    EXPECT_TRUE(gaps.calls.empty());
}

TEST(Convert, trimsMissingReadingsOffBothEndsForGood)
{
    Column column;
    for (const std::int32_t row : {10, 11, 20}) column.set(kUnconverted, row, 99999);
    column.conversion.convButton_Click();
    EXPECT_EQ(column.selection(), Rows(12, 19));
    EXPECT_EQ(column.at(kConverted, 11), 7);
    EXPECT_EQ(column.at(kConverted, 12), 8);
    EXPECT_EQ(column.at(kConverted, 20), 7);
}

TEST(Convert, aSelectionThatIsAllMissingIsTrimmedToNothingAndShownSo)
{
    Column column;
    for (std::int32_t row = 10; row <= 20; ++row) column.set(kUnconverted, row, 99999);
    column.conversion.convButton_Click();
    EXPECT_THAT(column.calls, ElementsAre("redraw 0 True", "redraw 1 True", "updateCues"));
    EXPECT_EQ(column.selection(), Rows(20, 20));
    EXPECT_TRUE(column.record.saveCheck);
}

TEST(Convert, ignoresWhatIsNoSpanOfTheRecord)
{
    for (const Rows& rows : {Rows(10, 10), Rows(20, 10), Rows(-1, 10), Rows(10, 40)}) {
        Column column;
        column.select(rows.first, rows.second);
        column.conversion.convButton_Click();
        EXPECT_TRUE(column.calls.empty()) << rows.first;
        EXPECT_TRUE(column.record.saveCheck);
    }
    Column none;
    none.choose(-1);
    none.conversion.convButton_Click();
    EXPECT_TRUE(none.calls.empty());
}

TEST(Convert, aGapInsideGetsABaselineAndConvertsAsTheClipSays)
{
    Column column; // high baseline: 99999 is clipped to B = 4
    column.set(kUnconverted, 15, 99999);
    column.conversion.convButton_Click();
    EXPECT_EQ(column.at(kBaseline, 15), 4);
    EXPECT_EQ(column.at(kConverted, 15), 8);
    Column low;
    low.setChecked(Control::highBox, false);
    low.set(kUnconverted, 15, 99999);
    low.conversion.convButton_Click();
    EXPECT_EQ(low.at(kConverted, 15), 99999);
}

TEST(Convert, cancelEndsAfterItsRowAndTheRemainingStepsStillRun)
{
    Column column;
    column.set(kUnconverted, 15, 0); // X/X divides by zero there; every other row gives 1
    column.setText(Control::FormulaBox, "3+X/X");
    column.fakeUi.answers = {Answer::cancel};
    column.conversion.convButton_Click();
    EXPECT_NE(column.fakeUi.messages.at(0).text.find("Line is 15"), std::string::npos);
    EXPECT_EQ(column.at(kConverted, 14), 4);
    EXPECT_EQ(column.at(kConverted, 15), 3); // built from a zero
    EXPECT_EQ(column.at(kBaseline, 15), 4);
    EXPECT_EQ(column.at(kConverted, 16), 7);
    EXPECT_EQ(column.at(kBaseline, 16), 0);
    EXPECT_THAT(column.calls, ElementsAre("undoSave 0", "skip True"));
    EXPECT_EQ(column.fakeUi.focused, std::vector{Control::Picture1_0});
}

TEST(Convert, afterACancelTheNextConversionBeginsAnew)
{
    Column column;
    column.setText(Control::FormulaBox, "1/0");
    column.fakeUi.answers = {Answer::cancel};
    column.conversion.convButton_Click();
    column.setText(Control::FormulaBox, "X+B");
    column.conversion.convButton_Click();
    EXPECT_EQ(column.at(kConverted, 11), 8);
}

TEST(Convert, readsTheEquationAgainForEveryRow)
{
    Column column;
    column.clock.step = Pacer::kPause; // events run after every row
    int rows = 0;
    column.fakeUi.onPendingEvents = [&] {
        if (++rows == 3) column.setText(Control::FormulaBox, "X*B");
    };
    column.conversion.convButton_Click();
    EXPECT_EQ(column.at(kConverted, 12), 8);
    EXPECT_EQ(column.at(kConverted, 13), 16);
}

TEST(Convert, aValueThatIsNotFiniteIsMissing)
{
    Column column;
    column.setText(Control::FormulaBox, "X^1E9");
    column.conversion.convButton_Click();
    EXPECT_EQ(column.at(kConverted, 10), 99999);
}

TEST(Convert, aBaselineThatOverflowsIsMissing)
{
    Column column;
    column.setChecked(Control::highBox, false);
    column.select(10, 12);
    column.set(kUnconverted, 10, 1.5e308);
    column.set(kUnconverted, 12, -1.5e308); // their difference is too large for a number
    column.conversion.convButton_Click();
    EXPECT_EQ(column.at(kBaseline, 10), 1.5e308);
    EXPECT_EQ(column.at(kBaseline, 11), 99999);
    EXPECT_EQ(column.at(kConverted, 11), 99999); // the reading below it is raised to it
}

TEST(Convert, brokenOffByItsWindowsClosingLeavesAnUnsavedChangeAndItsCopy)
{
    Column column;
    column.clock.step = Pacer::kPause;
    column.fakeUi.onPendingEvents = [] { throw std::runtime_error("closing"); };
    column.setPointer(Pointer::cross);
    EXPECT_THROW(column.conversion.convButton_Click(), std::runtime_error);
    EXPECT_EQ(column.pointer(), Pointer::cross);
    EXPECT_EQ(column.at(kConverted, 10), 8);
    EXPECT_EQ(column.at(kConverted, 11), 7);
    EXPECT_FALSE(column.record.saveCheck);
    EXPECT_THAT(column.calls, ElementsAre("undoSave 0"));
}

TEST(ConvertEntry, convertsASensorColumnAndBeepsOnAParameter)
{
    Column column;
    column.conversion.mnuToolsConvert_Click();
    EXPECT_THAT(column.calls, ElementsAre("undoSave 0", "skip True"));
    column.calls.clear();
    column.record.parameters = {true, false};
    column.conversion.mnuToolsConvert_Click();
    EXPECT_TRUE(column.calls.empty());
    EXPECT_EQ(column.fakeUi.beeps, 1);
}

} // namespace
} // namespace tarvelint::test
