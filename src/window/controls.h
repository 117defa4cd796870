// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <string>

namespace tarvelint {

/// Every control of a main window that a command reads or changes, by its given name; the two elements of a
/// control array follow each other (`minLabel0`, `minLabel1`).
enum class Control {
    // menus and their entries
    mnuFile,
    mnuFileNew,
    mnuFileOpen,
    mnuFileClose,
    mnuFileSave,
    mnuFileSaveAs,
    mnuFileSaveAll,
    mnuFileProperties,
    mnuFilePageSetup,
    mnuFilePrintPreview,
    mnuFilePrint,
    mnuFileSend,
    mnuFileMRU,
    mnuFileExit,
    mnuEdit,
    mnuEditUndo,
    mnuEditCut,
    mnuEditCopy,
    mnuEditPaste,
    mnuEditPasteSpecial,
    mnuEditClear,
    mnuEditSelectAll,
    mnuView,
    mnuViewToolbar,
    mnuViewStatusBar,
    mnuViewRefresh,
    mnuViewLabels,
    mnuViewZoomIn,
    mnuViewZoomOut,
    mnuViewWebBrowser,
    mnuTools,
    mnuToolsMode,
    mnuToolsView,
    mnuToolsConvert,
    mnuToolsDelete,
    mnuToolsBreak,
    mnuToolsInterpolate,
    mnuToolsRecalculateSelection,
    mnuToolsRecalculate,
    mnuToolsRecalculateAll,
    mnuToolsOptions,
    mnuHelp,
    mnuHelpContents,
    mnuHelpSearchForHelpOn,
    mnuHelpAbout,
    // bars
    tbToolBar,
    sbStatusBar,
    statusPanel1,
    statusPanel2,
    // plots and what stands around them
    Picture1_0,
    Picture1_1,
    HScroll1,
    varList0,
    varList1,
    scaleBox0,
    scaleBox1,
    maxLabel0,
    maxLabel1,
    minLabel0,
    minLabel1,
    refCheck,
    refBox,
    highBox,
    labelBox,
    labelButton,
    viewButton,
    convButton,
    eqButton,
    baseButton,
    FormulaBox,
    // cues
    colLabel,
    rowLabel,
    inLabel,
    baseLabel,
    outLabel,
    dateLabel,
    timeLabel,
    slLabel,
    ldLabel,
    ltLabel,
    srLabel,
    rdLabel,
    rtLabel,
    count
};

/// What a control shows. A range box's text is the plot's range: there is no second copy of it.
struct ControlState {
    std::string text;
    bool enabled = true;
    bool checked = false; ///< check boxes and checkable menu entries
    bool visible = true;
};

using Controls = std::array<ControlState, static_cast<std::size_t>(Control::count)>;

/// Element `index` (0 main area, 1 companion area) of a control array, given its element 0.
[[nodiscard]] constexpr Control element(Control first, int index)
{
    return static_cast<Control>(static_cast<int>(first) + index);
}

} // namespace tarvelint
