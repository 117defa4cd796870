// SPDX-License-Identifier: MIT
#include "view/selection_cues.h"

#include "data/numbers.h"
#include "window/window.h"

namespace tarvelint {

void SelectionCues::updateCues()
{
    if (m_view.selStart < 0 || m_view.selEnd > m_record.lines - 1 || m_view.selEnd < m_view.selStart) return;

    const std::string grouping = m_style.grouping();
    const auto reading = [&](std::int32_t row) {
        return m_record.hasColumn(m_view.curCol())
                   ? screenText(m_record.values(kUnconverted, m_view.curCol(), row), grouping)
                   : std::string();
    };
    const auto parameter = [&](std::int32_t column0, std::int32_t row) {
        return m_record.hasColumn(column0) ? generalText(m_record.values(kUnconverted, column0, row)) : std::string();
    };
    const auto show = [&](std::int32_t row, Control value, Control day, Control time) {
        m_window.setText(value, reading(row));
        m_window.setText(day, parameter(m_view.dateCol - 1, row));
        m_window.setText(time, parameter(m_view.timeCol - 1, row));
    };
    show(m_view.selStart, Control::slLabel, Control::ldLabel, Control::ltLabel);
    show(m_view.selEnd, Control::srLabel, Control::rdLabel, Control::rtLabel);
}

} // namespace tarvelint
