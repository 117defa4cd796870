// SPDX-License-Identifier: MIT
#include "baseline/recalculation.h"

#include "equation/row_converter.h"
#include "window/window.h"

namespace tarvelint {

void Recalculation::recalculate(std::int32_t column)
{
    const DataSet& data = m_window.data;
    if (column != -1 && !data.hasColumn(column)) return;
    const Pointer pointer = m_window.pointer;
    m_window.setPointer(Pointer::hourglass);
    if (column == -1) {
        convertAllColumns();
    } else {
        m_window.selStart = 0;
        m_window.selEnd = data.lines - 1;
        m_window.undoSave(column);
        RowConverter converter(m_window);
        convertRows(converter, column, 0, data.lines - 1);
    }
    m_window.setPointer(pointer);
}

void Recalculation::convertAllColumns()
{
    RowConverter converter(m_window);
    for (std::int32_t column = 0; column < m_window.data.columns; ++column) {
        // A check box holds 0 or 1, and only -1 inverts to 0: parameter columns that have a baseline are converted too.
        const int mark = m_window.isParameterColumn(column) ? 1 : 0;
        if (~mark == 0) continue;
        if (!convertRows(converter, column, 0, m_window.data.lines - 1)) return;
    }
}

bool Recalculation::convertRows(RowConverter& converter, std::int32_t column, std::int32_t first, std::int32_t last)
{
    const DataSet& data = m_window.data;
    for (std::int32_t row = first; row <= last; ++row) {
        if (data.isBlank(data.values(kBaseline, column, row))) continue;
        if (!converter.convertRow(column, row)) return false;
    }
    return true;
}

void Recalculation::mnuToolsRecalculate_Click()
{
    if (!m_window.data.hasColumn(m_window.curCol)) return; // -1 would mean all of them
    recalculate(m_window.curCol);
    showResult();
}

void Recalculation::mnuToolsRecalculateAll_Click()
{
    recalculate(-1);
    showResult();
}

void Recalculation::mnuToolsRecalculateSelection_Click()
{
    const Pointer pointer = m_window.pointer;
    m_window.setPointer(Pointer::hourglass);
    m_window.convButton_Click();
    m_window.setPointer(pointer);
    showResult();
}

void Recalculation::showResult()
{
    m_window.redraw(0, true);
    m_window.redraw(1, true);
    m_window.updateCues();
}

} // namespace tarvelint
