// SPDX-License-Identifier: MIT
#include "equation/conversion.h"

#include "equation/row_converter.h"
#include "window/busy_pointer.h"
#include "window/window.h"

namespace tarvelint {

void Conversion::convertSelection(bool draws)
{
    const std::int32_t selStart = m_view.selStart;
    const std::int32_t selEnd = m_view.selEnd;
    if (!trimSelection()) {
        if (draws && (m_view.selStart != selStart || m_view.selEnd != selEnd)) m_window.showAll();
        return;
    }
    {
        const BusyPointer busy(m_window);
        m_window.undoSave(m_view.curCol());
        convertSpan();
        // Where the selection does not move on, at the record's end or in one-click mode, nobody else shows the new
        // values.
        const bool moved = !m_view.lineMode && m_window.skip(draws);
        if (draws && !moved) m_window.showAll();
    }
    m_ui.focus(Control::Picture1_0);
}

/// True when a span of at least two rows with readings at both ends is left.
bool Conversion::trimSelection()
{
    if (!m_record.hasColumn(m_view.curCol()) || !m_record.hasRow(m_view.selStart) || !m_record.hasRow(m_view.selEnd))
        return false;
    const auto readings = m_record.values.column(kUnconverted, m_view.curCol());
    while (m_view.selEnd > m_view.selStart) {
        if (m_record.isBlank(readings[m_view.selStart]))
            ++m_view.selStart;
        else if (m_record.isBlank(readings[m_view.selEnd]))
            --m_view.selEnd;
        else
            return true;
    }
    return false;
}

void Conversion::convertSpan()
{
    const std::int32_t column = m_view.curCol();
    const std::int32_t first = m_view.selStart;
    const std::int32_t last = m_view.selEnd;
    double v = m_record.values(kUnconverted, column, first);
    const double step = (v - m_record.values(kUnconverted, column, last)) / (static_cast<double>(last) - first);
    RowConverter converter(m_window);
    for (std::int32_t row = first; row <= last; ++row) {
        m_record.values(kBaseline, column, row) = m_record.storable(v);
        v = v - step;
        if (!converter.convertRow(column, row)) break;
    }
}

void Conversion::mnuToolsConvert_Click()
{
    if (m_record.isParameter(m_view.curCol()))
        m_ui.beep();
    else
        convButton_Click();
}

} // namespace tarvelint
