// SPDX-License-Identifier: MIT
#include "edit/value_edit.h"

#include "data/numbers.h"
#include "window/plot_scale.h"

#include <algorithm>

namespace tarvelint {

void ValueEdit::editValue(float x)
{
    const std::int32_t row = std::max(rowAt(x, m_view.HScroll1.Value, m_view.zoomFactor), 0);
    m_view.selStart = m_view.selEnd = row;
    m_window.undoSave(m_view.curCol());
    const bool isBeyond = row > m_record.lines - 1;
    selectRow(std::min(row, m_record.lines - 1));
    if (isBeyond) return m_ui.beep();

    const double old = m_record.values(m_view.curLayer, m_view.curCol(), row);
    const std::string shown = screenText(old, m_window.env.style.grouping());
    const auto typed = m_window.dialogs.askValue(shown);
    // Untouched it stays as it was, to the last digit.
    if (typed && *typed != shown) take(row, *typed);
}

void ValueEdit::remind()
{
    m_ui.beep();
    m_window.dialogs.raiseValueDialog();
}

void ValueEdit::selectRow(std::int32_t row)
{
    m_view.selStart = m_view.selEnd = row;
    m_window.showAll();
}

void ValueEdit::take(std::int32_t row, const std::string& typed)
{
    m_record.values(m_view.curLayer, m_view.curCol(), row) = m_record.storable(leadingNumber(typed));
    m_window.markChanged();
    if (m_view.Turbo && m_view.curLayer == kUnconverted && m_view.curSensor > -1)
        m_window.setPoint(row, -1, !m_sensors.isPoint(m_view.curSensor, row));
    m_window.showAll();
}

} // namespace tarvelint
