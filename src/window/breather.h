// SPDX-License-Identifier: MIT
#pragma once

#include "window/window.h"

#include <chrono>

namespace tarvelint {

/// Lets pending events run from inside a long loop, once per row in meaning and every few milliseconds in fact: a
/// million rows are not a million trips through the event loop.
class Breather {
public:
    static constexpr std::chrono::milliseconds kPause{30};

    explicit Breather(Window& window) : m_window(window), m_last(window.env.clock.now()) {}

    /// True when it is time to show progress and call `breathe`.
    [[nodiscard]] bool isDue()
    {
        const auto now = m_window.env.clock.now();
        if (now - m_last < kPause) return false;
        m_last = now;
        return true;
    }
    void breathe() { m_window.ui.letPendingEventsRun(); }

private:
    Window& m_window;
    std::chrono::milliseconds m_last;
};

} // namespace tarvelint
