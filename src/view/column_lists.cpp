// SPDX-License-Identifier: MIT
#include "view/column_lists.h"

#include "data/numbers.h"

#include <algorithm>
#include <utility>

namespace tarvelint {

void ColumnLists::fill()
{
    m_view.chosenColumn = {-1, -1};
    show(entries());
}

std::vector<std::string> ColumnLists::entries() const
{
    std::vector<std::string> entries;
    if (m_view.showsLabels) entries = m_record.labels;
    for (auto c = static_cast<std::int32_t>(entries.size()); c < m_record.columns; ++c)
        entries.push_back(plainText(c + 1));
    return entries;
}

void ColumnLists::show(std::vector<std::string> entries)
{
    m_view.columnEntries = std::move(entries);
    for (int index = 0; index < 2; ++index) m_ui.listChanged(index);
}

void ColumnLists::choose(int index, std::int32_t entry)
{
    m_view.chosenColumn.at(static_cast<std::size_t>(index)) = entry;
    m_ui.listChanged(index);
    varList_Change(index);
}

void ColumnLists::varList_Change(int index)
{
    const std::int32_t chosen = m_view.chosen(index);
    if (index == 0 && m_view.Turbo) {
        m_view.curSensor = m_sensors.ordinalOf(chosen);
        m_view.dropPoint();
    }
    if (chosen > -1) {
        m_window.setVisible(Control::HScroll1, true);
        m_window.setEnabled(element(Control::Picture1_0, index), true);
        m_window.redraw(index, true);
        if (index == 0) m_window.setEnabled(Control::convButton, !m_record.isParameter(chosen));
        m_ui.focus(Control::Picture1_0);
    }
    if (index == 0) m_window.updateCues();
}

void ColumnLists::updateLabels(const std::vector<std::string>& labels)
{
    const std::size_t count = std::min(labels.size(), static_cast<std::size_t>(m_record.columns));
    std::vector<std::string>& taken = m_record.labels;
    taken.resize(std::max(taken.size(), count));
    std::copy_n(labels.begin(), count, taken.begin());
    show(taken); // labels, also while "show" is off
}

void ColumnLists::labelBox_Click(bool checked)
{
    m_window.setChecked(Control::labelBox, checked);
    show(entries());
}

} // namespace tarvelint
