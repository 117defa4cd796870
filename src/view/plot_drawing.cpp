// SPDX-License-Identifier: MIT
#include "view/plot_drawing.h"

namespace tarvelint {

namespace {

constexpr float kNoPointYet = -1.0F; // y of the pen before it has met a baseline point
constexpr float kPointRadius = 3.0F;
constexpr float kMarkRadius = 5.0F;

/// One drawing of one area.
class PlotDrawing {
public:
    PlotDrawing(const PlotFit& fit, const PlotSource& source, Surface& area)
        : m_fit(fit), m_scale(*fit.scale), m_record(source.record), m_sensors(source.sensors), m_view(source.view),
          m_reference(source.reference), m_area(area)
    {
    }

    void drawLayers()
    {
        const bool pointMode = m_fit.index == 0 && m_view.Turbo;
        if (pointMode) drawLullBands();
        if (m_fit.index == 1) drawReferenceLine();
        if (pointMode && m_fit.layer == kUnconverted) {
            if (m_view.curSensor < 0) return; // a parameter column has neither points nor trace here
            drawBasePoints();
        }
        drawTrace();
    }

private:
    void drawLullBands()
    {
        const auto height = static_cast<float>(m_scale.height);
        for (std::int32_t row = m_fit.first; row <= m_fit.last; ++row) {
            if (!m_record.lullFlags[static_cast<std::size_t>(row)]) continue;
            const float left = x(row);
            m_area.filledBox(left, 0, left + static_cast<float>(m_view.zoomFactor), height, colors::kWhite);
        }
    }

    void drawReferenceLine()
    {
        if (!m_reference || !(*m_reference > m_scale.lo && *m_reference < m_scale.hi)) return;
        const auto y =
            static_cast<float>(m_scale.height - (*m_reference - m_scale.lo) * m_scale.yScale - m_scale.height / 20);
        m_area.line(0, y, m_area.scaleWidth(), y, colors::kBlue);
    }

    void drawBasePoints()
    {
        drawHighlight();
        float penY = startAtPointBefore();
        for (std::int32_t row = m_fit.first; row <= m_fit.last; ++row) {
            if (!m_sensors.isPoint(m_view.curSensor, row)) continue;
            const float pointX = x(row);
            const float pointY = y(m_fit.layer, m_fit.col, row);
            // A point that happens to lie at -1 reads as none yet: the line breaks there.
            if (penY == kNoPointYet)
                m_area.moveTo(pointX, pointY);
            else
                m_area.lineTo(pointX, pointY, colors::kRed);
            m_area.circle(pointX, pointY, kPointRadius, colors::kRed, colors::kRed);
            penY = pointY;
        }
        if (m_fit.last < m_record.lines - 1) drawLineToPointAfter();
    }

    void drawHighlight()
    {
        const bool dragging = m_view.dragRow > -1;
        const std::int32_t row = dragging ? m_view.dragRow : m_view.markRow;
        if (!m_record.hasRow(row) || !m_record.hasColumn(m_view.curCol())) return;
        m_area.circle(x(row), y(kUnconverted, m_view.curCol(), row), dragging ? kPointRadius : kMarkRadius,
                      colors::kYellow, colors::kYellow);
    }

    /// Puts the pen on the last point up to the left edge; its y, or `kNoPointYet`.
    float startAtPointBefore()
    {
        m_area.moveTo(0, kNoPointYet);
        if (m_fit.first == 0) return kNoPointYet;
        const auto before = m_sensors.pointUpTo(m_view.curSensor, m_fit.first);
        if (!before) return kNoPointYet;
        const float penY = y(kUnconverted, m_fit.col, *before);
        m_area.moveTo(x(*before), penY);
        return penY;
    }

    void drawLineToPointAfter()
    {
        const auto after = m_sensors.pointFrom(m_view.curSensor, m_fit.last);
        if (!after) return;
        // The line leaves the view one row step late: it ends at the place of the row after the point.
        m_area.lineTo(x(*after + 1), y(m_fit.layer, m_fit.col, *after), colors::kRed);
    }

    void drawTrace()
    {
        m_area.moveTo(0, traceY(m_fit.first));
        for (std::int32_t row = m_fit.first; row <= m_fit.last; ++row)
            m_area.lineTo(x(row), traceY(row), traceColor(row));
    }

    [[nodiscard]] float x(std::int32_t row) const { return rowX(row, m_fit.first, m_view.zoomFactor); }
    [[nodiscard]] float y(int layer, std::int32_t column, std::int32_t row) const
    {
        return valueY(m_scale, m_record.values(layer, column, row));
    }
    [[nodiscard]] float traceY(std::int32_t row) const
    {
        // A gap is not left out: the trace runs up to the top edge and back.
        const double value = m_record.values(m_fit.layer, m_fit.col, row);
        return m_record.isBlank(value) ? 0.0F : valueY(m_scale, value);
    }
    [[nodiscard]] Color traceColor(std::int32_t row) const
    {
        if (m_view.Sloppy && row == m_view.hoverRow) return colors::kCyan;
        // A segment belongs to the row it ends at, so the one that ends at the selection's first row is outside.
        return row > m_view.selStart && row <= m_view.selEnd ? colors::kRed : colors::kBlack;
    }

    const PlotFit& m_fit;
    const ValueScale& m_scale;
    const Record& m_record;
    const Sensors& m_sensors;
    const View& m_view;
    std::optional<double> m_reference;
    Surface& m_area;
};

} // namespace

void drawPlot(const PlotFit& fit, const PlotSource& source, bool clear, Surface& area)
{
    area.setPenWidth(fit.penWidth);
    if (clear || !fit.scale) area.erase();
    if (fit.scale) PlotDrawing(fit, source, area).drawLayers();
}

} // namespace tarvelint
