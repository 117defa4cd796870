// SPDX-License-Identifier: MIT
#include "app/command_table.h"

#include <algorithm>
#include <cassert>
#include <iterator>

namespace tarvelint {

namespace {

using enum Control;
constexpr auto kMenu = Command::Kind::menu;
constexpr auto kEntry = Command::Kind::entry;
constexpr auto kSeparator = Command::Kind::separator;
constexpr auto kNothing = Needs::nothing;
constexpr auto kRecord = Needs::record;
constexpr auto kMore = Needs::more;

constexpr Command kCommands[] = {
    {kMenu, mnuFile, "mnuFile", "1000"},
    {kEntry, mnuFileNew, "mnuFileNew", "1001", "Ctrl+N"},
    {kEntry, mnuFileOpen, "mnuFileOpen", "1002", "Ctrl+O"},
    {kEntry, mnuFileClose, "mnuFileClose", "1003", "Ctrl+W"},
    {kSeparator, count, "mnuFileBar", ""},
    {kEntry, mnuFileSave, "mnuFileSave", "1004", "Ctrl+S", kRecord},
    {kEntry, mnuFileSaveAs, "mnuFileSaveAs", "1005", "Ctrl+Shift+S", kRecord},
    {kEntry, mnuFileSaveAll, "mnuFileSaveAll", "1006"},
    {kSeparator, count, "mnuFileBar", ""},
    {kEntry, mnuFileProperties, "mnuFileProperties", "1007"},
    {kSeparator, count, "mnuFileBar", ""},
    {kEntry, mnuFilePageSetup, "mnuFilePageSetup", "1008"},
    {kEntry, mnuFilePrintPreview, "mnuFilePrintPreview", "1009"},
    {kEntry, mnuFilePrint, "mnuFilePrint", "1010", "Ctrl+P"},
    {kSeparator, count, "mnuFileBar", ""},
    {kEntry, mnuFileSend, "mnuFileSend", "1011"},
    {kEntry, mnuFileMRU, "mnuFileMRU", ""},
    {kSeparator, count, "mnuFileBar", ""},
    {kEntry, mnuFileExit, "mnuFileExit", "1012", "Ctrl+Q"},

    {kMenu, mnuEdit, "mnuEdit", "1013"},
    {kEntry, mnuEditUndo, "mnuEditUndo", "10141", "Ctrl+Z", kMore},
    {kSeparator, count, "mnuEditBar", ""},
    {kEntry, mnuEditCut, "mnuEditCut", "1015", "Ctrl+X"},
    {kEntry, mnuEditCopy, "mnuEditCopy", "1016", "Ctrl+C"},
    {kEntry, mnuEditPaste, "mnuEditPaste", "1017", "Ctrl+V"},
    {kEntry, mnuEditPasteSpecial, "mnuEditPasteSpecial", "Paste &Special..."},
    {kSeparator, count, "mnuEditBar", ""},
    {kEntry, mnuEditClear, "mnuEditClear", "1018", "", kRecord},
    {kEntry, mnuEditSelectAll, "mnuEditSelectAll", "1690", "Ctrl+A", kRecord},

    {kMenu, mnuView, "mnuView", "1019"},
    {kEntry, mnuViewToolbar, "mnuViewToolbar", "1020", "", kNothing, true},
    {kEntry, mnuViewStatusBar, "mnuViewStatusBar", "1021", "", kNothing, true},
    {kSeparator, count, "mnuViewBar", ""},
    {kEntry, mnuViewRefresh, "mnuViewRefresh", "1022", "F5", kRecord},
    {kEntry, mnuViewLabels, "mnuViewLabels", "10221", "", kRecord},
    {kSeparator, count, "mnuViewBar", ""},
    {kEntry, mnuViewZoomIn, "mnuViewZoomIn", "10222", "", kMore},
    {kEntry, mnuViewZoomOut, "mnuViewZoomOut", "10223", "", kMore},
    {kSeparator, count, "mnuViewBar", ""},
    {kEntry, mnuViewWebBrowser, "mnuViewWebBrowser", "1024"},

    {kMenu, mnuTools, "mnuTools", "1065"},
    {kEntry, mnuToolsMode, "mnuToolsMode", "1066", "", kRecord},
    {kEntry, mnuToolsView, "mnuToolsView", "1067", "", kRecord},
    {kSeparator, count, "mnuToolsBar", ""},
    {kEntry, mnuToolsConvert, "mnuToolsConvert", "1068", "", kRecord},
    {kEntry, mnuToolsDelete, "mnuToolsDelete", "10673", "", kRecord},
    {kEntry, mnuToolsBreak, "mnuToolsBreak", "10672", "", kRecord},
    {kEntry, mnuToolsInterpolate, "mnuToolsInterpolate", "10671", "", kRecord},
    {kSeparator, count, "mnuToolsBar", ""},
    {kEntry, mnuToolsRecalculateSelection, "mnuToolsRecalculateSelection", "10681", "", kRecord},
    {kEntry, mnuToolsRecalculate, "mnuToolsRecalculate", "1069", "", kRecord},
    {kEntry, mnuToolsRecalculateAll, "mnuToolsRecalculateAll", "1070", "", kRecord},
    {kSeparator, count, "mnuToolsBar", ""},
    {kEntry, mnuToolsOptions, "mnuToolsOptions", "1023"},

    {kMenu, mnuHelp, "mnuHelp", "1025"},
    {kEntry, mnuHelpContents, "mnuHelpContents", "1026", "F1"},
    {kEntry, mnuHelpSearchForHelpOn, "mnuHelpSearchForHelpOn", "1027"},
    {kSeparator, count, "mnuHelpBar", ""},
    {kEntry, mnuHelpAbout, "mnuHelpAbout", "1028"},
};

constexpr ToolButton kTools[] = {
    {"New", "1029", mnuFileNew},
    {"Open", "1030", mnuFileOpen},
    {"Save", "1031", mnuFileSave},
    {"Print", "1032", mnuFilePrint, true},
    {"Cut", "1033", mnuEditCut, true},
    {"Copy", "1034", mnuEditCopy},
    {"Paste", "1035", mnuEditPaste},
    {"Bold", "1036", std::nullopt, true},
    {"Italic", "1037"},
    {"Underline", "1038"},
    {"Align Left", "1039", std::nullopt, true},
    {"Center", "1040"},
    {"Align Right", "1041"},
};

constexpr ControlRow kControls[] = {
    {tbToolBar, "tbToolBar", "Tool bar"},
    {sbStatusBar, "sbStatusBar", "Status bar"},
    {statusPanel1, "statusPanel1", "Status"},
    {statusPanel2, "statusPanel2", "Display"},

    {Picture1_0, "Picture1_0", "Main plot", "", kRecord},
    {Picture1_1, "Picture1_1", "Companion plot", "", kMore},
    {HScroll1, "HScroll1", "First row shown", "", kRecord},
    {varList0, "varList0", "Column in the main plot", "", kRecord},
    {varList1, "varList1", "Column in the companion plot", "", kRecord},
    {scaleBox0, "scaleBox0", "Automatic range of the main plot", "Auto", kRecord},
    {scaleBox1, "scaleBox1", "Automatic range of the companion plot", "Auto", kRecord},
    {maxLabel0, "maxLabel0", "Top of the main plot", "", kRecord},
    {maxLabel1, "maxLabel1", "Top of the companion plot", "", kRecord},
    {minLabel0, "minLabel0", "Bottom of the main plot", "", kRecord},
    {minLabel1, "minLabel1", "Bottom of the companion plot", "", kRecord},
    {refCheck, "refCheck", "Reference line in the companion plot", "Reference", kRecord},
    {refBox, "refBox", "Reference value", "", kMore},
    {highBox, "highBox", "Baseline is high", "Baseline is high", kRecord},
    {labelBox, "labelBox", "Show labels in the column lists", "show", kRecord},
    {labelButton, "labelButton", "Labels", "Labels...", kRecord},
    {viewButton, "viewButton", "View", "&View", kRecord},
    {convButton, "convButton", "Convert", "&Convert", kRecord},
    {eqButton, "eqButton", "Equation", "Equation:"},
    {baseButton, "baseButton", "Baseline", "Baseline", kRecord},
    {FormulaBox, "FormulaBox", "Equation"},

    {colLabel, "colLabel", "Columns"},
    {rowLabel, "rowLabel", "Rows"},
    {inLabel, "inLabel", "Reading under the pointer"},
    {baseLabel, "baseLabel", "Baseline under the pointer"},
    {outLabel, "outLabel", "Converted value under the pointer"},
    {dateLabel, "dateLabel", "Day of year under the pointer"},
    {timeLabel, "timeLabel", "Time under the pointer"},
    {slLabel, "slLabel", "Reading at the left end of the selection"},
    {ldLabel, "ldLabel", "Day at the left end of the selection"},
    {ltLabel, "ltLabel", "Time at the left end of the selection"},
    {srLabel, "srLabel", "Reading at the right end of the selection"},
    {rdLabel, "rdLabel", "Day at the right end of the selection"},
    {rtLabel, "rtLabel", "Time at the right end of the selection"},
};

} // namespace

std::span<const Command> commandTable()
{
    return kCommands;
}

std::span<const ToolButton> toolTable()
{
    return kTools;
}

std::span<const ControlRow> controlTable()
{
    return kControls;
}

const ControlRow& controlRow(Control control)
{
    const auto* found = std::ranges::find(kControls, control, &ControlRow::control);
    assert(found != std::end(kControls));
    return *found;
}

std::vector<Control> controlsThatNeed(Needs needs)
{
    std::vector<Control> controls;
    for (const Command& command : kCommands)
        if (command.kind == kEntry && command.needs == needs) controls.push_back(command.control);
    for (const ControlRow& row : kControls)
        if (row.needs == needs) controls.push_back(row.control);
    return controls;
}

} // namespace tarvelint
