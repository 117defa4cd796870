// SPDX-License-Identifier: MIT
#include "view/plot_redraw.h"

#include "data/numbers.h"
#include "view/plot_drawing.h"
#include "view/plot_fit.h"

namespace tarvelint {

void PlotRedraw::redraw(int index, bool clear)
{
    if (!m_window.isEnabled(element(Control::Picture1_0, index)) || m_view.chosen(index) < 0) return;
    const Control bottom = element(Control::minLabel0, index);
    const Control top = element(Control::maxLabel0, index);
    Surface& area = m_ui.surface(index);
    const PlotPlace place{index, m_ui.surface(0).scaleWidth(), area.scaleHeight()};
    const std::string grouping = m_view.isAutomatic(index) ? m_style.grouping() : std::string();
    const PlotFit fit = fitPlot(m_record, m_view, place, {m_window.text(bottom), m_window.text(top)}, grouping);
    if (fit.automaticRange) {
        m_window.setText(bottom, fit.automaticRange->bottom);
        m_window.setText(top, fit.automaticRange->top);
    }
    if (fit.scale) m_view.yScale = fit.scale->yScale;
    const auto reference = m_view.showsReference ? numericValue(m_window.text(Control::refBox)) : std::nullopt;
    drawPlot(fit, {m_record, m_sensors, m_view, reference}, clear, area);
}

} // namespace tarvelint
