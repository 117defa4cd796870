// SPDX-License-Identifier: MIT
#include "view/column_lists.h"

#include "data/numbers.h"

#include <algorithm>

namespace tarvelint {

std::string columnEntry(const std::vector<std::string>& labels, bool asLabels, std::int32_t column0)
{
    const auto i = static_cast<std::size_t>(column0);
    return asLabels && i < labels.size() ? labels[i] : plainText(column0 + 1);
}

void ColumnLists::fill()
{
    m_view.chosenColumn = {-1, -1};
    showEntries(m_view.showsLabels);
}

void ColumnLists::showEntries(bool asLabels)
{
    m_view.entriesAreLabels = asLabels;
    for (int index = 0; index < 2; ++index) m_ui.listChanged(index);
}

void ColumnLists::choose(int index, std::int32_t entry)
{
    if (index == 0 && entry != m_view.curCol() && m_view.lineMode && m_view.chainActive) {
        m_view.chainActive = false; // the chain's last click belongs to the column it was made in
        m_window.setPointer(Pointer::northSouth);
    }
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
    showEntries(true); // also while "show" is off
}

void ColumnLists::labelBox_Click(bool checked)
{
    m_window.setChecked(Control::labelBox, checked);
    showEntries(checked);
}

} // namespace tarvelint
