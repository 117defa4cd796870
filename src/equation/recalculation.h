// SPDX-License-Identifier: MIT
#pragma once

#include "window/window.h"

#include <cstdint>

namespace tarvelint {

class RowConverter;
/// Converts once more, with the user's equation, on the baselines that are there.
class Recalculation {
public:
    explicit Recalculation(Window& window) : m_window(window), m_view(window.view), m_record(window.record) {}

    /// Every row whose baseline is not missing is converted again. A column (0-based) is selected whole and copied for
    /// undo first; -1 takes every column, without a copy. Ends after the row in which Cancel was chosen.
    void recalculate(std::int32_t column);

    void mnuToolsRecalculate_Click();
    void mnuToolsRecalculateAll_Click();
    void mnuToolsRecalculateSelection_Click();

private:
    void convertAllColumns();
    /// False after Cancel.
    bool convertColumn(RowConverter& converter, std::int32_t column);

    Window& m_window;
    View& m_view;
    const Record& m_record;
};

} // namespace tarvelint
