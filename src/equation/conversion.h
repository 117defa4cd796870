// SPDX-License-Identifier: MIT
#pragma once

#include "window/window.h"

namespace tarvelint {

/// "&Convert": the selected span of the column on view gets a straight baseline between the readings at its ends and is
/// converted with the user's equation; then the selection moves one span on.
class Conversion {
public:
    explicit Conversion(Window& window)
        : m_window(window), m_view(window.view), m_record(window.record), m_ui(window.ui)
    {
    }

    /// Missing readings at both ends are trimmed off the selection first, and stay off. A selection of less than two
    /// rows is ignored. In one-click mode the selection stays where it is.
    void convButton_Click() { convertSelection(true); }
    /// "&Convert", refused with a beep on a column marked "Do not convert".
    void mnuToolsConvert_Click();
    /// The work of "&Convert"; with `draws` False what it changed is left for the caller to show.
    void convertSelection(bool draws);

private:
    [[nodiscard]] bool trimSelection();
    void convertSpan();

    Window& m_window;
    View& m_view;
    Record& m_record;
    Ui& m_ui;
};

} // namespace tarvelint
