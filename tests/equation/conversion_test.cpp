// SPDX-License-Identifier: MIT
#include "equation/conversion.h"

#include "data/numbers.h"
#include "support/test_window.h"
#include "window/breather.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

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
        curCol = 0;
        setChecked(Control::highBox, true);
        setText(Control::FormulaBox, "X+B");
        select(10, 20);
        fakeUi.surfaces[0].width = 100;
        HScroll1.Max = 30;
    }
    void set(int layer, std::int32_t row, double value) { data.values(layer, 0, row) = value; }
    [[nodiscard]] double at(int layer, std::int32_t row) const { return data.values(layer, 0, row); }
    void select(std::int32_t start, std::int32_t end)
    {
        selStart = start;
        selEnd = end;
    }
    [[nodiscard]] std::pair<std::int32_t, std::int32_t> selection() const { return {selStart, selEnd}; }

    void undoSave(std::int32_t column) override
    {
        TestWindow::undoSave(column);
        pointerAtUndo = pointer;
        convertedAtUndo = at(kConverted, 10);
    }
    void skip() override
    {
        pointerAtSkip = pointer;
        focusedBeforeSkip = !fakeUi.focused.empty();
        skips ? conversion.skip() : TestWindow::skip();
    }
    bool skips = false;
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
    EXPECT_THAT(column.calls, ElementsAre("undoSave 0", "skip"));
    EXPECT_EQ(column.pointer, Pointer::cross);
    EXPECT_EQ(column.fakeUi.focused, std::vector{Control::Picture1_0});
    EXPECT_FALSE(column.data.saveCheck);
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

TEST(Convert, inOneClickModeTheSelectionStaysAndNothingIsRedrawn)
{
    Column column;
    column.lineMode = true;
    column.conversion.convButton_Click();
    EXPECT_THAT(column.calls, ElementsAre("undoSave 0"));
    EXPECT_EQ(column.selection(), Rows(10, 20));
}

