// SPDX-License-Identifier: MIT
#pragma once

#include "window/window.h"

namespace tarvelint {

/// A key pressed in a box, as far as rules tell keys apart.
enum class BoxKey { enter, backspace, deleteKey, escape, other };

/// Whether a key pressed in a range box counts as typing even where it changes nothing. Other keys do not: what
/// they change in the text tells so itself, and Tab and Ctrl+C, which carry a text too, change none.
[[nodiscard]] bool countsAsTyping(BoxKey key);

/// The controls around the plot areas that say which layer and which range are shown. A `Change` or `KeyUp` handler
/// finds what the user typed already in its box's text. Areas are numbered 0 (main) and 1 (companion).
class DisplayControls {
public:
    explicit DisplayControls(Window& window) : m_window(window), m_view(window.view), m_ui(window.ui) {}

    /// Toggles the main area between readings and converted values.
    void viewButton_Click();

    /// Automatic range of an area; it takes effect at once when it is turned on.
    void scaleBox_Click(int index, bool checked);
    /// Any key typed into a range box turns the automatic range off.
    void maxLabel_KeyPress(int index) { leaveAutomaticRange(index); }
    void minLabel_KeyPress(int index) { leaveAutomaticRange(index); }
    /// The plot follows as long as the text is a number; else it keeps the last good range.
    void maxLabel_KeyUp(int index) { redrawIfNumeric(Control::maxLabel0, index); }
    void minLabel_KeyUp(int index) { redrawIfNumeric(Control::minLabel0, index); }
    /// Shows or hides the companion's reference line; its box takes input only while it is shown.
    void refCheck_Click(bool checked);
    /// The reference value was typed.
    void refBox_Change();

private:
    void leaveAutomaticRange(int index);
    void redrawIfNumeric(Control box, int index);

    Window& m_window;
    View& m_view;
    Ui& m_ui;
};

} // namespace tarvelint
