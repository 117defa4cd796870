// SPDX-License-Identifier: MIT
#pragma once

namespace tarvelint {

class Window;

/// The selected rows of a window, as the menus set them.
class Selection {
public:
    explicit Selection(Window& window) : m_window(window) {}

    /// Every row; of an empty record none, so that the selection ends at -1.
    void mnuEditSelectAll_Click();

private:
    Window& m_window;
};

} // namespace tarvelint
