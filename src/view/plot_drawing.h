// SPDX-License-Identifier: MIT
#pragma once

#include "view/plot_fit.h"
#include "window/record.h"
#include "window/sensors.h"
#include "window/surface.h"
#include "window/view.h"

#include <optional>

namespace tarvelint {

/// What is drawn of a window; all of it outlives the drawing.
struct PlotSource {
    const Record& record;
    const Sensors& sensors;
    const View& view;
    std::optional<double> reference; ///< of the companion area's reference line; none: no line
};

/// Draws a fitted plot on a surface, over what it shows or (with `clear`) on the erased area: lull bands, baseline
/// points and trace in the main area, reference line and trace in the companion. A plot without a scale only erases.
/// Changes nothing but the surface.
void drawPlot(const PlotFit& fit, const PlotSource& source, bool clear, Surface& area);

} // namespace tarvelint
