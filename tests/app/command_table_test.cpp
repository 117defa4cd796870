// SPDX-License-Identifier: MIT
#include "app/command_table.h"

#include "app/string_table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <iterator>
#include <map>
#include <optional>
#include <set>
#include <stdexcept>
#include <string>

namespace tarvelint::test {
namespace {

using Names = std::vector<std::string>;
using Kind = Command::Kind;

/// Names of the entries of one menu, separators left out.
Names entriesOf(const std::string& menu)
{
    Names names;
    bool inside = false;
    for (const Command& entry : commandTable()) {
        if (entry.kind == Kind::menu) inside = entry.name == menu;
        if (inside && entry.kind == Kind::entry) names.emplace_back(entry.name);
    }
    return names;
}

const Command& entryOf(Control control)
{
    const auto table = commandTable();
    const auto found = std::find_if(table.begin(), table.end(), [&](const Command& entry) {
        return entry.kind != Kind::separator && entry.control == control;
    });
    if (found == table.end()) throw std::logic_error("no such entry");
    return *found;
}

std::string shownCaption(Control control)
{
    const Command& entry = entryOf(control);
    ResControl form;
    std::vector<ResControl> controls{{ControlType::menu, "", entry.caption, "", {}}};
    loadResStrings(form, controls, StringTable());
    return controls.front().caption;
}

TEST(CommandTable, holdsEveryEntryInItsMenu)
{
    EXPECT_EQ(entriesOf("mnuFile"),
              (Names{"mnuFileNew", "mnuFileOpen", "mnuFileClose", "mnuFileSave", "mnuFileSaveAs", "mnuFileSaveAll",
                     "mnuFileProperties", "mnuFilePageSetup", "mnuFilePrintPreview", "mnuFilePrint", "mnuFileSend",
                     "mnuFileMRU", "mnuFileExit"}));
    EXPECT_EQ(entriesOf("mnuEdit"), (Names{"mnuEditUndo", "mnuEditCut", "mnuEditCopy", "mnuEditPaste",
                                           "mnuEditPasteSpecial", "mnuEditClear", "mnuEditSelectAll"}));
    EXPECT_EQ(entriesOf("mnuView"), (Names{"mnuViewToolbar", "mnuViewStatusBar", "mnuViewRefresh", "mnuViewLabels",
                                           "mnuViewZoomIn", "mnuViewZoomOut", "mnuViewWebBrowser"}));
    EXPECT_EQ(entriesOf("mnuTools"), (Names{"mnuToolsMode", "mnuToolsView", "mnuToolsConvert", "mnuToolsDelete",
                                            "mnuToolsBreak", "mnuToolsInterpolate", "mnuToolsRecalculateSelection",
                                            "mnuToolsRecalculate", "mnuToolsRecalculateAll", "mnuToolsOptions"}));
    EXPECT_EQ(entriesOf("mnuHelp"), (Names{"mnuHelpContents", "mnuHelpSearchForHelpOn", "mnuHelpAbout"}));
}

TEST(CommandTable, eachMenusSeparatorBearsItsName)
{
    std::string menu;
    std::set<std::string> separators;
    for (const Command& entry : commandTable()) {
        if (entry.kind == Kind::menu) menu = entry.name;
        if (entry.kind != Kind::separator) continue;
        EXPECT_EQ(entry.name, menu + "Bar");
        separators.insert(entry.name);
    }
    EXPECT_EQ(separators.size(), 5U);
}

TEST(CommandTable, noEntryStandsTwice)
{
    std::set<Control> seen;
    for (const Command& entry : commandTable())
        if (entry.kind != Kind::separator) {
            EXPECT_TRUE(seen.insert(entry.control).second) << entry.name;
        }
}

TEST(CommandTable, everyNumberedCaptionIsInTheStringTable)
{
    const StringTable table;
    for (const Command& entry : commandTable()) {
        const std::string caption = entry.caption;
        if (!caption.empty() && std::isdigit(static_cast<unsigned char>(caption.front())) != 0) {
            EXPECT_TRUE(table.find(std::stoi(caption))) << entry.name;
        }
    }
}

struct Shown {
    Control control;
    const char* caption;
};

/// What the user reads, menu by menu. The recent files' entry has no caption, and "Paste Special" has no number.
constexpr Shown kShown[] = {
    {Control::mnuFile, "&File"},
    {Control::mnuFileNew, "&New"},
    {Control::mnuFileOpen, "&Open..."},
    {Control::mnuFileClose, "&Close"},
    {Control::mnuFileSave, "&Save"},
    {Control::mnuFileSaveAs, "Save &As..."},
    {Control::mnuFileSaveAll, "Save A&ll"},
    {Control::mnuFileProperties, "Propert&ies"},
    {Control::mnuFilePageSetup, "Page Set&up..."},
    {Control::mnuFilePrintPreview, "Print Pre&view"},
    {Control::mnuFilePrint, "&Print..."},
    {Control::mnuFileSend, "Sen&d..."},
    {Control::mnuFileMRU, ""},
    {Control::mnuFileExit, "E&xit"},
    {Control::mnuEdit, "&Edit"},
    {Control::mnuEditUndo, "Can't Undo"}, // there is nothing to undo at first
    {Control::mnuEditCut, "Cu&t"},
    {Control::mnuEditCopy, "&Copy"},
    {Control::mnuEditPaste, "&Paste"},
    {Control::mnuEditPasteSpecial, "Paste &Special..."},
    {Control::mnuEditClear, "Clear"},
    {Control::mnuEditSelectAll, "Select &All"},
    {Control::mnuView, "&View"},
    {Control::mnuViewToolbar, "&Toolbar"},
    {Control::mnuViewStatusBar, "Status &Bar"},
    {Control::mnuViewRefresh, "&Refresh"},
    {Control::mnuViewLabels, "Settings..."},
    {Control::mnuViewZoomIn, "Zoom In    (+)"},
    {Control::mnuViewZoomOut, "Zoom Out  (-)"},
    {Control::mnuViewWebBrowser, "&Web Browser"},
    {Control::mnuTools, "&Tools"},
    {Control::mnuToolsMode, "&Mode Change"},
    {Control::mnuToolsView, "&View Change"},
    {Control::mnuToolsConvert, "&Convert"},
    {Control::mnuToolsDelete, "&Delete selection"},
    {Control::mnuToolsBreak, "Break One-click Baseline  (Esc)"},
    {Control::mnuToolsInterpolate, "&Interpolate"},
    {Control::mnuToolsRecalculateSelection, "&Recalculate Selection"},
    {Control::mnuToolsRecalculate, "Recalculate Current"},
    {Control::mnuToolsRecalculateAll, "Recalculate All"},
    {Control::mnuToolsOptions, "&Options..."},
    {Control::mnuHelp, "&Help"},
    {Control::mnuHelpContents, "&Contents"},
    {Control::mnuHelpSearchForHelpOn, "&Search For Help On..."},
    {Control::mnuHelpAbout, "&About "},
};

TEST(CommandTable, everyMenuAndEntryReadsAsTheStringTableSays)
{
    for (const auto& [control, caption] : kShown) EXPECT_EQ(shownCaption(control), caption);
    EXPECT_EQ(std::size(kShown), std::ranges::count_if(commandTable(), [](const Command& command) {
                  return command.kind != Kind::separator;
              }));
}

TEST(CommandTable, theUsualShortcutsAreThereAndEachOnce)
{
    EXPECT_STREQ(entryOf(Control::mnuFileNew).shortcut, "Ctrl+N");
    EXPECT_STREQ(entryOf(Control::mnuFileOpen).shortcut, "Ctrl+O");
    EXPECT_STREQ(entryOf(Control::mnuFileSave).shortcut, "Ctrl+S");
    EXPECT_STREQ(entryOf(Control::mnuEditUndo).shortcut, "Ctrl+Z");
    EXPECT_STREQ(entryOf(Control::mnuEditSelectAll).shortcut, "Ctrl+A");
    std::set<std::string> seen;
    for (const Command& entry : commandTable())
        if (*entry.shortcut != '\0') {
            EXPECT_TRUE(seen.insert(entry.shortcut).second) << entry.shortcut;
        }
}

TEST(CommandTable, onlyTheBarsHaveCheckMarks)
{
    for (const Command& entry : commandTable())
        EXPECT_EQ(entry.checkable,
                  entry.control == Control::mnuViewToolbar || entry.control == Control::mnuViewStatusBar)
            << entry.name;
}

TEST(ToolTable, holdsTheThirteenButtonsWithTheirTipsAndEntries)
{
    Names keys;
    const StringTable table;
    for (const ToolButton& button : toolTable()) {
        keys.emplace_back(button.key);
        EXPECT_EQ(table.find(std::stoi(button.toolTip)), button.key); // each tip repeats its button's key
    }
    EXPECT_EQ(keys, (Names{"New", "Open", "Save", "Print", "Cut", "Copy", "Paste", "Bold", "Italic", "Underline",
                           "Align Left", "Center", "Align Right"}));
}

TEST(ToolTable, buttonsStandForTheEntriesOfTheirNames)
{
    const std::map<std::string, Control> entries = {{"New", Control::mnuFileNew},    {"Open", Control::mnuFileOpen},
                                                    {"Save", Control::mnuFileSave},  {"Print", Control::mnuFilePrint},
                                                    {"Cut", Control::mnuEditCut},    {"Copy", Control::mnuEditCopy},
                                                    {"Paste", Control::mnuEditPaste}};
    for (const ToolButton& button : toolTable()) {
        const auto entry = entries.find(button.key);
        EXPECT_EQ(button.entry, entry == entries.end() ? std::nullopt : std::optional(entry->second)) << button.key;
    }
}

TEST(ControlTable, everyControlHasOneRowAndItsGivenName)
{
    std::map<Control, int> rows;
    std::set<std::string> names;
    for (const Command& command : commandTable())
        if (command.kind != Kind::separator) {
            ++rows[command.control];
            EXPECT_TRUE(names.insert(command.name).second) << command.name;
        }
    for (const ControlRow& row : controlTable()) {
        ++rows[row.control];
        EXPECT_TRUE(names.insert(row.name).second) << row.name;
        EXPECT_STRNE(row.spoken, "") << row.name;
    }
    for (int i = 0; i < static_cast<int>(Control::count); ++i) EXPECT_EQ(rows[static_cast<Control>(i)], 1) << i;
    EXPECT_EQ(names.size(), rows.size());
}

TEST(ControlTable, aControlIsFoundByWhatItIs)
{
    EXPECT_STREQ(controlRow(Control::varList1).name, "varList1");
    EXPECT_STREQ(controlRow(Control::eqButton).caption, "Equation:");
    EXPECT_STREQ(controlRow(Control::Picture1_0).spoken, "Main plot");
}

TEST(ControlTable, theCompanionPlotTheReferenceBoxUndoAndZoomNeedMoreThanARecord)
{
    EXPECT_THAT(controlsThatNeed(Needs::more),
                testing::UnorderedElementsAre(Control::mnuEditUndo, Control::mnuViewZoomIn, Control::mnuViewZoomOut,
                                              Control::Picture1_1, Control::refBox));
}

} // namespace
} // namespace tarvelint::test
