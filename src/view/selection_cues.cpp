// SPDX-License-Identifier: MIT
#include "view/selection_cues.h"

#include "data/numbers.h"
#include "window/window.h"

namespace tarvelint {

void SelectionCues::updateCues()
{
    const Record& record = m_window.data;
    const View& view = m_window.view;
    if (view.selStart < 0 || view.selEnd > record.lines - 1 || view.selEnd < view.selStart) return;

    const std::string grouping = m_window.env.style.grouping();
    const auto reading = [&](std::int32_t row) {
        return record.hasColumn(view.curCol()) ? screenText(record.values(kUnconverted, view.curCol(), row), grouping)
                                               : std::string();
    };
    const auto parameter = [&](std::int32_t column0, std::int32_t row) {
        return record.hasColumn(column0) ? generalText(record.values(kUnconverted, column0, row)) : std::string();
    };
    const auto show = [&](std::int32_t row, Control value, Control day, Control time) {
        m_window.setText(value, reading(row));
        m_window.setText(day, parameter(view.dateCol - 1, row));
        m_window.setText(time, parameter(view.timeCol - 1, row));
    };
    show(view.selStart, Control::slLabel, Control::ldLabel, Control::ltLabel);
    show(view.selEnd, Control::srLabel, Control::rdLabel, Control::rtLabel);
}

} // namespace tarvelint
