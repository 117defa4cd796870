// SPDX-License-Identifier: MIT
#include "baseline/tools.h"

#include <algorithm>

namespace tarvelint {

void Tools::mnuToolsDelete_Click()
{
    if (removePickedPoint()) return;
    if (!m_record.hasColumn(m_view.curCol()) || m_view.selEnd < m_view.selStart) return;
    m_window.undoSave(m_view.curCol());
    deleteValues(kBaseline);
    deleteValues(kConverted);
    if (m_view.curLayer == kUnconverted) {
        deleteValues(kUnconverted);
        m_window.skip(false);
        if (m_view.Turbo && m_window.sensors.has(m_view.curSensor)) m_points.dropPointsInSelection();
    }
    m_window.markChanged();
    m_window.showAll();
}

bool Tools::removePickedPoint()
{
    if (!m_view.Turbo || m_view.markRow == -1) return false;
    m_points.setPoint(m_view.markRow, -1, true);
    m_view.dropPoint();
    m_window.markChanged();
    m_window.showAll();
    return true;
}

void Tools::deleteValues(int layer)
{
    const auto cells = m_record.values.column(layer, m_view.curCol());
    const std::int32_t last = std::min(m_view.selEnd, m_record.lines - 1);
    for (std::int32_t row = std::max(m_view.selStart, 0); row <= last; ++row) cells[row] = m_record.blank;
}

void Tools::mnuToolsInterpolate_Click()
{
    if (m_record.isParameter(m_view.curCol())) return m_window.ui.beep();
    if (!m_record.hasColumn(m_view.curCol()) || m_view.selEnd < m_view.selStart) return;
    m_window.undoSave(m_view.curCol());
    m_points.interpolate();
    m_window.showAll();
}

} // namespace tarvelint
