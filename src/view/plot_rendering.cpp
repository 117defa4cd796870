// SPDX-License-Identifier: MIT
#include "view/plot_rendering.h"

#include "data/numbers.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace tarvelint {

namespace {

constexpr double kFarthest = 64000;  // plot units that a line may reach beyond its area
constexpr double kHeadroom = 1.1;    // the range takes 1/1.1 of the height ...
constexpr double kBottom = 0.95;     // ... above a margin of 5 %
constexpr float kNoPointYet = -1.0F; // y of the pen before it has met a baseline point
constexpr float kPointRadius = 3.0F;
constexpr float kMarkRadius = 5.0F;

/// The range is made of the numbers a person would read, 15 digits long.
double asRead(double value)
{
    const double read = leadingNumber(generalText(value));
    return std::isfinite(read) ? read : value;
}

} // namespace

std::int32_t lastVisibleRow(float width, std::int16_t zoomFactor, std::int32_t first, std::int32_t lines)
{
    const double last = static_cast<double>(width) / zoomFactor + first;
    return last <= lines - 1 ? roundToInt32(last) : lines - 1;
}

float rowX(std::int32_t row, std::int32_t first, std::int16_t zoomFactor)
{
    return static_cast<float>((std::int64_t{row} - first) * zoomFactor);
}

std::optional<ValueScale> valueScale(double lo, double hi, float height)
{
    const double room = (hi - lo) * kHeadroom;
    if (!(hi - lo > 0) || !std::isfinite(room)) return std::nullopt;
    ValueScale scale{lo, hi, static_cast<double>(height), 0, 0};
    scale.yScale = scale.height / room;
    scale.yBase = lo * scale.yScale + scale.height * kBottom;
    if (!std::isfinite(scale.yScale) || !std::isfinite(scale.yBase)) return std::nullopt;
    return scale;
}

float valueY(const ValueScale& scale, double value)
{
    const double y = scale.yBase - value * scale.yScale;
    return static_cast<float>(std::clamp(y, -kFarthest, kFarthest));
}

Extremes visibleExtremes(ColumnView<const double> readings, std::int32_t first, std::int32_t last, std::int32_t blank)
{
    const double missing = blank;
    Extremes found{readings[first], readings[first]};
    if (found.lowest == missing) found = {std::abs(missing), -std::abs(missing)};
    for (std::int32_t row = first; row <= last; ++row) {
        const double reading = readings[row];
        if (reading == missing) continue;
        if (reading < found.lowest) found.lowest = asRead(reading);
        if (reading > found.highest) found.highest = asRead(reading);
    }
    return found;
}

void PlotRendering::redraw(int index, bool clear)
{
    const std::int32_t col = m_window.varList.at(static_cast<std::size_t>(index)).chosen;
    if (!m_window.isEnabled(element(Control::Picture1_0, index)) || col < 0) return;
    const std::int32_t first = m_window.HScroll1.Value;
    // Both areas show the same rows, so the main area's width counts for both.
    const std::int32_t last =
        lastVisibleRow(m_window.ui.surface(0).scaleWidth(), m_window.zoomFactor, first, m_window.data.lines);
    const int layer = index == 1 ? kUnconverted : m_window.curLayer;
    Frame frame{m_window.ui.surface(index), index, col, layer, first, last, {}};
    frame.area.setPenWidth(m_window.zoomLevel + 1);
    if (!hasVisibleRow(frame)) return frame.area.erase();
    if (m_window.isChecked(element(Control::scaleBox0, index))) writeAutomaticRange(frame);
    const auto scale = readRange(frame);
    if (!scale) return frame.area.erase();
    frame.scale = *scale;
    m_window.yScale = scale->yScale;
    if (clear) frame.area.erase();
    drawLayers(frame);
}

bool PlotRendering::hasVisibleRow(const Frame& frame) const
{
    return m_window.data.hasColumn(frame.col) && frame.first >= 0 && frame.first <= frame.last;
}

void PlotRendering::writeAutomaticRange(const Frame& frame)
{
    const DataSet& data = m_window.data;
    const Extremes found =
        visibleExtremes(data.values.column(frame.layer, frame.col), frame.first, frame.last, data.blank);
    const auto isLeftOver = [&](double value) { return std::abs(value) == std::abs(static_cast<double>(data.blank)); };
    const bool nothingFound = isLeftOver(found.lowest) || isLeftOver(found.highest);
    const std::string grouping = m_window.env.style.grouping();
    m_window.setText(element(Control::minLabel0, frame.index), nothingFound ? "0" : screenText(found.lowest, grouping));
    m_window.setText(element(Control::maxLabel0, frame.index),
                     nothingFound ? "0" : screenText(found.highest, grouping));
}

std::optional<ValueScale> PlotRendering::readRange(const Frame& frame) const
{
    // The boxes are the range, an automatic one included: a grouped 1,234.5000 counts as 1 from here on.
    const double lo = leadingNumber(m_window.text(element(Control::minLabel0, frame.index)));
    const double hi = leadingNumber(m_window.text(element(Control::maxLabel0, frame.index)));
    return valueScale(lo, hi, frame.area.scaleHeight());
}

