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
                data.values(kBaseline, column, row) = Cells{3, 99999, 5}[static_cast<std::size_t>(row)];
                data.values(kConverted, column, row) = 7;
            }
        data.labels = {"A", "B", "C"};
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
    Recalculated record;
    record.recalculation.recalculate(1);
    EXPECT_EQ(record.column(kConverted, 1), (Cells{5, 7, 7})); // 2+3, kept, 2+5
    EXPECT_EQ(record.column(kConverted, 0), (Cells{7, 7, 7}));
}

TEST(Recalculate, oneColumnIsSelectedWholeAndCopiedForUndo)
{
    Recalculated record;
    record.view.selStart = 2;
    record.view.selEnd = 2;
    record.recalculation.recalculate(1);
    EXPECT_EQ(record.view.selStart, 0);
    EXPECT_EQ(record.view.selEnd, 2);
    EXPECT_THAT(record.calls, ElementsAre("undoSave 1"));
    EXPECT_EQ(record.copied, std::pair(0, 2)); // the rows that are about to change, not those selected before
}

TEST(Recalculate, withoutRoomForTheCopyNothingHasChanged)
{
    Recalculated record;
    record.copyFails = true;
    EXPECT_THROW(record.recalculation.recalculate(1), std::bad_alloc);
    EXPECT_TRUE(record.data.saveCheck);
    EXPECT_EQ(record.column(kConverted, 1), (Cells{7, 7, 7}));
}

TEST(Recalculate, allColumnsWithoutACopyAndWithoutTouchingTheSelection)
{
    Recalculated record;
    record.view.selStart = record.view.selEnd = 2;
    record.recalculation.recalculate(-1);
    for (std::int32_t column = 0; column < 3; ++column) EXPECT_EQ(record.column(kConverted, column), (Cells{5, 7, 7}));
    EXPECT_TRUE(record.calls.empty());
    EXPECT_EQ(record.view.selStart, 2);
}

TEST(Recalculate, allColumnsTakeParameterColumnsWithABaselineToo)
{
    Recalculated record;
    record.data.parameters = {false, false, true};
    record.recalculation.recalculate(-1);
    EXPECT_EQ(record.column(kConverted, 2), (Cells{5, 7, 7}));
}

TEST(Recalculate, endsAfterTheRowOfACancel)
{
    Recalculated record;
    record.data.values(kUnconverted, 1, 2) = 0;
    record.setText(Control::FormulaBox, "3+X/X");
    record.fakeUi.answers = {Answer::cancel};
    record.recalculation.recalculate(-1);
    EXPECT_EQ(record.column(kConverted, 0), (Cells{4, 7, 4}));
    EXPECT_EQ(record.column(kConverted, 1), (Cells{4, 7, 3}));
    EXPECT_EQ(record.column(kConverted, 2), (Cells{7, 7, 7}));
    EXPECT_NE(record.fakeUi.messages.at(0).text.find("Line is 2"), std::string::npos);
}

TEST(Recalculate, aCancelHoldsForAllColumnsWhateverIsAnsweredAfterIt)
{
    Recalculated record;
    record.setText(Control::FormulaBox, "(1/0)/5");
    record.fakeUi.answers = {Answer::cancel, Answer::ok};
    record.recalculation.recalculate(-1);
    EXPECT_EQ(record.column(kConverted, 0), (Cells{0, 7, 7}));
    EXPECT_EQ(record.column(kConverted, 1), (Cells{7, 7, 7}));
}

TEST(Recalculate, worksUnderTheHourglass)
{
    for (const std::int32_t column : {0, -1}) {
        Recalculated record;
        EXPECT_EQ(record.pointerDuring([&] { record.recalculation.recalculate(column); }), Pointer::hourglass);
        EXPECT_EQ(record.pointer(), Pointer::cross);
    }
}

TEST(Recalculate, aColumnThatIsNotThereChangesNothing)
{
    Recalculated record;
    record.recalculation.recalculate(3);
    EXPECT_TRUE(record.calls.empty());
    EXPECT_TRUE(record.data.saveCheck);
}

TEST(RecalculateEntries, currentRedrawsAndLeavesAnUnsavedChange)
{
    Recalculated record;
    record.recalculation.mnuToolsRecalculate_Click();
    EXPECT_THAT(record.calls, ElementsAre("undoSave 1", "redraw 0 True", "redraw 1 True", "updateCues"));
    EXPECT_FALSE(record.data.saveCheck);
    EXPECT_TRUE(record.isEnabled(Control::mnuFileSave));
}

TEST(RecalculateEntries, currentWithoutAColumnDoesNotMeanAll)
{
    Recalculated record;
    record.choose(-1);
    record.recalculation.mnuToolsRecalculate_Click();
    EXPECT_TRUE(record.calls.empty());
    EXPECT_EQ(record.column(kConverted, 0), (Cells{7, 7, 7}));
}

TEST(RecalculateEntries, allRedrawsAndLeavesAnUnsavedChange)
{
    Recalculated record;
    record.recalculation.mnuToolsRecalculateAll_Click();
    EXPECT_THAT(record.calls, ElementsAre("redraw 0 True", "redraw 1 True", "updateCues"));
    EXPECT_FALSE(record.data.saveCheck);
}

TEST(RecalculateEntries, selectionWorksUnderTheHourglass)
{
    Recalculated record;
    record.view.selEnd = 2;
    EXPECT_EQ(record.pointerDuring([&] { record.recalculation.mnuToolsRecalculateSelection_Click(); }),
              Pointer::hourglass);
    EXPECT_EQ(record.pointer(), Pointer::cross);
}

TEST(RecalculateEntries, selectionConvertsAsTheButtonDoesAndDrawsEachAreaOnce)
{
    Recalculated record;
    record.view.selEnd = 2;
    record.recalculation.mnuToolsRecalculateSelection_Click();
    EXPECT_THAT(record.calls, ElementsAre("undoSave 1", "skip False", "redraw 0 True", "redraw 1 True", "updateCues"));
    EXPECT_EQ(record.column(kBaseline, 1), (Cells{2, 2, 2}));
    EXPECT_EQ(record.column(kConverted, 1), (Cells{4, 4, 4}));
}

TEST(Recalculate, aColumnWithoutABaselineIsNoChange)
{
    Recalculated record;
    for (std::int32_t row = 0; row < 3; ++row) record.data.values(kBaseline, 1, row) = 99999;
    record.recalculation.mnuToolsRecalculate_Click();
    EXPECT_TRUE(record.data.saveCheck);
    for (std::int32_t column = 0; column < 3; ++column)
        for (std::int32_t row = 0; row < 3; ++row) record.data.values(kBaseline, column, row) = 99999;
    record.recalculation.mnuToolsRecalculateAll_Click();
    EXPECT_FALSE(record.data.saveCheck) << "all columns always are one";
}

} // namespace
} // namespace tarvelint::test
