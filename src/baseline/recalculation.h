// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace tarvelint {

class RowConverter;
class Window;

/// Converts once more, with the user's equation, on the baselines that are there.
class Recalculation {
public:
    explicit Recalculation(Window& window) : m_window(window) {}

    /// Every row whose baseline is not missing is converted again. A column (0-based) is selected whole and copied for
    /// undo first; -1 takes every column, without a copy. Ends after the row in which Cancel was chosen.
    void recalculate(std::int32_t column);

    void mnuToolsRecalculate_Click();
    void mnuToolsRecalculateAll_Click();
    void mnuToolsRecalculateSelection_Click();

    /// Rows `first` to `last` of a column, without selection, undo copy or pointer: the work inside `recalculate`.
    /// False after Cancel.
    bool convertRows(RowConverter& converter, std::int32_t column, std::int32_t first, std::int32_t last);

private:
    void convertAllColumns();
    void showResult();

    Window& m_window;
};

} // namespace tarvelint
