// SPDX-License-Identifier: MIT
#pragma once

#include "data/progress.h"
#include "window/breather.h"
#include "window/busy_pointer.h"
#include "window/window.h"

namespace tarvelint {

/// Shows a long operation in its window: status text, row counter, and a pause for pending events every few
/// milliseconds, so a million rows are not a million trips through the event loop.
class WindowProgress : public Progress {
public:
    explicit WindowProgress(Window& window) : m_window(window), m_breather(window.ui, window.env.clock) {}
    void status(const std::string& text) override;
    void row(std::int32_t row1) override;

private:
    Window& m_window;
    Breather m_breather;
};

/// While it lives its window shows the hourglass; then pointer, first status panel and row counter are as they were,
/// however the operation ends.
class BusyDisplay {
public:
    explicit BusyDisplay(Window& window)
        : m_window(window), m_busy(window), m_status(window.text(Control::statusPanel1)),
          m_rows(window.text(Control::rowLabel))
    {
    }
    ~BusyDisplay()
    {
        m_window.setStatus(1, m_status);
        m_window.setText(Control::rowLabel, m_rows);
    }
    BusyDisplay(const BusyDisplay&) = delete;
    BusyDisplay& operator=(const BusyDisplay&) = delete;

private:
    Window& m_window;
    BusyPointer m_busy;
    std::string m_status;
    std::string m_rows;
};

} // namespace tarvelint
