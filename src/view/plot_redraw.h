// SPDX-License-Identifier: MIT
#pragma once

#include "window/window.h"

namespace tarvelint {

/// Fits and draws the two plot areas of a window: the main one (0) with the column being worked on, lulls and baseline
/// points, and the companion (1) with the readings of another column and the reference line.
class PlotRedraw {
public:
    explicit PlotRedraw(Window& window)
        : m_window(window), m_view(window.view), m_record(window.record), m_sensors(window.sensors), m_ui(window.ui),
          m_style(window.env.style)
    {
    }

    /// Draws area `index` over what it shows, or erases it first. Leaves `yScale` and, with automatic range, the texts
    /// of the range boxes behind. An area that is disabled or has no column chosen is left alone; one without a
    /// visible row or a positive range is erased.
    void redraw(int index, bool clear);

private:
    Window& m_window;
    View& m_view;
    const Record& m_record;
    const Sensors& m_sensors;
    Ui& m_ui;
    const SystemStyle& m_style;
};

} // namespace tarvelint
