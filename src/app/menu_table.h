// SPDX-License-Identifier: MIT
#pragma once

#include "window/controls.h"

#include <span>

namespace tarvelint {

/// One line of the menus, in the order in which the user reads them. Captions are numbers of the string table
/// where it has one.
struct MenuEntry {
    enum class Kind { menu, entry, separator };
    Kind kind;
    Control control;     ///< unused for separators
    const char* name;    ///< the control's name
    const char* caption; ///< as designed: "1001" is replaced when the window loads
    const char* shortcut = "";
    bool checkable = false;
};

/// A `menu` line opens a menu; the lines up to the next one belong to it.
[[nodiscard]] std::span<const MenuEntry> menuTable();

/// One button of the tool bar: its key, the number of its tip and the menu entry it stands for. A button whose
/// `standsForEntry` is False has no entry of its own.
struct ToolButton {
    const char* key;
    const char* toolTip;
    bool standsForEntry;
    Control entry;
};

[[nodiscard]] std::span<const ToolButton> toolTable();

} // namespace tarvelint
