// SPDX-License-Identifier: MIT
#include "app/qt/control_widgets.h"

#include "app/command_table.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace tarvelint {

void ControlWidgets::add(Control control, QWidget* widget)
{
    const ControlRow& row = controlRow(control);
    m_widgets[static_cast<std::size_t>(control)] = widget;
    widget->setObjectName(QString::fromUtf8(row.name));
    if (!qobject_cast<QLabel*>(widget)) widget->setAccessibleName(QString::fromUtf8(row.spoken));
    if (auto* button = qobject_cast<QAbstractButton*>(widget)) button->setText(QString::fromUtf8(row.caption));
}

void ControlWidgets::addTools(const std::multimap<Control, QAction*>& tools)
{
    m_tools = tools;
    for (const auto& [control, tool] : m_tools) tool->setEnabled(control != Control::count);
}

void ControlWidgets::onTriggered(Control control, QObject* context, const std::function<void()>& handler)
{
    m_wired.insert(control);
    if (const auto entry = m_entries.find(control); entry != m_entries.end())
        QObject::connect(entry->second, &QAction::triggered, context, handler);
    const auto [first, last] = m_tools.equal_range(control);
    for (auto tool = first; tool != last; ++tool) QObject::connect(tool->second, &QAction::triggered, context, handler);
    if (auto* button = qobject_cast<QPushButton*>(widget(control)))
        QObject::connect(button, &QPushButton::clicked, context, handler);
}

void ControlWidgets::show(Control control, const ControlState& state)
{
    if (m_entries.contains(control)) return showEntry(control, state);
    QWidget* shown = widget(control);
    if (!shown) return;
    showText(*shown, control, QString::fromStdString(state.text));
    shown->setEnabled(isUsable(control, state));
    if (shown->isHidden() == state.visible) shown->setVisible(state.visible);
    if (auto* button = qobject_cast<QAbstractButton*>(shown); button && button->isCheckable())
        button->setChecked(state.checked);
}

void ControlWidgets::showEntry(Control control, const ControlState& state)
{
    QAction* entry = m_entries.at(control);
    entry->setText(QString::fromStdString(state.text));
    entry->setEnabled(isUsable(control, state));
    entry->setVisible(state.visible);
    if (entry->isCheckable()) entry->setChecked(state.checked);
    const auto [first, last] = m_tools.equal_range(control);
    for (auto tool = first; tool != last; ++tool) tool->second->setEnabled(entry->isEnabled());
}

void ControlWidgets::showText(QWidget& shown, Control control, const QString& text)
{
    if (control == Control::Picture1_0) {
        const QString name = QString::fromUtf8(controlRow(control).spoken);
        const QString told = text.isEmpty() ? name : name + QStringLiteral(": ") + text; // the row cursor's place
        if (shown.accessibleName() != told) shown.setAccessibleName(told); // each setting is told to readers
    } else if (auto* label = qobject_cast<QLabel*>(&shown)) {
        if (label->text() == text && !label->accessibleName().isEmpty()) return;
        label->setText(text);
        // Readers are told the accessible name in place of the text: the value has to follow it.
        label->setAccessibleName(QString::fromUtf8(controlRow(control).spoken) + QStringLiteral(": ") +
                                 (text.isEmpty() ? QStringLiteral("none") : text));
    } else if (auto* box = qobject_cast<QLineEdit*>(&shown); box && box->text() != text) {
        const auto cursor = box->cursorPosition();
        box->setText(text);
        box->setCursorPosition(box->hasFocus() ? cursor : 0);
    }
}

bool ControlWidgets::isUsable(Control control, const ControlState& state) const
{
    const bool runsSomething = m_entries.contains(control) || qobject_cast<QPushButton*>(widget(control));
    return state.enabled && (!runsSomething || m_wired.contains(control));
}

} // namespace tarvelint
