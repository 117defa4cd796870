// SPDX-License-Identifier: MIT
#include "equation/recalculation.h"

#include "support/test_window.h"
#include "window/breather.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <new>

namespace tarvelint::test {
namespace {

using testing::ElementsAre;
using Cells = std::vector<double>;

/// Three columns of three rows with readings 2 and baselines 3, 99999 (missing) and 5; converted 7; equation "X+B".
class Recalculated : public TestWindow {
public:
    Recalculation recalculation{*this};

    Recalculated()
    {
        setReadings({{2, 2, 2}, {2, 2, 2}, {2, 2, 2}});
        for (std::int32_t column = 0; column < 3; ++column)
            for (std::int32_t row = 0; row < 3; ++row) {
                record.values(kBaseline, column, row) = Cells{3, 99999, 5}[static_cast<std::size_t>(row)];
                record.values(kConverted, column, row) = 7;
            }
        record.labels = {"A", "B", "C"};
        choose(1);
        setChecked(Control::highBox, true);
        setText(Control::FormulaBox, "X+B");
    }
    void undoSave(std::int32_t column) override
    {
        TestWindow::undoSave(column);
        copied = {view.selStart, view.selEnd};
        if (copyFails) throw std::bad_alloc();
    }
    /// The pointer in the middle of a command.
    Pointer pointerDuring(const std::function<void()>& command)
    {
        Pointer during = Pointer::standard;
        setPointer(Pointer::cross);
        clock.step = Pacer::kPause; // events run after every row
        fakeUi.onPendingEvents = [&] { during = pointer(); };
        command();
        return during;
    }
    std::pair<std::int32_t, std::int32_t> copied;
    bool copyFails = false;
};

TEST(Recalculate, oneColumnWhereItHasABaseline)
{
    Recalculated window;
    window.recalculation.recalculate(1);
    EXPECT_EQ(window.column(kConverted, 1), (Cells{5, 7, 7})); // 2+3, kept, 2+5
    EXPECT_EQ(window.column(kConverted, 0), (Cells{7, 7, 7}));
}

TEST(Recalculate, oneColumnIsSelectedWholeAndCopiedForUndo)
{
    Recalculated window;
    window.view.selStart = 2;
    window.view.selEnd = 2;
    window.recalculation.recalculate(1);
    EXPECT_EQ(window.view.selStart, 0);
    EXPECT_EQ(window.view.selEnd, 2);
    EXPECT_THAT(window.calls, ElementsAre("undoSave 1"));
    EXPECT_EQ(window.copied, std::pair(0, 2)); // the rows that are about to change, not those selected before
}

TEST(Recalculate, withoutRoomForTheCopyNothingHasChanged)
{
    Recalculated window;
    window.copyFails = true;
    EXPECT_THROW(window.recalculation.recalculate(1), std::bad_alloc);
    EXPECT_TRUE(window.record.saveCheck);
    EXPECT_EQ(window.column(kConverted, 1), (Cells{7, 7, 7}));
}

TEST(Recalculate, allColumnsWithoutACopyAndWithoutTouchingTheSelection)
{
    Recalculated window;
    window.view.selStart = window.view.selEnd = 2;
    window.recalculation.recalculate(-1);
    for (std::int32_t column = 0; column < 3; ++column) EXPECT_EQ(window.column(kConverted, column), (Cells{5, 7, 7}));
    EXPECT_TRUE(window.calls.empty());
    EXPECT_EQ(window.view.selStart, 2);
}

TEST(Recalculate, allColumnsTakeParameterColumnsWithABaselineToo)
{
    Recalculated window;
    window.record.parameters = {false, false, true};
    window.recalculation.recalculate(-1);
    EXPECT_EQ(window.column(kConverted, 2), (Cells{5, 7, 7}));
}

TEST(Recalculate, endsAfterTheRowOfACancel)
{
    Recalculated window;
    window.record.values(kUnconverted, 1, 2) = 0;
    window.setText(Control::FormulaBox, "3+X/X");
    window.fakeUi.answers = {Answer::cancel};
    window.recalculation.recalculate(-1);
    EXPECT_EQ(window.column(kConverted, 0), (Cells{4, 7, 4}));
    EXPECT_EQ(window.column(kConverted, 1), (Cells{4, 7, 3}));
    EXPECT_EQ(window.column(kConverted, 2), (Cells{7, 7, 7}));
    EXPECT_NE(window.fakeUi.messages.at(0).text.find("Line is 2"), std::string::npos);
}

TEST(Recalculate, aCancelHoldsForAllColumnsWhateverIsAnsweredAfterIt)
{
    Recalculated window;
    window.setText(Control::FormulaBox, "(1/0)/5");
    window.fakeUi.answers = {Answer::cancel, Answer::ok};
    window.recalculation.recalculate(-1);
    EXPECT_EQ(window.column(kConverted, 0), (Cells{0, 7, 7}));
    EXPECT_EQ(window.column(kConverted, 1), (Cells{7, 7, 7}));
}

TEST(Recalculate, worksUnderTheHourglass)
{
    for (const std::int32_t column : {0, -1}) {
        Recalculated window;
        EXPECT_EQ(window.pointerDuring([&] { window.recalculation.recalculate(column); }), Pointer::hourglass);
        EXPECT_EQ(window.pointer(), Pointer::cross);
    }
}

TEST(Recalculate, aColumnThatIsNotThereChangesNothing)
{
    Recalculated window;
    window.recalculation.recalculate(3);
    EXPECT_TRUE(window.calls.empty());
    EXPECT_TRUE(window.record.saveCheck);
}

TEST(RecalculateEntries, currentRedrawsAndLeavesAnUnsavedChange)
{
    Recalculated window;
    window.recalculation.mnuToolsRecalculate_Click();
    EXPECT_THAT(window.calls, ElementsAre("undoSave 1", "redraw 0 True", "redraw 1 True", "updateCues"));
    EXPECT_FALSE(window.record.saveCheck);
    EXPECT_TRUE(window.isEnabled(Control::mnuFileSave));
}

TEST(RecalculateEntries, currentWithoutAColumnDoesNotMeanAll)
{
    Recalculated window;
    window.choose(-1);
    window.recalculation.mnuToolsRecalculate_Click();
    EXPECT_TRUE(window.calls.empty());
    EXPECT_EQ(window.column(kConverted, 0), (Cells{7, 7, 7}));
}

TEST(RecalculateEntries, allRedrawsAndLeavesAnUnsavedChange)
{
    Recalculated window;
    window.recalculation.mnuToolsRecalculateAll_Click();
    EXPECT_THAT(window.calls, ElementsAre("redraw 0 True", "redraw 1 True", "updateCues"));
    EXPECT_FALSE(window.record.saveCheck);
}

TEST(RecalculateEntries, selectionWorksUnderTheHourglass)
{
    Recalculated window;
    window.view.selEnd = 2;
    EXPECT_EQ(window.pointerDuring([&] { window.recalculation.mnuToolsRecalculateSelection_Click(); }),
              Pointer::hourglass);
    EXPECT_EQ(window.pointer(), Pointer::cross);
}

TEST(RecalculateEntries, selectionConvertsAsTheButtonDoesAndDrawsEachAreaOnce)
{
    Recalculated window;
    window.view.selEnd = 2;
    window.recalculation.mnuToolsRecalculateSelection_Click();
    EXPECT_THAT(window.calls, ElementsAre("undoSave 1", "skip False", "redraw 0 True", "redraw 1 True", "updateCues"));
    EXPECT_EQ(window.column(kBaseline, 1), (Cells{2, 2, 2}));
    EXPECT_EQ(window.column(kConverted, 1), (Cells{4, 4, 4}));
}

TEST(Recalculate, aColumnWithoutABaselineIsNoChange)
{
    Recalculated window;
    for (std::int32_t row = 0; row < 3; ++row) window.record.values(kBaseline, 1, row) = 99999;
    window.recalculation.mnuToolsRecalculate_Click();
    EXPECT_TRUE(window.record.saveCheck);
    for (std::int32_t column = 0; column < 3; ++column)
        for (std::int32_t row = 0; row < 3; ++row) window.record.values(kBaseline, column, row) = 99999;
    window.recalculation.mnuToolsRecalculateAll_Click();
    EXPECT_FALSE(window.record.saveCheck) << "all columns always are one";
}

} // namespace
} // namespace tarvelint::test
