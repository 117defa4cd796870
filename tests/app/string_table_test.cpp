// SPDX-License-Identifier: MIT
#include "app/string_table.h"

#include "app/shell_window.h"

#include <gtest/gtest.h>

#include <iterator>
#include <sstream>
#include <string_view>
#include <utility>

namespace tarvelint::test {
namespace {

/// The control of that type after `loadResStrings` with the program's own table.
ResControl loaded(ResControl control)
{
    ResControl form{ControlType::form, "", "", "", {}};
    std::vector controls{std::move(control)};
    loadResStrings(form, controls, StringTable());
    return controls.front();
}

std::string captionOf(ControlType type, const std::string& tag, const std::string& caption)
{
    return loaded({type, tag, caption, "", {}}).caption;
}

constexpr std::pair<int, std::string_view> kTexts[] = {{1000, "&File"},
                                                       {1001, "&New"},
                                                       {1002, "&Open..."},
                                                       {1003, "&Close"},
                                                       {1004, "&Save"},
                                                       {1005, "Save &As..."},
                                                       {1006, "Save A&ll"},
                                                       {1007, "Propert&ies"},
                                                       {1008, "Page Set&up..."},
                                                       {1009, "Print Pre&view"},
                                                       {1010, "&Print..."},
                                                       {1011, "Sen&d..."},
                                                       {1012, "E&xit"},
                                                       {1013, "&Edit"},
                                                       {1014, "&Undo"},
                                                       {1015, "Cu&t"},
                                                       {1016, "&Copy"},
                                                       {1017, "&Paste"},
                                                       {1018, "Clear"},
                                                       {1019, "&View"},
                                                       {1020, "&Toolbar"},
                                                       {1021, "Status &Bar"},
                                                       {1022, "&Refresh"},
                                                       {1023, "&Options..."},
                                                       {1024, "&Web Browser"},
                                                       {1025, "&Help"},
                                                       {1026, "&Contents"},
                                                       {1027, "&Search For Help On..."},
                                                       {1028, "&About "},
                                                       {1029, "New"},
                                                       {1030, "Open"},
                                                       {1031, "Save"},
                                                       {1032, "Print"},
                                                       {1033, "Cut"},
                                                       {1034, "Copy"},
                                                       {1035, "Paste"},
                                                       {1036, "Bold"},
                                                       {1037, "Italic"},
                                                       {1038, "Underline"},
                                                       {1039, "Align Left"},
                                                       {1040, "Center"},
                                                       {1041, "Align Right"},
                                                       {1044, "Fair Use Policy:"},
                                                       {1045, "Version"},
                                                       {1048, "Product"},
                                                       {1050, "Options"},
                                                       {1051, "Sample 1"},
                                                       {1052, "Sample 2"},
                                                       {1053, "Sample 3"},
                                                       {1054, "Sample 4"},
                                                       {1055, "&Apply"},
                                                       {1056, "Cancel"},
                                                       {1057, "OK"},
                                                       {1058, "About..."},
                                                       {1059, "&System Info..."},
                                                       {1060, "OK"},
                                                       {1062, "Version"},
                                                       {1063, "Application Title"},
                                                       {1064, "Converts Granier sensor readings to sapflow data."},
                                                       {1065, "&Tools"},
                                                       {1066, "&Mode Change"},
                                                       {1067, "&View Change"},
                                                       {1068, "&Convert"},
                                                       {1069, "Recalculate Current"},
                                                       {1070, "Recalculate All"},
                                                       {1690, "Select &All"},
                                                       {10141, "Can't Undo"},
                                                       {10221, "Settings..."},
                                                       {10222, "Zoom In    (+)"},
                                                       {10223, "Zoom Out  (-)"},
                                                       {10441, "Contacts:"},
                                                       {10671, "&Interpolate"},
                                                       {10672, "Break One-click Baseline  (Esc)"},
                                                       {10673, "&Delete selection"},
                                                       {10681, "&Recalculate Selection"}};

TEST(StringTable, holdsEveryNumberedText)
{
    const StringTable table;
    int found = 0;
    for (int number = 0; number <= 20000; ++number) found += table.find(number).has_value() ? 1 : 0;
    EXPECT_EQ(found, static_cast<int>(std::size(kTexts)));
    for (const auto& [number, text] : kTexts) EXPECT_EQ(table.find(number), text) << number;
}

TEST(StringTable, callsUndoAsTheCommandItselfDoes)
{
    Shell shell;
    shell.openText("1,2\n3,4\n");
    EXPECT_EQ(shell.window.text(Control::mnuEditUndo), StringTable().find(10141));
    shell.window.undoSave(0);
    EXPECT_EQ(shell.window.text(Control::mnuEditUndo), StringTable().find(1014));
}

TEST(StringTable, leavesTheAboutBoxsOwnTextsToTheOrganisation)
{
    const StringTable table;
    for (const int number : {1042, 1043, 1046, 1047, 1049}) EXPECT_FALSE(table.find(number)) << number;
}

TEST(StringTableTexts, ofTheOrganisationAreAddedByNumber)
{
    StringTable table;
    std::istringstream lines("# contacts\n1042=A line\r\n\n1049=first\\nsecond\\n\\nfourth=4\n 1046 =x\n1047=");
    table.addTexts(lines);
    EXPECT_EQ(table.find(1042), "A line");
    EXPECT_EQ(table.find(1049), "first\nsecond\n\nfourth=4");
    EXPECT_EQ(table.find(1046), "x");
    EXPECT_EQ(table.find(1047), "");
}

TEST(StringTableTexts, aLineThatIsNoTextIsPassedOver)
{
    StringTable table;
    std::istringstream lines("no number=x\n1042\n=y\n99999999999=too large\n1e400=z\n1043=kept\n");
    table.addTexts(lines);
    EXPECT_FALSE(table.find(1042));
    EXPECT_EQ(table.find(1043), "kept");
}

TEST(LoadResStrings, aMenuEntryDesignedAs1065ShowsTools)
{
    EXPECT_EQ(captionOf(ControlType::menu, "", "1065"), "&Tools");
}

TEST(LoadResStrings, aMenuEntryGoesByItsCaptionNotItsTag)
{
    EXPECT_EQ(captionOf(ControlType::menu, "1000", "Paste &Special..."), "Paste &Special...");
}

TEST(LoadResStrings, aLabelGoesByItsTag)
{
    EXPECT_EQ(captionOf(ControlType::label, "1044", "1000"), "Fair Use Policy:");
}

TEST(LoadResStrings, theFormGoesByItsTag)
{
    ResControl form{ControlType::form, "1063", "designed", "", {}};
    std::vector<ResControl> none;
    loadResStrings(form, none, StringTable());
    EXPECT_EQ(form.caption, "Application Title");
}

TEST(LoadResStrings, aToolBarsButtonsTakeTheirTips)
{
    using enum ControlType;
    const auto bar = loaded({toolbar, "", "", "", {{other, "", "", "1029", {}}, {other, "", "", "Bold it", {}}}});
    EXPECT_EQ(bar.parts[0].toolTip, "New");
    EXPECT_EQ(bar.parts[1].toolTip, "Bold it");
}

TEST(LoadResStrings, tabsTakeCaptionAndTipAndColumnHeadersTheirText)
{
    const auto tabs = loaded({ControlType::tabStrip, "", "", "", {{ControlType::other, "1050", "tab", "1055", {}}}});
    EXPECT_EQ(tabs.parts[0].caption, "Options");
    EXPECT_EQ(tabs.parts[0].toolTip, "&Apply");
    const auto list = loaded({ControlType::listView, "", "", "", {{ControlType::other, "1051", "header", "", {}}}});
    EXPECT_EQ(list.parts[0].caption, "Sample 1");
}

TEST(LoadResStrings, anyOtherControlTakesCaptionAndTipByTheirLeadingNumbers)
{
    const auto button = loaded({ControlType::other, "1057 left one", "designed", "1056", {}});
    EXPECT_EQ(button.caption, "OK");
    EXPECT_EQ(button.toolTip, "Cancel");
    EXPECT_EQ(captionOf(ControlType::other, "1000.5", "designed"), "&File"); // a half goes to the even 1000
}

TEST(LoadResStrings, anEmptyOrZeroOrNegativeTagKeepsTheCaption)
{
    for (const ControlType type : {ControlType::label, ControlType::other})
        for (const std::string tag : {"", "0", "-5", "words"}) EXPECT_EQ(captionOf(type, tag, "designed"), "designed");
}

TEST(LoadResStrings, aControlWithoutNumberKeepsItsTextsThoughTheOrganisationNumberedOneZero)
{
    StringTable table;
    std::istringstream lines("0=nobody's\n");
    table.addTexts(lines);
    ASSERT_EQ(table.find(0), "nobody's");
    for (const std::string tag : {"", "0", "0.4", "words"}) {
        ResControl form{ControlType::form, "", "form", "", {}};
        std::vector<ResControl> controls{{ControlType::other, tag, "designed", tag, {}}};
        loadResStrings(form, controls, table);
        EXPECT_EQ(form.caption, "form");
        EXPECT_EQ(controls[0].caption, "designed") << tag;
        EXPECT_EQ(controls[0].toolTip, tag);
    }
}

TEST(LoadResStrings, aNumberThatIsNotInTheTableOrTooLargeIsIgnoredAndTheNextStepRuns)
{
    EXPECT_EQ(captionOf(ControlType::label, "4711", "designed"), "designed");
    EXPECT_EQ(captionOf(ControlType::menu, "", "99999999999"), "99999999999");
    const auto button = loaded({ControlType::other, "1E99", "designed", "1060", {}});
    EXPECT_EQ(button.caption, "designed");
    EXPECT_EQ(button.toolTip, "OK");
    EXPECT_EQ(loaded({ControlType::other, "", "", "1E99", {}}).toolTip, "1E99");
}

} // namespace
} // namespace tarvelint::test
