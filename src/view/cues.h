// SPDX-License-Identifier: MIT
#pragma once

#include "window/window.h"

#include <cstdint>
#include <string>

namespace tarvelint {

/// The controls around the plot areas that choose what is shown, and the cue labels that report the selection. A
/// `Change` or `KeyUp` handler finds what the user typed already in its box's text. Areas are numbered 0 (main) and 1.
class Cues {
public:
    explicit Cues(Window& window) : m_window(window) {}

    /// Takes the labels of the column setup dialog into the record and both column lists. Does nothing without a
    /// dialog.
    void updateLabels();
    /// Writes reading, day and time at both ends of the selection, always of the unconverted layer. A selection that
    /// is not inside the record leaves the cues as they were; a column that does not exist gives an empty text.
    void updateCues();

    /// Shows the chosen column; in the main area it becomes the column being worked on.
    void varList_Change(int index);
    /// The user chose an entry, perhaps the same one again.
    void varList_Click(int index) { varList_Change(index); }
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

    /// Column lists show labels or, with the box clear, column numbers from 1.
    void labelBox_Click(bool checked);
    /// Shows the column setup dialog without waiting for it, and keeps the focus on the plot.
    void labelButton_Click();
    /// "Settings..." in the View menu: the same dialog.
    void mnuViewLabels_Click() { labelButton_Click(); }

private:
    void leaveAutomaticRange(int index);
    void redrawIfNumeric(Control box, int index);
    [[nodiscard]] std::int32_t sensorOf(std::int32_t column0) const;
    [[nodiscard]] std::string reading(std::int32_t column0, std::int32_t row) const;
    [[nodiscard]] std::string parameter(std::int32_t column0, std::int32_t row) const;
    [[nodiscard]] std::string listEntry(std::int32_t column0, bool asLabel) const;

    Window& m_window;
};

} // namespace tarvelint
