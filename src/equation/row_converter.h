// SPDX-License-Identifier: MIT
#pragma once

#include "equation/equation.h"
#include "window/breather.h"

#include <cstdint>
#include <string>

namespace tarvelint {

class Window;

/// Converts single cells with the equation that the window is set to at that moment, and lets pending events
/// run between them. One lives as long as one command's loop.
class RowConverter : private FaultSink {
public:
    explicit RowConverter(Window& window);

    /// Converts (`column`, `row`), 0-based; the user is asked about each fault. The record counts as changed.
    /// @return False when the loop is to end: Cancel was chosen in a message about this row
    [[nodiscard]] bool convertRow(std::int32_t column, std::int32_t row);
    /// What `equation` makes of the reading `source` on the baseline `base` in this window. After Cancel every value is
    /// 0, and nothing is evaluated.
    [[nodiscard]] double convert(const std::string& equation, double source, double base);

private:
    AfterFault onFault(const Fault& fault) override;

    Window& m_window;
    Breather m_breather;
    Equation m_equation{""};  ///< read again only when the text is another
    std::int32_t m_row = 0;   ///< being converted, for the messages
    bool m_isStopped = false; ///< Cancel was chosen
};

} // namespace tarvelint
