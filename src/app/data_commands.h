// SPDX-License-Identifier: MIT
#pragma once

#include "window/controls.h"

namespace tarvelint {

/// What a window without a record cannot do, and every load makes possible.
inline constexpr Control kDataCommands[] = {Control::mnuFileSave,
                                            Control::mnuFileSaveAs,
                                            Control::mnuEditClear,
                                            Control::mnuEditSelectAll,
                                            Control::mnuViewRefresh,
                                            Control::mnuViewLabels,
                                            Control::mnuToolsMode,
                                            Control::mnuToolsView,
                                            Control::mnuToolsConvert,
                                            Control::mnuToolsDelete,
                                            Control::mnuToolsBreak,
                                            Control::mnuToolsInterpolate,
                                            Control::mnuToolsRecalculateSelection,
                                            Control::mnuToolsRecalculate,
                                            Control::mnuToolsRecalculateAll,
                                            Control::Picture1_0,
                                            Control::HScroll1,
                                            Control::varList0,
                                            Control::varList1,
                                            Control::scaleBox0,
                                            Control::scaleBox1,
                                            Control::minLabel0,
                                            Control::maxLabel0,
                                            Control::minLabel1,
                                            Control::maxLabel1,
                                            Control::refCheck,
                                            Control::labelBox,
                                            Control::labelButton,
                                            Control::viewButton,
                                            Control::convButton,
                                            Control::baseButton,
                                            Control::highBox};

} // namespace tarvelint
