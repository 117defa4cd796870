// SPDX-License-Identifier: MIT
#pragma once

#include "baseline/baseline_points.h"
#include "window/window.h"

#include <cstdint>

namespace tarvelint {

/// The commands that delete and fill what is selected in the column on view.
class Tools {
public:
    Tools(Window& window, BaselinePoints& points)
        : m_window(window), m_view(window.view), m_record(window.record), m_points(points)
    {
    }

    /// Under `Turbo` removes the picked point, if there is one. Else blanks baseline and converted values of the
    /// selection and, where readings are shown, these too: then the selection moves on, and the points of that stretch
    /// go.
    void mnuToolsDelete_Click();
    void mnuEditClear_Click() { mnuToolsDelete_Click(); }
    /// A straight line over the selection, in the layer on view; refused with a beep on a column marked "Do not
    /// convert".
    void mnuToolsInterpolate_Click();

private:
    [[nodiscard]] bool removePickedPoint();
    void deleteValues(int layer);

    Window& m_window;
    View& m_view;
    Record& m_record;
    BaselinePoints& m_points;
};

} // namespace tarvelint
