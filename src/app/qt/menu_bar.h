// SPDX-License-Identifier: MIT
#pragma once

#include "app/command_table.h"
#include "app/string_table.h"

#include <QString>

#include <map>
#include <string>

class QAction;
class QIcon;
class QMainWindow;
class QToolBar;
class QWidget;

namespace tarvelint {

/// The menus of a window as the toolkit holds them: one action per entry.
struct MenuActions {
    std::map<Control, QAction*> actions;
    std::map<Control, std::string> captions; ///< as the string table gives them
};

/// Builds the menus of `commandTable()` into the window's menu bar. Actions are named after their entries.
[[nodiscard]] MenuActions buildMenus(QMainWindow& window, const StringTable& table);

/// The tool bar of `toolTable()`; buttons are named after their keys ("toolNew", "toolAlignLeft").
struct ToolActions {
    QToolBar* bar = nullptr;
    std::multimap<Control, QAction*> actions; ///< by the entry a button stands for; `Control::count` for none
};
[[nodiscard]] ToolActions buildToolBar(QWidget& owner, const StringTable& table);

} // namespace tarvelint
