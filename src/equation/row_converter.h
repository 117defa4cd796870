// SPDX-License-Identifier: MIT
#pragma once

#include "equation/evaluator.h"
#include "window/breather.h"

#include <cstdint>
#include <string>

namespace tarvelint {

/// Converts single cells with the equation that the window's `FormulaBox` shows at that moment, and lets pending events
/// run between them. One lives as long as one command's loop.
class RowConverter {
public:
    /// Clears the stop flag and marks the record as changed.
    explicit RowConverter(Window& window);

    /// Sets the conversion row and writes the converted layer of (`column`, `row`), 0-based, from its reading and
    /// baseline.
    /// @return False when the loop is to end: Cancel was chosen in a message about this row
    [[nodiscard]] bool convertRow(std::int32_t column, std::int32_t row);

private:
    Window& m_window;
    Evaluator m_evaluator;
    Breather m_breather;
    std::string m_equation; ///< read again for every row; a copy, because the box may change while a message is shown
};

} // namespace tarvelint