TEST(Convert, movesTheSelectionOneSpanOn)
{
    Column column;
    column.skips = true;
    column.conversion.convButton_Click();
    EXPECT_EQ(column.selection(), Rows(20, 30));
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

TEST(Convert, aSelectionThatIsAllMissingIsTrimmedToNothingAndIgnored)
{
    Column column;
    for (std::int32_t row = 10; row <= 20; ++row) column.set(kUnconverted, row, 99999);
    column.conversion.convButton_Click();
    EXPECT_TRUE(column.calls.empty());
    EXPECT_EQ(column.selection(), Rows(20, 20));
    EXPECT_TRUE(column.data.saveCheck);
}

TEST(Convert, ignoresWhatIsNoSpanOfTheRecord)
{
    for (const Rows& rows : {Rows(10, 10), Rows(20, 10), Rows(-1, 10), Rows(10, 40)}) {
        Column column;
        column.select(rows.first, rows.second);
        column.conversion.convButton_Click();
        EXPECT_TRUE(column.calls.empty()) << rows.first;
        EXPECT_TRUE(column.data.saveCheck);
    }
    Column none;
    none.curCol = -1;
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
    EXPECT_THAT(column.calls, ElementsAre("undoSave 0", "skip"));
    EXPECT_EQ(column.fakeUi.focused, std::vector{Control::Picture1_0});
    EXPECT_TRUE(column.stopFlag);
}

TEST(Convert, clearsTheStopFlagFirst)
{
    Column column;
    column.stopFlag = true;
    column.conversion.convButton_Click();
    EXPECT_EQ(column.at(kConverted, 10), 8);
}

TEST(Convert, readsTheEquationAgainForEveryRow)
{
    Column column;
    column.clock.step = Breather::kPause; // events run after every row
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
    column.clock.step = Breather::kPause;
    column.fakeUi.onPendingEvents = [] { throw CommandFailure("closing"); };
    EXPECT_THROW(column.conversion.convButton_Click(), CommandFailure);
    EXPECT_EQ(column.at(kConverted, 10), 8);
    EXPECT_EQ(column.at(kConverted, 11), 7);
    EXPECT_FALSE(column.data.saveCheck);
    EXPECT_THAT(column.calls, ElementsAre("undoSave 0"));
}

TEST(ConvertEntry, convertsASensorColumnAndBeepsOnAParameter)
{
    Column column;
    column.data.labels = {"A", "B"};
    column.labelFrm = std::make_unique<ColumnSetup>(column);
    column.labelFrm->Form_Load();
    column.conversion.mnuToolsConvert_Click();
    EXPECT_THAT(column.calls, ElementsAre("convButton_Click"));
    column.calls.clear();
    column.labelFrm->setCheckBox(1, true);
    column.labelFrm->OKButton_Click();
    column.calls.clear();
    column.conversion.mnuToolsConvert_Click();
    EXPECT_TRUE(column.calls.empty());
    EXPECT_EQ(column.fakeUi.beeps, 1);
}

TEST(Skip, sharesTheBoundaryRowAndEndsAtTheLast)
{
    Column column;
    column.conversion.skip();
    EXPECT_EQ(column.selection(), Rows(20, 30));
    column.conversion.skip();
    EXPECT_EQ(column.selection(), Rows(30, 39)); // 40 would be past the last row
    column.calls.clear();
    column.conversion.skip();
    EXPECT_EQ(column.selection(), Rows(30, 39));
    EXPECT_TRUE(column.calls.empty());
}

TEST(Skip, redrawsBothPlotsTheCompanionOverItselfWhileTheEndIsInView)
{
    Column column;
    column.conversion.skip();
    EXPECT_THAT(column.calls, ElementsAre("redraw 0 True", "redraw 1 False", "updateCues"));
}

TEST(Skip, scrollsWhenTheNewEndLiesBeyondTheView)
{
    Column column;
    column.fakeUi.surfaces[0].width = 12;
    column.conversion.skip();
    EXPECT_EQ(column.HScroll1.Value, 18); // 30 - 12
    EXPECT_THAT(column.calls, ElementsAre("HScroll1_Change", "updateCues"));
}

TEST(Skip, anEndAtTheEdgeOfTheViewIsInView)
{
    Column column;
    column.fakeUi.surfaces[0].width = 30;
    column.conversion.skip(); // to rows 20 to 30
    EXPECT_EQ(column.HScroll1.Value, 0);
    column.fakeUi.surfaces[0].width = 29;
    column.select(10, 20);
    column.conversion.skip();
    EXPECT_EQ(column.HScroll1.Value, 1);
}

TEST(Skip, aWidthWithAFractionScrollsToTheNearestRowHalvesToEven)
{
    Column column;
    column.fakeUi.surfaces[0].width = 12.5;
    column.conversion.skip();
    EXPECT_EQ(column.HScroll1.Value, 18); // 17.5
    column.HScroll1.Value = 0;
    column.fakeUi.surfaces[0].width = 13.5;
    column.select(10, 20);
    column.conversion.skip();
    EXPECT_EQ(column.HScroll1.Value, 16); // 16.5
}

TEST(Skip, aPlaceTooFarFor16BitsIsRaisedOutsideLongRecords)
{
    Column column;
    column.setReadings({std::vector<double>(70000, 4)});
    column.HScroll1.Max = 69000;
    column.select(30000, 40000);
    EXPECT_THROW(column.conversion.skip(), NumericOverflow);
}

TEST(Skip, redrawsWhenTheBarCannotFollow)
{
    Column column;
    column.fakeUi.surfaces[0].width = 12;
    column.HScroll1.Max = 0;
    column.conversion.skip();
    EXPECT_THAT(column.calls, ElementsAre("redraw 0 True", "redraw 1 False", "updateCues"));
}

TEST(Skip, followsLongRecords)
{
    Column column;
    column.setReadings({std::vector<double>(70000, 4)});
    column.longRecord = true;
    column.HScroll1.Max = 69000;
    column.select(30000, 50000);
    column.conversion.skip();
    EXPECT_EQ(column.selection(), Rows(50000, 69999));
    EXPECT_EQ(column.HScroll1.Value, 69000); // 69899 wanted, the bar's end taken
}

TEST(Skip, leavesAnEmptySelectionAlone)
{
    Column column;
    column.select(20, 10);
    column.conversion.skip();
    EXPECT_EQ(column.selection(), Rows(20, 10));
    EXPECT_TRUE(column.calls.empty());
}

} // namespace
} // namespace tarvelint::test
