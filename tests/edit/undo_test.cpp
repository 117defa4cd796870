// SPDX-License-Identifier: MIT
#include "edit/undo.h"

#include "support/test_window.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace tarvelint::test {
namespace {

using Column = std::vector<double>;
using Calls = std::vector<std::string>;

/// Six columns of five rows; the cell of layer l, column c, row r holds 100 l + 10 c + r.
class UndoWindow : public TestWindow {
public:
    Undo undo{*this};

    UndoWindow()
    {
        record.allocate(6, 5);
        for (int layer = kUnconverted; layer <= kConverted; ++layer)
            for (std::int32_t c = 0; c < record.columns; ++c)
                for (std::int32_t r = 0; r < record.lines; ++r) record.values(layer, c, r) = 100 * layer + 10 * c + r;
    }
    void select(std::int32_t first, std::int32_t last)
    {
        view.selStart = first;
        view.selEnd = last;
    }
    void saveRows(std::int32_t column, std::int32_t first, std::int32_t last)
    {
        select(first, last);
        undo.undoSave(column);
    }
    /// Writes 0 into every cell of the record.
    void wipe()
    {
        for (int layer = kUnconverted; layer <= kConverted; ++layer)
            for (std::int32_t c = 0; c < record.columns; ++c)
                for (std::int32_t r = 0; r < record.lines; ++r) record.values(layer, c, r) = 0;
    }
    [[nodiscard]] bool offersUndo() const
    {
        return text(Control::mnuEditUndo) == "&Undo" && isEnabled(Control::mnuEditUndo);
    }
    [[nodiscard]] bool cantUndo() const
    {
        return text(Control::mnuEditUndo) == "Can't Undo" && !isEnabled(Control::mnuEditUndo);
    }
};

TEST(Undo, restoresAllThreeLayersOfTheSavedRows)
{
    UndoWindow window;
    window.saveRows(3, 1, 2);
    window.wipe();
    window.undo.mnuEditUndo_Click();
    EXPECT_EQ(window.column(kUnconverted, 3), (Column{0, 131, 132, 0, 0}));
    EXPECT_EQ(window.column(kBaseline, 3), (Column{0, 231, 232, 0, 0}));
    EXPECT_EQ(window.column(kConverted, 3), (Column{0, 331, 332, 0, 0}));
}

TEST(Undo, restoresTheColumnItWasTakenFromNotTheOneOnView)
{
    UndoWindow window;
    window.choose(3);
    window.saveRows(3, 0, 4);
    window.choose(5);
    window.wipe();
    window.undo.mnuEditUndo_Click();
    EXPECT_EQ(window.column(kUnconverted, 3), (Column{130, 131, 132, 133, 134}));
    EXPECT_EQ(window.column(kUnconverted, 5), Column(5, 0));
}

TEST(Undo, aSelectionOfOneRowRestoresThatRowOnly)
{
    UndoWindow window;
    window.saveRows(0, 2, 2);
    window.wipe();
    window.undo.mnuEditUndo_Click();
    EXPECT_EQ(window.column(kUnconverted, 0), (Column{0, 0, 102, 0, 0}));
}

TEST(Undo, theRestoredRowsBecomeTheSelection)
{
    UndoWindow window;
    window.saveRows(0, 1, 3);
    window.select(4, 4);
    window.undo.mnuEditUndo_Click();
    EXPECT_EQ(window.view.selStart, 1);
    EXPECT_EQ(window.view.selEnd, 3);
}

TEST(Undo, baselinePointsAndLullsAreNoPartOfIt)
{
    UndoWindow window;
    window.sensors.assign({0}, 5);
    window.sensors.setPoint(0, 1, true);
    window.saveRows(0, 0, 4);
    window.sensors.setPoint(0, 1, false);
    window.sensors.setPoint(0, 2, true);
    window.record.lullFlags[3] = true;
    window.undo.mnuEditUndo_Click();
    EXPECT_FALSE(window.sensors.isPoint(0, 1));
    EXPECT_TRUE(window.sensors.isPoint(0, 2));
    EXPECT_TRUE(window.record.lullFlags[3]);
}

TEST(Undo, aSaveReplacesTheEarlierCopyWhateverItsColumn)
{
    UndoWindow window;
    window.saveRows(1, 0, 4);
    window.saveRows(2, 4, 4);
    window.wipe();
    window.undo.mnuEditUndo_Click();
    EXPECT_EQ(window.column(kUnconverted, 1), Column(5, 0));
    EXPECT_EQ(window.column(kUnconverted, 2), (Column{0, 0, 0, 0, 124}));
}

TEST(Undo, theMenuEntryOffersWhatThereIs)
{
    UndoWindow window;
    window.saveRows(0, 0, 1);
    EXPECT_TRUE(window.offersUndo());
    window.undo.mnuEditUndo_Click();
    EXPECT_TRUE(window.cantUndo());
    window.saveRows(0, 0, 1);
    EXPECT_TRUE(window.offersUndo());
}

TEST(Undo, thereIsOneLevelOnly)
{
    UndoWindow window;
    window.saveRows(0, 0, 4);
    window.undo.mnuEditUndo_Click();
    window.wipe();
    window.calls.clear();
    window.undo.mnuEditUndo_Click();
    EXPECT_EQ(window.column(kUnconverted, 0), Column(5, 0));
    EXPECT_TRUE(window.calls.empty());
}

TEST(Undo, withoutACopyNothingHappens)
{
    UndoWindow window;
    window.select(1, 2);
    window.undo.mnuEditUndo_Click();
    EXPECT_EQ(window.view.selStart, 1);
    EXPECT_TRUE(window.record.saveCheck);
    EXPECT_TRUE(window.calls.empty());
}

TEST(Undo, undoingMarksTheChangeAndRedrawsBothAreas)
{
    UndoWindow window;
    window.saveRows(0, 0, 4);
    window.record.saveCheck = true;
    window.undo.mnuEditUndo_Click();
    EXPECT_FALSE(window.record.saveCheck);
    EXPECT_EQ(window.calls, (Calls{"redraw 0 True", "redraw 1 True", "updateCues"}));
}

/// Looks at the data when the plot is drawn again.
class DrawnWindow : public UndoWindow {
public:
    double drawn = 0;
    bool couldUndoWhenDrawn = false;
    void redraw(int index, bool clear) override
    {
        UndoWindow::redraw(index, clear);
        drawn = record.values(kUnconverted, 0, 0);
        couldUndoWhenDrawn = offersUndo();
    }
};

TEST(Undo, thePlotIsDrawnAfterTheRowsAreBackAndBeforeTheMenuEntryChanges)
{
    DrawnWindow window;
    window.saveRows(0, 0, 4);
    window.wipe();
    window.undo.mnuEditUndo_Click();
    EXPECT_EQ(window.drawn, 100);
    EXPECT_TRUE(window.couldUndoWhenDrawn);
}

TEST(Undo, takingACopyIsNoChange)
{
    UndoWindow window;
    window.saveRows(0, 0, 4);
    EXPECT_TRUE(window.record.saveCheck);
    EXPECT_TRUE(window.calls.empty());
}

TEST(Undo, anEmptySelectionOrNoColumnSavesNothingAndKeepsTheEarlierCopy)
{
    UndoWindow window;
    window.saveRows(1, 2, 2);
    window.saveRows(0, 3, 1);
    window.saveRows(-1, 0, 4);
    window.saveRows(6, 0, 4);
    window.wipe();
    window.undo.mnuEditUndo_Click();
    EXPECT_EQ(window.column(kUnconverted, 1), (Column{0, 0, 112, 0, 0}));
    EXPECT_EQ(window.column(kUnconverted, 0), Column(5, 0));
}

TEST(Undo, anEmptySelectionAloneOffersNoUndo)
{
    UndoWindow window;
    window.undo.forget();
    window.saveRows(0, 3, 1);
    EXPECT_TRUE(window.cantUndo());
}

TEST(Undo, rowsOutsideTheDataAreNotCopied)
{
    UndoWindow window;
    window.saveRows(0, -2, 9);
    window.wipe();
    window.undo.mnuEditUndo_Click();
    EXPECT_EQ(window.column(kUnconverted, 0), (Column{100, 101, 102, 103, 104}));
    EXPECT_EQ(window.view.selStart, 0);
    EXPECT_EQ(window.view.selEnd, 4);
}

TEST(Undo, aCopyOfRowsPastTheDataHasNoCellsAndUndoingItChangesNothing)
{
    UndoWindow window;
    window.saveRows(0, 5, 5);
    EXPECT_TRUE(window.offersUndo());
    window.select(4, 4);
    window.wipe();
    window.undo.mnuEditUndo_Click();
    EXPECT_EQ(window.column(kUnconverted, 0), Column(5, 0));
    EXPECT_EQ(window.view.selStart, 4);
    EXPECT_EQ(window.view.selEnd, 4);
    EXPECT_TRUE(window.record.saveCheck);
    EXPECT_TRUE(window.cantUndo());
}

TEST(Undo, anEmptyRecordHasNothingToSave)
{
    UndoWindow window;
    window.record.allocate(0, 0);
    window.saveRows(0, 0, 0);
    window.undo.mnuEditUndo_Click();
    EXPECT_TRUE(window.record.saveCheck);
}

TEST(Undo, aForgottenCopyIsNeverRestored)
{
    UndoWindow window;
    window.saveRows(0, 0, 4);
    window.undo.forget();
    EXPECT_TRUE(window.cantUndo());
    window.wipe();
    window.undo.mnuEditUndo_Click();
    EXPECT_EQ(window.column(kUnconverted, 0), Column(5, 0));
}

TEST(Undo, aCopyThatDoesNotFitTheRecordIsNotRestored)
{
    UndoWindow window;
    window.saveRows(5, 0, 4);
    window.record.allocate(6, 3);
    window.undo.mnuEditUndo_Click();
    EXPECT_EQ(window.column(kUnconverted, 5), Column(3, 0));

    window.saveRows(5, 0, 2);
    window.record.allocate(5, 3);
    window.undo.mnuEditUndo_Click();
    EXPECT_EQ(window.column(kUnconverted, 4), Column(3, 0));
}

TEST(Undo, whateverACommandWritesUndoBringsBackEveryCell)
{
    std::mt19937 random(3); // fixed: the same edits in every run
    for (int round = 0; round < 50; ++round) {
        UndoWindow window;
        const auto column = static_cast<std::int32_t>(random() % 6);
        const auto first = static_cast<std::int32_t>(random() % 5);
        const auto last = first + static_cast<std::int32_t>(random() % static_cast<unsigned>(5 - first));
        window.saveRows(column, first, last);
        for (std::int32_t r = first; r <= last; ++r)
            for (int layer = kUnconverted; layer <= kConverted; ++layer)
                window.record.values(layer, column, r) = static_cast<double>(random());
        window.undo.mnuEditUndo_Click();
        for (int layer = kUnconverted; layer <= kConverted; ++layer)
            for (std::int32_t c = 0; c < 6; ++c) EXPECT_EQ(window.column(layer, c), UndoWindow().column(layer, c));
    }
}

} // namespace
} // namespace tarvelint::test
