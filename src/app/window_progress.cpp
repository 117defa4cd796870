// SPDX-License-Identifier: MIT
#include "app/window_progress.h"

#include "data/numbers.h"

namespace tarvelint {

void WindowProgress::status(const std::string& text)
{
    m_window.setStatus(1, text);
    m_window.ui.letPendingEventsRun();
}

void WindowProgress::row(std::int32_t row1)
{
    if (!m_breather.isDue()) return;
    m_window.setText(Control::rowLabel, plainText(row1));
    m_breather.breathe();
}

} // namespace tarvelint