void PlotRendering::drawLayers(const Frame& frame)
{
    if (frame.index == 0 && m_window.Turbo) drawLullBands(frame);
    if (frame.index == 1) drawReferenceLine(frame);
    if (frame.index == 0 && frame.layer == kUnconverted && m_window.Turbo) {
        if (m_window.curSensor < 0) return; // a parameter column has neither points nor trace here
        drawBasePoints(frame);
    }
    drawTrace(frame);
}

void PlotRendering::drawLullBands(const Frame& frame)
{
    const auto height = static_cast<float>(frame.scale.height);
    for (std::int32_t row = frame.first; row <= frame.last; ++row) {
        if (!m_window.data.lullFlags[static_cast<std::size_t>(row)]) continue;
        const float left = x(frame, row);
        frame.area.filledBox(left, 0, left + static_cast<float>(m_window.zoomFactor), height, colors::kWhite);
    }
}

void PlotRendering::drawReferenceLine(const Frame& frame)
{
    if (!m_window.isChecked(Control::refCheck)) return;
    const auto ref = numericValue(m_window.text(Control::refBox));
    const ValueScale& scale = frame.scale;
    if (!ref || !(*ref > scale.lo && *ref < scale.hi)) return;
    const auto y = static_cast<float>(scale.height - (*ref - scale.lo) * scale.yScale - scale.height / 20);
    frame.area.line(0, y, frame.area.scaleWidth(), y, colors::kBlue);
}

void PlotRendering::drawBasePoints(const Frame& frame)
{
    drawHighlight(frame);
    float penY = startAtPointBefore(frame);
    for (std::int32_t row = frame.first; row <= frame.last; ++row) {
        if (!isPoint(row)) continue;
        const float pointX = x(frame, row);
        const float pointY = valueY(frame.scale, m_window.data.values(frame.layer, frame.col, row));
        // A point that happens to lie at -1 reads as none yet: the line breaks there.
        if (penY == kNoPointYet)
            frame.area.moveTo(pointX, pointY);
        else
            frame.area.lineTo(pointX, pointY, colors::kRed);
        frame.area.circle(pointX, pointY, kPointRadius, colors::kRed, colors::kRed);
        penY = pointY;
    }
    if (frame.last < m_window.data.lines - 1) drawLineToPointAfter(frame);
}

void PlotRendering::drawHighlight(const Frame& frame)
{
    const bool dragging = m_window.dragRow > -1;
    const std::int32_t row = dragging ? m_window.dragRow : m_window.markRow;
    if (!m_window.data.hasRow(row) || !m_window.data.hasColumn(m_window.curCol)) return;
    const float y = valueY(frame.scale, m_window.data.values(kUnconverted, m_window.curCol, row));
    frame.area.circle(x(frame, row), y, dragging ? kPointRadius : kMarkRadius, colors::kYellow, colors::kYellow);
}

float PlotRendering::startAtPointBefore(const Frame& frame)
{
    frame.area.moveTo(0, kNoPointYet);
    if (frame.first == 0) return kNoPointYet;
    for (std::int32_t row = frame.first; row >= 0; --row) {
        if (!isPoint(row)) continue;
        const float y = valueY(frame.scale, m_window.data.values(kUnconverted, frame.col, row));
        frame.area.moveTo(x(frame, row), y);
        return y;
    }
    return kNoPointYet;
}

void PlotRendering::drawLineToPointAfter(const Frame& frame)
{
    for (std::int32_t row = frame.last; row < m_window.data.lines; ++row) {
        if (!isPoint(row)) continue;
        // The line leaves the view one row step late: it ends at the place of the row after the point.
        const float y = valueY(frame.scale, m_window.data.values(frame.layer, frame.col, row));
        frame.area.lineTo(rowX(row + 1, frame.first, m_window.zoomFactor), y, colors::kRed);
        return;
    }
}

void PlotRendering::drawTrace(const Frame& frame)
{
    frame.area.moveTo(0, traceY(frame, frame.first));
    for (std::int32_t row = frame.first; row <= frame.last; ++row)
        frame.area.lineTo(x(frame, row), traceY(frame, row), traceColor(row));
}

bool PlotRendering::isPoint(std::int32_t row) const
{
    const BasePoints& points = m_window.basePoints;
    return m_window.curSensor < points.sensors() && row < points.lines() && points(m_window.curSensor, row);
}

float PlotRendering::x(const Frame& frame, std::int32_t row) const
{
    return rowX(row, frame.first, m_window.zoomFactor);
}

float PlotRendering::traceY(const Frame& frame, std::int32_t row) const
{
    // A gap is not left out: the trace runs up to the top edge and back.
    const double reading = m_window.data.values(frame.layer, frame.col, row);
    return m_window.data.isBlank(reading) ? 0.0F : valueY(frame.scale, reading);
}

Color PlotRendering::traceColor(std::int32_t row) const
{
    if (m_window.Sloppy && row == m_window.hoverRow) return colors::kCyan;
    // A segment belongs to the row it ends at, so the one that ends at the selection's first row is outside.
    return row > m_window.selStart && row <= m_window.selEnd ? colors::kRed : colors::kBlack;
}

} // namespace tarvelint
