// SPDX-License-Identifier: MIT
#pragma once

#include "window/window.h"

namespace tarvelint {

/// The cue labels that report the selection.
class SelectionCues {
public:
    explicit SelectionCues(Window& window)
        : m_window(window), m_view(window.view), m_record(window.record), m_style(window.env.style)
    {
    }

    /// Writes reading, day and time at both ends of the selection, always of the unconverted layer. A selection that
    /// is not inside the record leaves the cues as they were; a column that does not exist gives an empty text.
    void updateCues();

private:
    Window& m_window;
    const View& m_view;
    const Record& m_record;
    const SystemStyle& m_style;
};

} // namespace tarvelint
