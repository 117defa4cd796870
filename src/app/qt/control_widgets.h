// SPDX-License-Identifier: MIT
#pragma once

#include "app/qt/menu_bar.h"
#include "window/controls.h"

#include <QString>
#include <QWidget>

#include <array>
#include <functional>
#include <map>
#include <set>

namespace tarvelint {

/// The widgets, menu entries and tool buttons of one form, found by the control they are; shows controls' states on
/// them. Entries and buttons that run nothing stay off.
class ControlWidgets {
public:
    /// Names a widget as its row of the table says. The form owns the widget.
    void add(Control control, QWidget* widget);
    void addEntries(const std::map<Control, QAction*>& entries) { m_entries = entries; }
    /// Buttons that stand for no entry never run anything.
    void addTools(const std::multimap<Control, QAction*>& tools);

    /// Null for what is no widget (menu entries).
    template <class W = QWidget>
    [[nodiscard]] W* widget(Control control) const
    {
        return static_cast<W*>(m_widgets[static_cast<std::size_t>(control)]);
    }

    /// What the entry or button of a control, and the tool button that stands for it, do from now on.
    void onTriggered(Control control, QObject* context, const std::function<void()>& handler);

    /// Shows a control's text, check mark, enabledness and visibility.
    void show(Control control, const ControlState& state);

private:
    void showEntry(Control control, const ControlState& state);
    static void showText(QWidget& shown, Control control, const QString& text);
    [[nodiscard]] bool isUsable(Control control, const ControlState& state) const;

    std::array<QWidget*, static_cast<std::size_t>(Control::count)> m_widgets{};
    std::map<Control, QAction*> m_entries;
    std::multimap<Control, QAction*> m_tools;
    std::set<Control> m_wired;
};

} // namespace tarvelint
