// SPDX-License-Identifier: MIT
#include "baseline/baseline_points.h"

#include "window/window.h"

#include <cmath>

namespace tarvelint {

namespace {

/// Sap flux of a reading X below or at its baseline, both above 0. The constants are Granier's, whatever equation
/// the user has typed.
double sapFlux(double X, double b)
{
    // A reading above its baseline counts as no flow. There Y is b, (b / Y) - 1 is exactly 0, and so is its power:
    // pow may be left out.
    if (X >= b) return 0;
    const double Y = X;
    return 119 * std::pow((b / Y) - 1, 1.23);
}

} // namespace

void BaselinePoints::turboCalc(std::int32_t column, std::int32_t lPoint, std::int32_t rPoint)
{
    DataSet& data = m_window.data;
    if (!data.hasColumn(column) || !data.hasRow(lPoint) || !data.hasRow(rPoint)) return;
    const auto readings = data.values.column(kUnconverted, column);
    const auto baseline = data.values.column(kBaseline, column);
    const auto converted = data.values.column(kConverted, column);
    const double first = readings[lPoint];
    const double last = readings[rPoint];
    if (data.isBlank(first) || data.isBlank(last)) return;

    const double blank = data.blank;
    const double slope = (last - first) / (static_cast<double>(rPoint) - lPoint);
    double b = first;
    for (std::ptrdiff_t r = lPoint; r <= rPoint; ++r) {
        const double X = readings[r];
        // The line does not advance over a missing reading, on purpose: the rest of the segment lies one step back.
        if (X == blank) continue;
        const double flux = X > 0 && b > 0 ? sapFlux(X, b) : blank;
        baseline[r] = data.storable(b);
        converted[r] = data.storable(flux);
        b = b + slope;
    }
}

bool BaselinePoints::canSetPoints() const
{
    const auto& points = m_window.basePoints;
    return m_window.curSensor >= 0 && m_window.curSensor < points.sensors() && points.lines() == m_window.data.lines &&
           m_window.data.hasColumn(m_window.curCol);
}

void BaselinePoints::setPoint(std::int32_t toPoint, std::int32_t fromPoint, bool dlt)
{
    const DataSet& data = m_window.data;
    if (!canSetPoints() || !data.hasRow(toPoint)) return;
    if (dlt) {
        m_window.basePoints.set(m_window.curSensor, toPoint, false);
        recomputeAcross(toPoint);
    } else {
        if (fromPoint >= data.lines) return;
        if (fromPoint > -1) m_window.basePoints.set(m_window.curSensor, fromPoint, false);
        m_window.basePoints.set(m_window.curSensor, toPoint, true);
        recomputeAround(toPoint);
    }
    m_window.markChanged();
}

void BaselinePoints::recomputeAround(std::int32_t point)
{
    if (const auto left = pointBelow(point))
        turboCalc(m_window.curCol, *left, point);
    else
        clearRows(0, point - 1);
    if (const auto right = pointAbove(point))
        turboCalc(m_window.curCol, point, *right);
    else
        clearRows(point + 1, m_window.data.lines - 1);
}

void BaselinePoints::recomputeAcross(std::int32_t gap)
{
    const auto left = pointBelow(gap);
    const auto right = pointAbove(gap);
    if (left && right)
        turboCalc(m_window.curCol, *left, *right);
    else if (left)
        clearRows(*left + 1, m_window.data.lines - 1);
    else if (right)
        clearRows(0, *right - 1);
    else
        clearRows(0, m_window.data.lines - 1);
}

std::optional<std::int32_t> BaselinePoints::pointBelow(std::int32_t row) const
{
    for (std::int32_t r = row - 1; r >= 0; --r)
        if (m_window.basePoints(m_window.curSensor, r)) return r;
    return std::nullopt;
}

std::optional<std::int32_t> BaselinePoints::pointAbove(std::int32_t row) const
{
    for (std::int32_t r = row + 1; r < m_window.data.lines; ++r)
        if (m_window.basePoints(m_window.curSensor, r)) return r;
    return std::nullopt;
}

void BaselinePoints::clearRows(std::int32_t first, std::int32_t last)
{
    Values& values = m_window.data.values;
    for (std::int32_t r = first; r <= last; ++r) {
        values(kBaseline, m_window.curCol, r) = 0;
        values(kConverted, m_window.curCol, r) = m_window.data.blank;
    }
}

void BaselinePoints::interpolate()
{
    const std::int32_t selStart = m_window.selStart;
    const std::int32_t selEnd = m_window.selEnd;
    if (selEnd == selStart) {
        m_window.ui.beep();
        return;
    }
    DataSet& data = m_window.data;
    if (selEnd < selStart || !data.hasRow(selStart) || !data.hasRow(selEnd) || !data.hasColumn(m_window.curCol)) return;

    const auto cells = data.values.column(m_window.curLayer, m_window.curCol);
    const double step = (cells[selEnd] - cells[selStart]) / (static_cast<double>(selEnd) - selStart);
    double v = cells[selStart];
    for (std::ptrdiff_t r = std::ptrdiff_t{selStart} + 1; r <= selEnd; ++r) {
        v = v + step;
        cells[r] = data.storable(v);
    }
    if (m_window.Turbo && m_window.curLayer == kUnconverted && canSetPoints()) dropPointsInSelection();
    m_window.markChanged();
}

void BaselinePoints::dropPointsInSelection()
{
    bool found = false;
    for (std::int32_t r = m_window.selStart; r <= m_window.selEnd; ++r) {
        if (!m_window.basePoints(m_window.curSensor, r)) continue;
        setPoint(r, -1, true);
        found = true;
    }
    // Unmarking a row that bears no mark recomputes the segment around it from the new readings.
    if (!found) setPoint(m_window.selStart, -1, true);
}

} // namespace tarvelint
