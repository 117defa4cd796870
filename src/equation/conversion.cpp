// SPDX-License-Identifier: MIT
#include "equation/conversion.h"

#include "data/numbers.h"
#include "equation/row_converter.h"
#include "window/window.h"

#include <algorithm>

namespace tarvelint {

void Conversion::convButton_Click()
{
    if (!trimSelection()) return;
    const Pointer pointer = m_window.pointer;
    m_window.setPointer(Pointer::hourglass);
    m_window.undoSave(m_window.curCol);
    convertSelection();
    if (!m_window.lineMode) m_window.skip();
    m_window.setPointer(pointer);
    m_window.ui.focus(Control::Picture1_0);
}

/// True when a span of at least two rows with readings at both ends is left.
bool Conversion::trimSelection()
{
    const DataSet& data = m_window.data;
    if (!data.hasColumn(m_window.curCol) || !data.hasRow(m_window.selStart) || !data.hasRow(m_window.selEnd))
        return false;
    const auto readings = data.values.column(kUnconverted, m_window.curCol);
    while (m_window.selEnd > m_window.selStart) {
        if (data.isBlank(readings[m_window.selStart]))
            ++m_window.selStart;
        else if (data.isBlank(readings[m_window.selEnd]))
            --m_window.selEnd;
        else
            return true;
    }
    return false;
}

void Conversion::convertSelection()
{
    DataSet& data = m_window.data;
    const std::int32_t column = m_window.curCol;
    const std::int32_t last = m_window.selEnd;
    const double first = data.values(kUnconverted, column, m_window.selStart);
    const double step =
        (first - data.values(kUnconverted, column, last)) / (static_cast<double>(last) - m_window.selStart);
    RowConverter converter(m_window);
    double v = first;
    for (std::int32_t row = m_window.selStart; row <= last; ++row) {
        data.values(kBaseline, column, row) = data.storable(v);
        v = v - step;
        if (!converter.convertRow(column, row)) break;
    }
}

void Conversion::mnuToolsConvert_Click()
{
    if (m_window.isParameterColumn(m_window.curCol))
        m_window.ui.beep();
    else
        m_window.convButton_Click();
}

void Conversion::skip()
{
    const std::int32_t lastRow = m_window.data.lines - 1;
    if (m_window.selEnd >= lastRow || m_window.selEnd < m_window.selStart) return;
    const std::int64_t end = std::int64_t{2} * m_window.selEnd - m_window.selStart;
    m_window.selStart = m_window.selEnd;
    m_window.selEnd = static_cast<std::int32_t>(std::min<std::int64_t>(end, lastRow));
    showSelection();
    m_window.updateCues();
}

void Conversion::showSelection()
{
    const double width = m_window.ui.surface(0).scaleWidth();
    const std::int32_t before = m_window.HScroll1.Value;
    if (before + width < m_window.selEnd) {
        const double value = m_window.selEnd - width;
        m_window.setScrollValue(m_window.longRecord ? roundToInt32(value) : roundToInt16(value));
        if (m_window.HScroll1.Value != before) return; // scrolling has redrawn both areas
    }
    m_window.redraw(0, true);
    m_window.redraw(1, false);
}

} // namespace tarvelint
