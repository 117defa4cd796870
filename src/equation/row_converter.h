// SPDX-License-Identifier: MIT
#pragma once

#include "equation/equation.h"
#include "window/breather.h"

#include <cstdint>
#include <string>

namespace tarvelint {

/// Converts single cells with the equation that the window's `FormulaBox` shows at that moment, and lets pending events
/// run between them. One lives as long as one command's loop.
class RowConverter : private FaultSink {
public:
    /// Clears the stop flag and marks the record as changed.
    explicit RowConverter(Window& window);

    /// Sets the conversion row and writes the converted layer of (`column`, `row`), 0-based, from its reading and
    /// baseline.
    /// @return False when the loop is to end: Cancel was chosen in a message about this row
    [[nodiscard]] bool convertRow(std::int32_t column, std::int32_t row);
    /// What `equation` makes of the reading `source` on the baseline `base` in this window, whose user is asked about
    /// each fault. Cancel sets the stop flag, and while that is set every value is 0 and nothing is evaluated.
    [[nodiscard]] double convert(const std::string& equation, double source, double base);

private:
    AfterFault onFault(const Fault& fault) override;

    Window& m_window;
    Breather m_breather;
    Equation m_equation{""}; ///< read again only when the text is another
};

} // namespace tarvelint
