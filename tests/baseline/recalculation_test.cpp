// SPDX-License-Identifier: MIT
#include "baseline/recalculation.h"

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
class Record : public TestWindow {
public:
    Recalculation recalculation{*this};

    Record()
    {
        setReadings({{2, 2, 2}, {2, 2, 2}, {2, 2, 2}});
        for (std::int32_t column = 0; column < 3; ++column)
            for (std::int32_t row = 0; row < 3; ++row) {
                data.values(kBaseline, column, row) = Cells{3, 99999, 5}[static_cast<std::size_t>(row)];
                data.values(kConverted, column, row) = 7;
            }
        data.labels = {"A", "B", "C"};
        curCol = 1;
        setChecked(Control::highBox, true);
        setText(Control::FormulaBox, "X+B");
    }
    void undoSave(std::int32_t column) override
    {
        TestWindow::undoSave(column);
        copied = {selStart, selEnd};
        if (copyFails) throw std::bad_alloc();
    }
    /// The pointer in the middle of a command.
    Pointer pointerDuring(const std::function<void()>& command)
    {
        Pointer during = Pointer::standard;
        setPointer(Pointer::cross);
        clock.step = Breather::kPause; // events run after every row
        fakeUi.onPendingEvents = [&] { during = pointer; };
        command();
        return during;
    }
    void convButton_Click() override
    {
        TestWindow::convButton_Click();
        if (fakeUi.onPendingEvents) fakeUi.onPendingEvents();
    }
    std::pair<std::int32_t, std::int32_t> copied;
    bool copyFails = false;
    void markParameter(int column1)
    {
        labelFrm = std::make_unique<ColumnSetup>(*this);
        labelFrm->Form_Load();
        labelFrm->setCheckBox(column1, true);
        labelFrm->OKButton_Click();
        calls.clear();
        data.saveCheck = true;
    }
};

TEST(Recalculate, oneColumnWhereItHasABaseline)
{
    Record record;
    record.recalculation.recalculate(1);
    EXPECT_EQ(record.column(kConverted, 1), (Cells{5, 7, 7})); // 2+3, kept, 2+5
    EXPECT_EQ(record.column(kConverted, 0), (Cells{7, 7, 7}));
}

TEST(Recalculate, oneColumnIsSelectedWholeAndCopiedForUndo)
{
    Record record;
    record.selStart = 2;
    record.selEnd = 2;
    record.recalculation.recalculate(1);
    EXPECT_EQ(record.selStart, 0);
    EXPECT_EQ(record.selEnd, 2);
    EXPECT_THAT(record.calls, ElementsAre("undoSave 1"));
    EXPECT_EQ(record.copied, std::pair(0, 2)); // the rows that are about to change, not those selected before
}

TEST(Recalculate, withoutRoomForTheCopyNothingHasChanged)
{
    Record record;
    record.copyFails = true;
    EXPECT_THROW(record.recalculation.recalculate(1), std::bad_alloc);
    EXPECT_TRUE(record.data.saveCheck);
    EXPECT_EQ(record.column(kConverted, 1), (Cells{7, 7, 7}));
}

TEST(Recalculate, allColumnsWithoutACopyAndWithoutTouchingTheSelection)
{
    Record record;
    record.selStart = record.selEnd = 2;
    record.recalculation.recalculate(-1);
    for (std::int32_t column = 0; column < 3; ++column) EXPECT_EQ(record.column(kConverted, column), (Cells{5, 7, 7}));
    EXPECT_TRUE(record.calls.empty());
    EXPECT_EQ(record.selStart, 2);
}

TEST(Recalculate, allColumnsTakeParameterColumnsWithABaselineToo)
{
    Record record;
    record.markParameter(3);
    record.recalculation.recalculate(-1);
    EXPECT_EQ(record.column(kConverted, 2), (Cells{5, 7, 7}));
}

TEST(Recalculate, clearsTheStopFlagFirstAndEndsAfterTheRowOfACancel)
{
    Record record;
    record.stopFlag = true;
    record.data.values(kUnconverted, 1, 2) = 0;
    record.setText(Control::FormulaBox, "3+X/X");
    record.fakeUi.answers = {Answer::cancel};
    record.recalculation.recalculate(-1);
    EXPECT_EQ(record.column(kConverted, 0), (Cells{4, 7, 4}));
    EXPECT_EQ(record.column(kConverted, 1), (Cells{4, 7, 3}));
    EXPECT_EQ(record.column(kConverted, 2), (Cells{7, 7, 7}));
    EXPECT_NE(record.fakeUi.messages.at(0).text.find("Line is 2"), std::string::npos);
}

TEST(Recalculate, worksUnderTheHourglass)
{
    for (const std::int32_t column : {0, -1}) {
        Record record;
        EXPECT_EQ(record.pointerDuring([&] { record.recalculation.recalculate(column); }), Pointer::hourglass);
        EXPECT_EQ(record.pointer, Pointer::cross);
    }
}

TEST(Recalculate, aColumnThatIsNotThereChangesNothing)
{
    Record record;
    record.recalculation.recalculate(3);
    EXPECT_TRUE(record.calls.empty());
    EXPECT_TRUE(record.data.saveCheck);
}

TEST(RecalculateEntries, currentRedrawsAndLeavesAnUnsavedChange)
{
    Record record;
    record.recalculation.mnuToolsRecalculate_Click();
    EXPECT_THAT(record.calls, ElementsAre("undoSave 1", "redraw 0 True", "redraw 1 True", "updateCues"));
    EXPECT_FALSE(record.data.saveCheck);
    EXPECT_TRUE(record.isEnabled(Control::mnuFileSave));
}

TEST(RecalculateEntries, currentWithoutAColumnDoesNotMeanAll)
{
    Record record;
    record.curCol = -1;
    record.recalculation.mnuToolsRecalculate_Click();
    EXPECT_TRUE(record.calls.empty());
    EXPECT_EQ(record.column(kConverted, 0), (Cells{7, 7, 7}));
}

TEST(RecalculateEntries, allRedrawsAndLeavesAnUnsavedChange)
{
    Record record;
    record.recalculation.mnuToolsRecalculateAll_Click();
    EXPECT_THAT(record.calls, ElementsAre("redraw 0 True", "redraw 1 True", "updateCues"));
    EXPECT_FALSE(record.data.saveCheck);
}

TEST(RecalculateEntries, selectionWorksUnderTheHourglass)
{
    Record record;
    EXPECT_EQ(record.pointerDuring([&] { record.recalculation.mnuToolsRecalculateSelection_Click(); }),
              Pointer::hourglass);
    EXPECT_EQ(record.pointer, Pointer::cross);
}

TEST(RecalculateEntries, selectionConvertsAsTheButtonDoesAndRedraws)
{
    Record record;
    record.recalculation.mnuToolsRecalculateSelection_Click();
    EXPECT_THAT(record.calls, ElementsAre("convButton_Click", "redraw 0 True", "redraw 1 True", "updateCues"));
}

} // namespace
} // namespace tarvelint::test
