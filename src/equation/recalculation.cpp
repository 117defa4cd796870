// SPDX-License-Identifier: MIT
#include "equation/recalculation.h"

#include "equation/conversion.h"
#include "equation/convert_cell.h"
#include "equation/row_converter.h"
#include "window/busy_pointer.h"
#include "window/window.h"

namespace tarvelint {

void Recalculation::recalculate(std::int32_t column)
{
    if (column != -1 && !m_record.hasColumn(column)) return;
    const BusyPointer busy(m_window);
    if (column == -1) {
        convertAllColumns();
    } else {
        m_view.selStart = 0;
        m_view.selEnd = m_record.lines - 1;
        m_window.undoSave(column);
        RowConverter converter(m_window);
        convertColumn(converter, column);
    }
}

void Recalculation::convertAllColumns()
{
    m_window.markChanged(); // also when no column has a baseline
    RowConverter converter(m_window);
    for (std::int32_t column = 0; column < m_record.columns; ++column) {
        // "Do not convert" is not asked: parameter columns that have a baseline are converted too.
        if (!convertColumn(converter, column)) return;
    }
}

bool Recalculation::convertColumn(RowConverter& converter, std::int32_t column)
{
    for (std::int32_t row = 0; row < m_record.lines; ++row) {
        if (hasBaseline(m_record, column, row) && !converter.convertRow(column, row)) return false;
    }
    return true;
}

void Recalculation::mnuToolsRecalculate_Click()
{
    const std::int32_t column = m_view.curCol();
    if (!m_record.hasColumn(column)) return; // -1 would mean all of them
    recalculate(column);
    m_window.showAll();
}

void Recalculation::mnuToolsRecalculateAll_Click()
{
    recalculate(-1);
    m_window.showAll();
}

void Recalculation::mnuToolsRecalculateSelection_Click()
{
    Conversion(m_window).convertSelection(false);
    m_window.showAll();
}

} // namespace tarvelint
