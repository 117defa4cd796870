// SPDX-License-Identifier: MIT
#pragma once

#include "window/window.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace tarvelint {

/// One level of undo: a copy of the rows of one column, in all three layers, that a command is about to change.
/// Baseline points and lull flags are no part of it. The Undo menu entry shows whether there is a copy.
class Undo {
public:
    explicit Undo(Window& window) : m_window(window), m_view(window.view), m_record(window.record) {}

    /// Copies the selected rows of `column` (0-based), replacing the earlier copy. Rows outside the data are not
    /// copied. An empty selection (its end before its start) or a column that is not there saves nothing, and
    /// the earlier copy stays.
    void undoSave(std::int32_t column);

    /// Puts the copy back into the column it came from, whichever is on view, and selects its rows; once.
    void mnuEditUndo_Click();

    /// Drops the copy, as a newly loaded record must: it belonged to the old one.
    void forget();

private:
    /// The three layers of one row.
    struct Cells {
        double unconverted;
        double baseline;
        double converted;
    };
    /// What a command was about to change.
    struct Copy {
        std::int32_t undoCol;
        std::int32_t firstRow;
        std::vector<Cells> undoBuf; ///< one element per row from `firstRow` on; empty when no row was in the data
    };
    void showAvailability();
    [[nodiscard]] bool fitsTheData() const;
    void restore();

    Window& m_window;
    View& m_view;
    Record& m_record;
    std::optional<Copy> m_copy; ///< none: there is nothing to undo
};

} // namespace tarvelint
