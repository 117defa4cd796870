// SPDX-License-Identifier: MIT
#pragma once

#include "window/window.h"

namespace tarvelint {

/// The selected rows of a window, as menus and commands set them.
class Selection {
public:
    explicit Selection(Window& window) : m_window(window), m_view(window.view), m_record(window.record), m_ui(window.ui)
    {
    }

    /// Every row; of an empty record none, so that the selection ends at -1.
    void mnuEditSelectAll_Click();
    /// The arrow keys: one row fewer at the right or left end, one more there.
    void shrinkRight();
    void shrinkLeft();
    void growRight();
    void growLeft();
    /// Draws the end on the pointer's side to `x` (plot units of the main area), at most to the record's ends, and
    /// refreshes the cues. The other end stays, so a drag to the right and back past the anchor keeps its furthest row.
    void ExtendSelection(float x);
    /// The selection moves one span to the right, sharing its boundary row, at most to the last row; with `draws` that
    /// is shown, scrolled into view.
    /// @return False at the record's end and for an empty selection: it stays, and nothing is drawn
    bool skip(bool draws);

private:
    void scrollOrDraw(bool scrolls, std::int32_t firstRow);
    void show(bool draws);

    Window& m_window;
    View& m_view;
    const Record& m_record;
    Ui& m_ui;
};

} // namespace tarvelint
