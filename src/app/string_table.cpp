// SPDX-License-Identifier: MIT
#include "app/string_table.h"

#include "data/numbers.h"
#include "window/entry_texts.h"

#include <utility>

namespace tarvelint {

namespace {

const std::pair<int, const char*> kTexts[] = {
    {1000, "&File"},
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
    {1014, entry_texts::kUndo},
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
    {10141, entry_texts::kCannotUndo},
    {10221, "Settings..."},
    {10222, "Zoom In    (+)"},
    {10223, "Zoom Out  (-)"},
    {10441, "Contacts:"},
    {10671, "&Interpolate"},
    {10672, "Break One-click Baseline  (Esc)"},
    {10673, "&Delete selection"},
    {10681, "&Recalculate Selection"},
};

std::string withLineBreaks(std::string text)
{
    for (auto at = text.find("\\n"); at != std::string::npos; at = text.find("\\n", at)) text.replace(at, 2, "\n");
    return text;
}

/// The text whose number stands in `numberText`; `present` as it is when there is none.
std::string replaced(const std::string& numberText, const std::string& present, const StringTable& table)
{
    const auto number = isNumeric(numberText) ? roundedToInt32(leadingNumber(numberText)) : std::nullopt;
    return number ? table.find(*number).value_or(present) : present;
}

void loadOther(ResControl& control, const StringTable& table)
{
    // Any other control may carry a text after its number ("1044 heading"): the leading number counts.
    if (const auto caption = roundedToInt32(leadingNumber(control.tag)); caption && *caption > 0)
        control.caption = table.find(*caption).value_or(control.caption);
    if (const auto tip = roundedToInt32(leadingNumber(control.toolTip)); tip && *tip >= 1)
        control.toolTip = table.find(*tip).value_or(control.toolTip);
}

void loadControl(ResControl& control, const StringTable& table)
{
    switch (control.type) {
    case ControlType::label: control.caption = replaced(control.tag, control.caption, table); break;
    case ControlType::menu: control.caption = replaced(control.caption, control.caption, table); break;
    case ControlType::tabStrip:
        for (auto& tab : control.parts) {
            tab.caption = replaced(tab.tag, tab.caption, table);
            tab.toolTip = replaced(tab.toolTip, tab.toolTip, table);
        }
        break;
    case ControlType::toolbar:
        for (auto& button : control.parts) button.toolTip = replaced(button.toolTip, button.toolTip, table);
        break;
    case ControlType::listView:
        for (auto& header : control.parts) header.caption = replaced(header.tag, header.caption, table);
        break;
    case ControlType::form:
    case ControlType::other: loadOther(control, table); break;
    }
}

} // namespace

StringTable::StringTable()
{
    for (const auto& [number, text] : kTexts) m_texts.emplace(number, text);
}

void StringTable::addTexts(std::istream& lines)
{
    for (std::string line; std::getline(lines, line);) {
        if (line.empty() || line.front() == '#') continue;
        const auto equals = line.find('=');
        if (equals == std::string::npos || !isNumeric(line.substr(0, equals))) continue;
        if (line.back() == '\r') line.pop_back();
        if (const auto number = roundedToInt32(leadingNumber(line.substr(0, equals))))
            m_texts[*number] = withLineBreaks(line.substr(equals + 1));
    }
}

std::optional<std::string> StringTable::find(int number) const
{
    const auto found = m_texts.find(number);
    return found == m_texts.end() ? std::nullopt : std::optional(found->second);
}

void loadResStrings(ResControl& form, std::vector<ResControl>& controls, const StringTable& table)
{
    form.caption = replaced(form.tag, form.caption, table);
    for (auto& control : controls) loadControl(control, table);
}

} // namespace tarvelint
