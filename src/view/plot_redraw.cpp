// SPDX-License-Identifier: MIT
#include "view/plot_redraw.h"

#include "data/numbers.h"
#include "view/plot_drawing.h"
#include "view/plot_fit.h"

namespace tarvelint {

void PlotRedraw::redraw(int index, bool clear)
{
    View& view = m_window.view;
    if (!m_window.isEnabled(element(Control::Picture1_0, index)) || view.chosen(index) < 0) return;
    const Control bottom = element(Control::minLabel0, index);
    const Control top = element(Control::maxLabel0, index);
    Surface& area = m_window.ui.surface(index);
    const PlotPlace place{index, m_window.ui.surface(0).scaleWidth(), area.scaleHeight()};
    const std::string grouping = view.isAutomatic(index) ? m_window.env.style.grouping() : std::string();
    const PlotFit fit = fitPlot(m_window.data, view, place, {m_window.text(bottom), m_window.text(top)}, grouping);
    if (fit.automaticRange) {
        m_window.setText(bottom, fit.automaticRange->bottom);
        m_window.setText(top, fit.automaticRange->top);
    }
    if (fit.scale) view.yScale = fit.scale->yScale;
    const auto reference = view.showsReference ? numericValue(m_window.text(Control::refBox)) : std::nullopt;
    drawPlot(fit, {m_window.data, m_window.sensors, view, reference}, clear, area);
}

} // namespace tarvelint
