// SPDX-License-Identifier: MIT
#pragma once

#include "window/controls.h"

#include <optional>
#include <span>
#include <vector>

namespace tarvelint {

/// What has to be there before a control is of use. A new window has nothing.
enum class Needs {
    nothing,
    record, ///< every load puts it on
    more    ///< a record, and what else its own rule says (something to undo, a zoom that has not ended)
};

/// One row of the menus, in the order in which the user reads them: all that a command is apart from its handler.
/// Captions are numbers of the string table where it has one.
struct Command {
    enum class Kind { menu, entry, separator };
    Kind kind;
    Control control;     ///< unused for separators
    const char* name;    ///< the control's name
    const char* caption; ///< as designed: "1001" is replaced when the window loads
    const char* shortcut = "";
    Needs needs = Needs::nothing;
    bool checkable = false;
};

/// A `menu` row opens a menu; the rows up to the next one belong to it.
[[nodiscard]] std::span<const Command> commandTable();

/// One button of the tool bar: its key, the number of its tip, and the menu entry it stands for, if there is one.
struct ToolButton {
    const char* key;
    const char* toolTip;
    std::optional<Control> entry = std::nullopt;
    bool beginsGroup = false; ///< a separator stands before it
};

[[nodiscard]] std::span<const ToolButton> toolTable();

/// A control that is no menu entry.
struct ControlRow {
    Control control;
    const char* name;         ///< what tests find it by; elements of control arrays end in their index
    const char* spoken;       ///< what a screen reader calls it
    const char* caption = ""; ///< of buttons and check boxes
    Needs needs = Needs::nothing;
};

[[nodiscard]] std::span<const ControlRow> controlTable();
/// The row of a control that is no menu entry.
[[nodiscard]] const ControlRow& controlRow(Control control);

/// Entries and other controls by what they need.
[[nodiscard]] std::vector<Control> controlsThatNeed(Needs needs);

} // namespace tarvelint
