// SPDX-License-Identifier: MIT
#include "equation/conversion.h"

#include "equation/row_converter.h"
#include "window/window.h"

namespace tarvelint {

void Conversion::convertSelection(bool draws)
{
    const View& view = m_window.view;
    const std::int32_t selStart = view.selStart;
    const std::int32_t selEnd = view.selEnd;
    if (!trimSelection()) {
        if (draws && (view.selStart != selStart || view.selEnd != selEnd)) m_window.showAll();
        return;
    }
    const Pointer pointer = m_window.pointer();
    m_window.setPointer(Pointer::hourglass);
    m_window.undoSave(view.curCol());
    convertSpan();
    // Where the selection does not move on, at the record's end or in one-click mode, nobody else shows the new values.
    const bool moved = !view.lineMode && m_window.skip(draws);
    if (draws && !moved) m_window.showAll();
    m_window.setPointer(pointer);
    m_window.ui.focus(Control::Picture1_0);
}

/// True when a span of at least two rows with readings at both ends is left.
bool Conversion::trimSelection()
{
    const DataSet& data = m_window.data;
    View& view = m_window.view;
    if (!data.hasColumn(view.curCol()) || !data.hasRow(view.selStart) || !data.hasRow(view.selEnd)) return false;
    const auto readings = data.values.column(kUnconverted, view.curCol());
    while (view.selEnd > view.selStart) {
        if (data.isBlank(readings[view.selStart]))
            ++view.selStart;
        else if (data.isBlank(readings[view.selEnd]))
            --view.selEnd;
        else
            return true;
    }
    return false;
}

void Conversion::convertSpan()
{
    DataSet& data = m_window.data;
    const std::int32_t column = m_window.view.curCol();
    const std::int32_t first = m_window.view.selStart;
    const std::int32_t last = m_window.view.selEnd;
    double v = data.values(kUnconverted, column, first);
    const double step = (v - data.values(kUnconverted, column, last)) / (static_cast<double>(last) - first);
    RowConverter converter(m_window);
    for (std::int32_t row = first; row <= last; ++row) {
        data.values(kBaseline, column, row) = data.storable(v);
        v = v - step;
        if (!converter.convertRow(column, row)) break;
    }
}

void Conversion::mnuToolsConvert_Click()
{
    if (m_window.data.isParameter(m_window.view.curCol()))
        m_window.ui.beep();
    else
        convButton_Click();
}

} // namespace tarvelint
