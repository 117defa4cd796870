// SPDX-License-Identifier: MIT
#pragma once

#include "window/window.h"

#include <cstdint>
#include <string>

namespace tarvelint {

/// A right press on the plot: a new value for one row of the layer on view, typed into the value dialog.
class ValueEdit {
public:
    explicit ValueEdit(Window& window)
        : m_window(window), m_view(window.view), m_record(window.record), m_sensors(window.sensors), m_ui(window.ui)
    {
    }

    /// Selects the row under `x` (plot units) and copies it for undo; past the last row it only beeps. Waits for the
    /// dialog; the window answers meanwhile, but takes no command. Without OK the value stays.
    void editValue(float x);
    /// The dialog waits, for this window or another: nothing begins, it only comes to mind.
    [[nodiscard]] bool isWaiting() const { return m_window.dialogs.isValueDialogOpen(); }
    void remind();

private:
    void selectRow(std::int32_t row);
    void take(std::int32_t row, const std::string& typed);

    Window& m_window;
    View& m_view;
    Record& m_record;
    const Sensors& m_sensors;
    Ui& m_ui;
};

} // namespace tarvelint
