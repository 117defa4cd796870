// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace tarvelint {

class Window;

/// "&Convert": the selected span of the column on view gets a straight baseline between the readings at its ends and is
/// converted with the user's equation; then the selection moves one span on.
class Conversion {
public:
    explicit Conversion(Window& window) : m_window(window) {}

    /// Missing readings at both ends are trimmed off the selection first, and stay off. A selection of less than two
    /// rows is ignored. In one-click mode the selection stays where it is and nothing is redrawn.
    void convButton_Click();
    /// "&Convert", refused with a beep on a column marked "Do not convert".
    void mnuToolsConvert_Click();
    /// The selection moves one span to the right, sharing its boundary row, at most to the last row.
    void skip();

private:
    [[nodiscard]] bool trimSelection();
    void convertSelection();
    void showSelection();

    Window& m_window;
};

} // namespace tarvelint
