// SPDX-License-Identifier: MIT
#include "app/menu_table.h"

namespace tarvelint {

namespace {

using enum Control;
constexpr auto kMenu = MenuEntry::Kind::menu;
constexpr auto kEntry = MenuEntry::Kind::entry;
constexpr auto kSeparator = MenuEntry::Kind::separator;

constexpr MenuEntry kMenus[] = {
    {kMenu, mnuFile, "mnuFile", "1000"},
    {kEntry, mnuFileNew, "mnuFileNew", "1001", "Ctrl+N"},
    {kEntry, mnuFileOpen, "mnuFileOpen", "1002", "Ctrl+O"},
    {kEntry, mnuFileClose, "mnuFileClose", "1003", "Ctrl+W"},
    {kSeparator, count, "mnuFileBar", ""},
    {kEntry, mnuFileSave, "mnuFileSave", "1004", "Ctrl+S"},
    {kEntry, mnuFileSaveAs, "mnuFileSaveAs", "1005", "Ctrl+Shift+S"},
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
    {kEntry, mnuEditUndo, "mnuEditUndo", "10141", "Ctrl+Z"},
    {kSeparator, count, "mnuEditBar", ""},
    {kEntry, mnuEditCut, "mnuEditCut", "1015", "Ctrl+X"},
    {kEntry, mnuEditCopy, "mnuEditCopy", "1016", "Ctrl+C"},
    {kEntry, mnuEditPaste, "mnuEditPaste", "1017", "Ctrl+V"},
    {kEntry, mnuEditPasteSpecial, "mnuEditPasteSpecial", "Paste &Special..."},
    {kSeparator, count, "mnuEditBar", ""},
    {kEntry, mnuEditClear, "mnuEditClear", "1018"},
    {kEntry, mnuEditSelectAll, "mnuEditSelectAll", "1690", "Ctrl+A"},

    {kMenu, mnuView, "mnuView", "1019"},
    {kEntry, mnuViewToolbar, "mnuViewToolbar", "1020", "", true},
    {kEntry, mnuViewStatusBar, "mnuViewStatusBar", "1021", "", true},
    {kSeparator, count, "mnuViewBar", ""},
    {kEntry, mnuViewRefresh, "mnuViewRefresh", "1022", "F5"},
    {kEntry, mnuViewLabels, "mnuViewLabels", "10221"},
    {kSeparator, count, "mnuViewBar", ""},
    {kEntry, mnuViewZoomIn, "mnuViewZoomIn", "10222"},
    {kEntry, mnuViewZoomOut, "mnuViewZoomOut", "10223"},
    {kSeparator, count, "mnuViewBar", ""},
    {kEntry, mnuViewWebBrowser, "mnuViewWebBrowser", "1024"},

    {kMenu, mnuTools, "mnuTools", "1065"},
    {kEntry, mnuToolsMode, "mnuToolsMode", "1066"},
    {kEntry, mnuToolsView, "mnuToolsView", "1067"},
    {kSeparator, count, "mnuToolsBar", ""},
    {kEntry, mnuToolsConvert, "mnuToolsConvert", "1068"},
    {kEntry, mnuToolsDelete, "mnuToolsDelete", "10673"},
    {kEntry, mnuToolsBreak, "mnuToolsBreak", "10672"},
    {kEntry, mnuToolsInterpolate, "mnuToolsInterpolate", "10671"},
    {kSeparator, count, "mnuToolsBar", ""},
    {kEntry, mnuToolsRecalculateSelection, "mnuToolsRecalculateSelection", "10681"},
    {kEntry, mnuToolsRecalculate, "mnuToolsRecalculate", "1069"},
    {kEntry, mnuToolsRecalculateAll, "mnuToolsRecalculateAll", "1070"},
    {kSeparator, count, "mnuToolsBar", ""},
    {kEntry, mnuToolsOptions, "mnuToolsOptions", "1023"},

    {kMenu, mnuHelp, "mnuHelp", "1025"},
    {kEntry, mnuHelpContents, "mnuHelpContents", "1026", "F1"},
    {kEntry, mnuHelpSearchForHelpOn, "mnuHelpSearchForHelpOn", "1027"},
    {kSeparator, count, "mnuHelpBar", ""},
    {kEntry, mnuHelpAbout, "mnuHelpAbout", "1028"},
};

constexpr ToolButton kTools[] = {
    {"New", "1029", true, mnuFileNew},     {"Open", "1030", true, mnuFileOpen},  {"Save", "1031", true, mnuFileSave},
    {"Print", "1032", true, mnuFilePrint}, {"Cut", "1033", true, mnuEditCut},    {"Copy", "1034", true, mnuEditCopy},
    {"Paste", "1035", true, mnuEditPaste}, {"Bold", "1036", false, count},       {"Italic", "1037", false, count},
    {"Underline", "1038", false, count},   {"Align Left", "1039", false, count}, {"Center", "1040", false, count},
    {"Align Right", "1041", false, count},
};

} // namespace

std::span<const MenuEntry> menuTable()
{
    return kMenus;
}

std::span<const ToolButton> toolTable()
{
    return kTools;
}

} // namespace tarvelint
