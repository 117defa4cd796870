// SPDX-License-Identifier: MIT
#include "view/column_lists.h"

#include "data/numbers.h"

#include <algorithm>
#include <utility>

namespace tarvelint {

void ColumnLists::fill()
{
    m_window.view.chosenColumn = {-1, -1};
    show(entries());
}

std::vector<std::string> ColumnLists::entries() const
{
    const Record& record = m_window.data;
    std::vector<std::string> entries;
    if (m_window.view.showsLabels) entries = record.labels;
    for (auto c = static_cast<std::int32_t>(entries.size()); c < record.columns; ++c)
        entries.push_back(plainText(c + 1));
    return entries;
}

void ColumnLists::show(std::vector<std::string> entries)
{
    m_window.view.columnEntries = std::move(entries);
    for (int index = 0; index < 2; ++index) m_window.ui.listChanged(index);
}

void ColumnLists::choose(int index, std::int32_t entry)
{
    m_window.view.chosenColumn.at(static_cast<std::size_t>(index)) = entry;
    m_window.ui.listChanged(index);
    varList_Change(index);
}

void ColumnLists::varList_Change(int index)
{
    View& view = m_window.view;
    const std::int32_t chosen = view.chosen(index);
    if (index == 0 && view.Turbo) {
        view.curSensor = m_window.sensors.ordinalOf(chosen);
        view.dropPoint();
    }
    if (chosen > -1) {
        m_window.setVisible(Control::HScroll1, true);
        m_window.setEnabled(element(Control::Picture1_0, index), true);
        m_window.redraw(index, true);
        if (index == 0) m_window.setEnabled(Control::convButton, !m_window.data.isParameter(chosen));
        m_window.ui.focus(Control::Picture1_0);
    }
    if (index == 0) m_window.updateCues();
}

void ColumnLists::updateLabels(const std::vector<std::string>& labels)
{
    const std::size_t count = std::min(labels.size(), static_cast<std::size_t>(m_window.data.columns));
    std::vector<std::string>& taken = m_window.data.labels;
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
