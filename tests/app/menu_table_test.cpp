// SPDX-License-Identifier: MIT
#include "app/menu_table.h"

#include "app/string_table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <set>
#include <stdexcept>
#include <string>

namespace tarvelint::test {
namespace {

using Names = std::vector<std::string>;
using Kind = MenuEntry::Kind;

/// Names of the entries of one menu, separators left out.
Names entriesOf(const std::string& menu)
{
    Names names;
    bool inside = false;
    for (const MenuEntry& entry : menuTable()) {
        if (entry.kind == Kind::menu) inside = entry.name == menu;
        if (inside && entry.kind == Kind::entry) names.emplace_back(entry.name);
    }
    return names;
}

const MenuEntry& entryOf(Control control)
{
    const auto table = menuTable();
    const auto found = std::find_if(table.begin(), table.end(), [&](const MenuEntry& entry) {
        return entry.kind != Kind::separator && entry.control == control;
    });
    if (found == table.end()) throw std::logic_error("no such entry");
    return *found;
}

std::string shownCaption(Control control)
{
    const MenuEntry& entry = entryOf(control);
    ResControl form;
    std::vector<ResControl> controls{{"Menu", "", entry.caption, "", {}}};
    loadResStrings(form, controls, StringTable());
    return controls.front().caption;
}

TEST(MenuTable, holdsEveryEntryInItsMenu)
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

TEST(MenuTable, eachMenusSeparatorBearsItsName)
{
    std::string menu;
    std::set<std::string> separators;
    for (const MenuEntry& entry : menuTable()) {
        if (entry.kind == Kind::menu) menu = entry.name;
        if (entry.kind != Kind::separator) continue;
        EXPECT_EQ(entry.name, menu + "Bar");
        separators.insert(entry.name);
    }
    EXPECT_EQ(separators.size(), 5U);
}

TEST(MenuTable, noEntryStandsTwice)
{
    std::set<Control> seen;
    for (const MenuEntry& entry : menuTable())
        if (entry.kind != Kind::separator) {
            EXPECT_TRUE(seen.insert(entry.control).second) << entry.name;
        }
}

TEST(MenuTable, everyNumberedCaptionIsInTheStringTable)
{
    const StringTable table;
    for (const MenuEntry& entry : menuTable()) {
        const std::string caption = entry.caption;
        if (!caption.empty() && std::isdigit(static_cast<unsigned char>(caption.front())) != 0) {
            EXPECT_TRUE(table.find(std::stoi(caption))) << entry.name;
        }
    }
}

TEST(MenuTable, captionsAreThoseOfTheStringTable)
{
    EXPECT_EQ(shownCaption(Control::mnuFile), "&File");
    EXPECT_EQ(shownCaption(Control::mnuFileExit), "E&xit");
    EXPECT_EQ(shownCaption(Control::mnuEditUndo), "Can't Undo"); // there is nothing to undo at first
    EXPECT_EQ(shownCaption(Control::mnuEditSelectAll), "Select &All");
    EXPECT_EQ(shownCaption(Control::mnuView), "&View");
    EXPECT_EQ(shownCaption(Control::mnuViewLabels), "Settings...");
    EXPECT_EQ(shownCaption(Control::mnuViewZoomIn), "Zoom In    (+)");
    EXPECT_EQ(shownCaption(Control::mnuTools), "&Tools");
    EXPECT_EQ(shownCaption(Control::mnuToolsView), "&View Change");
    EXPECT_EQ(shownCaption(Control::mnuToolsBreak), "Break One-click Baseline  (Esc)");
    EXPECT_EQ(shownCaption(Control::mnuToolsRecalculateSelection), "&Recalculate Selection");
    EXPECT_EQ(shownCaption(Control::mnuHelpAbout), "&About ");
}

TEST(MenuTable, theUsualShortcutsAreThereAndEachOnce)
{
    EXPECT_STREQ(entryOf(Control::mnuFileNew).shortcut, "Ctrl+N");
    EXPECT_STREQ(entryOf(Control::mnuFileOpen).shortcut, "Ctrl+O");
    EXPECT_STREQ(entryOf(Control::mnuFileSave).shortcut, "Ctrl+S");
    EXPECT_STREQ(entryOf(Control::mnuEditUndo).shortcut, "Ctrl+Z");
    EXPECT_STREQ(entryOf(Control::mnuEditSelectAll).shortcut, "Ctrl+A");
    std::set<std::string> seen;
    for (const MenuEntry& entry : menuTable())
        if (*entry.shortcut != '\0') {
            EXPECT_TRUE(seen.insert(entry.shortcut).second) << entry.shortcut;
        }
}

TEST(MenuTable, onlyTheBarsHaveCheckMarks)
{
    for (const MenuEntry& entry : menuTable())
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
    const std::vector<std::pair<std::string, Control>> entries = {
        {"New", Control::mnuFileNew},     {"Open", Control::mnuFileOpen}, {"Save", Control::mnuFileSave},
        {"Print", Control::mnuFilePrint}, {"Cut", Control::mnuEditCut},   {"Copy", Control::mnuEditCopy},
        {"Paste", Control::mnuEditPaste}};
    std::size_t next = 0;
    for (const ToolButton& button : toolTable()) {
        EXPECT_EQ(button.standsForEntry, next < entries.size()) << button.key;
        if (!button.standsForEntry) continue;
        EXPECT_EQ(button.key, entries[next].first);
        EXPECT_EQ(button.entry, entries[next].second);
        ++next;
    }
}

} // namespace
} // namespace tarvelint::test
