// SPDX-License-Identifier: MIT
#pragma once

namespace tarvelint {

class Window;

/// The cue labels that report the selection.
class SelectionCues {
public:
    explicit SelectionCues(Window& window) : m_window(window) {}

    /// Writes reading, day and time at both ends of the selection, always of the unconverted layer. A selection that
    /// is not inside the record leaves the cues as they were; a column that does not exist gives an empty text.
    void updateCues();

private:
    Window& m_window;
};

} // namespace tarvelint
