// SPDX-License-Identifier: MIT
#pragma once

#include "window/ports.h"
#include "window/ui.h"

#include <chrono>

namespace tarvelint {

/// Tells a long loop when to pause: asked once per row, and True every few milliseconds.
class Pacer {
public:
    static constexpr std::chrono::milliseconds kPause{30};

    /// The clock outlives it.
    explicit Pacer(const Clock& clock) : m_clock(clock), m_last(clock.now()) {}

    [[nodiscard]] bool isDue()
    {
        const auto now = m_clock.now();
        if (now - m_last < kPause) return false;
        m_last = now;
        return true;
    }

private:
    const Clock& m_clock;
    std::chrono::milliseconds m_last;
};

/// Lets pending events run from inside a long loop, once per row in meaning and every few milliseconds in fact: a
/// million rows are not a million trips through the event loop.
class Breather {
public:
    /// Both outlive it.
    Breather(Ui& ui, const Clock& clock) : m_ui(ui), m_pacer(clock) {}

    /// True when it is time to show progress and call `breathe`.
    [[nodiscard]] bool isDue() { return m_pacer.isDue(); }
    void breathe() { m_ui.letPendingEventsRun(); }

private:
    Ui& m_ui;
    Pacer m_pacer;
};

} // namespace tarvelint
