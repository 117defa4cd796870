// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <vector>

namespace tarvelint {

class Window;

/// One level of undo: a copy of the rows of one column, in all three layers, that a command is about to change.
/// Baseline points and lull flags are no part of it. The Undo menu entry shows whether there is a copy.
class Undo {
public:
    explicit Undo(Window& window) : m_window(window) {}

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
    void showAvailable(bool available);
    [[nodiscard]] bool fitsTheData() const;
    void restore();

    Window& m_window;
    std::vector<Cells> undoBuf; ///< one element per row from `m_firstRow` on
    std::int32_t m_firstRow = 0;
    std::int32_t undoCol = -1;
    bool m_available = false;
};

} // namespace tarvelint
