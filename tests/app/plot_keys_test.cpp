// SPDX-License-Identifier: MIT
#include "shell_window.h"

#include <gtest/gtest.h>

namespace tarvelint::test {
namespace {

using Rows = std::pair<std::int32_t, std::int32_t>;

/// 200 rows of Day, Time and S1 (10 and up) in a plot of 50 units; S1 on view, rows 60 to 70 selected.
struct Keyed : Shell {
    Keyed()
    {
        std::string text = "Day,Time,S1\n";
        for (int r = 0; r < 200; ++r) text += "180," + std::to_string(r) + "," + std::to_string(10 + r) + "\n";
        fakeUi.surfaces[0].width = 50;
        openText(text);
        window.record.parameters = {true, true, false};
        command([this] { window.lists.choose(0, 2); });
        window.setScrollValue(50);
        select(60, 70);
    }
    void select(std::int32_t first, std::int32_t last)
    {
        window.view.selStart = first;
        window.view.selEnd = last;
    }
    void key(KeyCode code)
    {
        command([this, code] { window.keys.Form_KeyDown(code); });
    }
    [[nodiscard]] Rows selected() const { return {window.view.selStart, window.view.selEnd}; }
    [[nodiscard]] double value(int layer, std::int32_t row) const { return window.record.values(layer, 2, row); }
};

TEST(KeyTable, arrowsMoveTheEndsOfTheSelection)
{
    Keyed keyed;
    keyed.key(KeyCode::left);
    EXPECT_EQ(keyed.selected(), Rows(60, 69));
    keyed.key(KeyCode::up);
    EXPECT_EQ(keyed.selected(), Rows(61, 69));
    keyed.key(KeyCode::right);
    EXPECT_EQ(keyed.selected(), Rows(61, 70));
    keyed.key(KeyCode::down);
    EXPECT_EQ(keyed.selected(), Rows(60, 70));
}

TEST(KeyTable, arrowsStopAtOneRowAndAtTheRecordsEnds)
{
    Keyed keyed;
    keyed.select(60, 60);
    keyed.key(KeyCode::left);
    keyed.key(KeyCode::up);
    EXPECT_EQ(keyed.selected(), Rows(60, 60));
    keyed.select(0, 199);
    keyed.key(KeyCode::right);
    keyed.key(KeyCode::down);
    EXPECT_EQ(keyed.selected(), Rows(0, 199));
}

TEST(KeyTable, theViewFollowsAnEndThatLeavesIt)
{
    Keyed keyed;
    keyed.select(50, 100);
    keyed.key(KeyCode::right); // 50 + 50 is below 101
    EXPECT_EQ(keyed.window.view.HScroll1.Value, 51);
    keyed.key(KeyCode::down);
    EXPECT_EQ(keyed.window.view.HScroll1.Value, 49);
}

TEST(KeyTable, spaceGoesToTheNextStretch)
{
    Keyed keyed;
    keyed.key(KeyCode::space);
    EXPECT_EQ(keyed.selected(), Rows(70, 80));
}

TEST(KeyTable, cAndF2Convert)
{
    for (const KeyCode code : {KeyCode::c, KeyCode::f2}) {
        Keyed keyed;
        keyed.key(code);
        EXPECT_EQ(keyed.value(kBaseline, 65), 75);
        EXPECT_EQ(keyed.selected(), Rows(70, 80));
    }
}

TEST(KeyTable, deleteAndDDelete)
{
    for (const KeyCode code : {KeyCode::deleteKey, KeyCode::d}) {
        Keyed keyed;
        keyed.key(code);
        EXPECT_EQ(keyed.value(kUnconverted, 65), 99999);
    }
}

TEST(KeyTable, iInterpolates)
{
    Keyed keyed;
    keyed.window.record.values(kUnconverted, 2, 65) = 0;
    keyed.key(KeyCode::i);
    EXPECT_EQ(keyed.value(kUnconverted, 65), 75);
}

TEST(KeyTable, mChangesTheModeAndEscapeBreaksAChain)
{
    Keyed keyed;
    keyed.window.view.lineMode = false;
    keyed.key(KeyCode::m);
    EXPECT_TRUE(keyed.window.view.lineMode);
    keyed.window.view.chainActive = true;
    keyed.key(KeyCode::escape);
    EXPECT_FALSE(keyed.window.view.chainActive);
}

TEST(KeyTable, vChangesTheView)
{
    Keyed keyed;
    keyed.key(KeyCode::v);
    EXPECT_EQ(keyed.window.view.curLayer, kConverted);
}

TEST(KeyTable, plusAndMinusZoomOnlyWhileTheirEntriesAreEnabled)
{
    Keyed keyed;
    keyed.key(KeyCode::plus);
    EXPECT_EQ(keyed.window.view.zoomFactor, 2);
    keyed.key(KeyCode::keypadPlus);
    EXPECT_EQ(keyed.window.view.zoomFactor, 4);
    keyed.key(KeyCode::keypadMinus);
    keyed.key(KeyCode::minus);
    EXPECT_EQ(keyed.window.view.zoomFactor, 1);
    keyed.window.setEnabled(Control::mnuViewZoomIn, false);
    keyed.key(KeyCode::keypadPlus);
    EXPECT_EQ(keyed.window.view.zoomFactor, 1);
}

TEST(KeyTable, aKeyWhoseEntryIsDisabledDoesNothing)
{
    Keyed keyed;
    for (const Control entry : {Control::mnuToolsConvert, Control::mnuToolsDelete, Control::mnuToolsInterpolate,
                                Control::mnuToolsMode, Control::viewButton})
        keyed.window.setEnabled(entry, false);
    const bool lineMode = keyed.window.view.lineMode;
    for (const KeyCode code :
         {KeyCode::c, KeyCode::f2, KeyCode::d, KeyCode::deleteKey, KeyCode::i, KeyCode::m, KeyCode::v})
        keyed.key(code);
    EXPECT_EQ(keyed.selected(), Rows(60, 70));
    EXPECT_EQ(keyed.value(kUnconverted, 65), 75);
    EXPECT_EQ(keyed.window.view.lineMode, lineMode);
    EXPECT_EQ(keyed.window.view.curLayer, kUnconverted);
}

TEST(KeyTable, withoutARecordDoesNothing)
{
    Shell shell;
    for (const KeyCode code : {KeyCode::space, KeyCode::left, KeyCode::right, KeyCode::up, KeyCode::down, KeyCode::m,
                               KeyCode::v, KeyCode::plus, KeyCode::minus, KeyCode::c, KeyCode::d})
        shell.command([&] { shell.window.keys.Form_KeyDown(code); });
    EXPECT_FALSE(shell.window.view.lineMode);
    EXPECT_EQ(shell.window.view.zoomFactor, 1);
    EXPECT_EQ(shell.window.view.selEnd, 0);
}

TEST(KeyTable, whileTheButtonIsHeldDoesNothing)
{
    Keyed keyed;
    keyed.window.view.isHeld = true;
    keyed.key(KeyCode::space);
    EXPECT_EQ(keyed.selected(), Rows(60, 70));
}

// ---- row cursor

TEST(RowCursor, beginsAtTheSelectionAndMovesByRowsOrTenthsOfAScreen)
{
    Keyed keyed;
    keyed.command([&] { keyed.window.keys.moveRowCursor(1); });
    EXPECT_EQ(keyed.window.view.rowCursor, 60);
    keyed.command([&] { keyed.window.keys.moveRowCursor(1); });
    EXPECT_EQ(keyed.window.view.rowCursor, 61);
    keyed.command([&] { keyed.window.keys.moveRowCursorFar(-1); });
    EXPECT_EQ(keyed.window.view.rowCursor, 56);
    EXPECT_EQ(keyed.window.text(Control::inLabel), "66.0000");
}

TEST(RowCursor, beginsAtTheFirstRowShownWhenTheSelectionIsOutOfView)
{
    Keyed keyed;
    keyed.select(5, 8);
    keyed.command([&] { keyed.window.keys.moveRowCursor(1); });
    EXPECT_EQ(keyed.window.view.rowCursor, 50);
}

TEST(RowCursor, takesTheViewAlongAndStopsAtTheRecordsEnds)
{
    Keyed keyed;
    keyed.command([&] { keyed.window.keys.moveRowCursor(1); });
    keyed.command([&] { keyed.window.keys.moveRowCursor(60); });
    EXPECT_EQ(keyed.window.view.rowCursor, 120);
    EXPECT_EQ(keyed.window.view.HScroll1.Value, 71); // row 120 is the last of 50
    keyed.command([&] { keyed.window.keys.moveRowCursor(-1000); });
    EXPECT_EQ(keyed.window.view.rowCursor, 0);
    EXPECT_EQ(keyed.window.view.HScroll1.Value, 0);
    keyed.command([&] { keyed.window.keys.moveRowCursor(1000); });
    EXPECT_EQ(keyed.window.view.rowCursor, 199);
}

TEST(RowCursor, isToldToAScreenReaderWithReadingDayAndTime)
{
    Keyed keyed;
    keyed.command([&] { keyed.window.keys.moveRowCursor(1); });
    EXPECT_EQ(keyed.window.text(Control::Picture1_0), "row 61, reading 70, day 180, time 60");
}

TEST(RowCursor, enterPressesThere)
{
    Keyed keyed;
    keyed.window.view.lineMode = false;
    keyed.command([&] { keyed.window.keys.moveRowCursor(1); });
    keyed.command([&] { keyed.window.keys.pressEnter(false); });
    EXPECT_EQ(keyed.selected(), Rows(60, 60));
    keyed.command([&] { keyed.window.keys.moveRowCursor(7); });
    keyed.command([&] { keyed.window.keys.pressEnter(true); });
    EXPECT_EQ(keyed.selected(), Rows(60, 67));
}

TEST(RowCursor, whatItDoesBringsItsRowBackIntoView)
{
    const auto scrolledAway = [](const auto& act) {
        Keyed keyed;
        keyed.command([&] { keyed.window.keys.moveRowCursor(1); });
        keyed.window.setScrollValue(140);
        keyed.fakeUi.typedValues.emplace_back(std::nullopt);
        keyed.command([&] { act(keyed.window.keys); });
        return std::pair(keyed.window.view.HScroll1.Value, keyed.window.view.pointerX);
    };
    const std::pair atRow60(60, 0.0F); // the first row shown
    EXPECT_EQ(scrolledAway([](PlotKeys& keys) { keys.pressEnter(false); }), atRow60);
    EXPECT_EQ(scrolledAway([](PlotKeys& keys) { keys.doubleClickHere(); }), atRow60);
    EXPECT_EQ(scrolledAway([](PlotKeys& keys) { keys.editValueHere(); }), atRow60);
}

TEST(RowCursor, laysABaselineClickByClick)
{
    Keyed keyed;
    keyed.window.view.lineMode = true;
    keyed.window.view.Sloppy = false;
    keyed.command([&] { keyed.window.keys.moveRowCursor(1); });
    keyed.command([&] { keyed.window.keys.pressEnter(false); });
    keyed.command([&] { keyed.window.keys.moveRowCursor(10); });
    keyed.command([&] { keyed.window.keys.pressEnter(false); });
    EXPECT_EQ(keyed.value(kBaseline, 60), 70);
    EXPECT_EQ(keyed.value(kBaseline, 70), 80);
    keyed.command([&] { keyed.window.keys.doubleClickHere(); });
    EXPECT_FALSE(keyed.window.view.chainActive);
    EXPECT_FALSE(keyed.window.view.isHeld);
}

TEST(RowCursor, theMenuKeyEditsTheValue)
{
    Keyed keyed;
    keyed.command([&] { keyed.window.keys.moveRowCursor(1); });
    keyed.fakeUi.typedValues.emplace_back("5");
    keyed.command([&] { keyed.window.keys.editValueHere(); });
    EXPECT_EQ(keyed.value(kUnconverted, 60), 5);
}

TEST(RowCursor, escapePutsAPointInHandBack)
{
    Keyed keyed;
    View& view = keyed.window.view;
    view.Turbo = true;
    keyed.window.sensors.assign({2}, 200);
    keyed.window.sensors.setPoint(0, 60, true);
    view.curSensor = 0;
    keyed.command([&] { keyed.window.keys.moveRowCursor(1); });
    keyed.command([&] { keyed.window.keys.pressEnter(false); });
    keyed.command([&] { keyed.window.keys.moveRowCursor(5); });
    EXPECT_EQ(view.dragRow, 65);
    keyed.key(KeyCode::escape);
    EXPECT_EQ(view.grabbedPoint, -1);
    EXPECT_TRUE(keyed.window.sensors.isPoint(0, 60));
}

TEST(RowCursor, withoutOneOrWithoutARecordNothingHappens)
{
    Keyed keyed;
    keyed.command([&] { keyed.window.keys.pressEnter(false); });
    keyed.command([&] { keyed.window.keys.doubleClickHere(); });
    keyed.command([&] { keyed.window.keys.editValueHere(); });
    EXPECT_EQ(keyed.selected(), Rows(60, 70));
    Shell empty;
    empty.command([&] { empty.window.keys.moveRowCursor(1); });
    EXPECT_EQ(empty.window.view.rowCursor, -1);
}

TEST(RowCursor, isGoneInANewRecord)
{
    Keyed keyed;
    keyed.command([&] { keyed.window.keys.moveRowCursor(1); });
    keyed.window.record.saveCheck = true;
    keyed.openText(kLoggerRecord);
    EXPECT_EQ(keyed.window.view.rowCursor, -1);
}

} // namespace
} // namespace tarvelint::test
