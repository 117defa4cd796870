// SPDX-License-Identifier: MIT
#include "baseline/baseline_points.h"

#include "window/window.h"

#include <cmath>
#include <optional>

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

void clearRows(DataSet& data, std::int32_t column, std::int32_t first, std::int32_t last)
{
    for (std::int32_t r = first; r <= last; ++r) {
        data.values(kBaseline, column, r) = 0;
        data.values(kConverted, column, r) = data.blank;
    }
}

/// The segments on both sides of a point that has been set.
void recomputeAround(DataSet& data, const Sensors& sensors, std::int32_t sensor, std::int32_t point)
{
    const std::int32_t column = sensors.column(sensor);
    if (const auto left = sensors.pointUpTo(sensor, point - 1))
        turboCalc(data, column, *left, point);
    else
        clearRows(data, column, 0, point - 1);
    if (const auto right = sensors.pointFrom(sensor, point + 1))
        turboCalc(data, column, point, *right);
    else
        clearRows(data, column, point + 1, data.lines - 1);
}

/// The one segment in which a row without a point lies.
void recomputeAcross(DataSet& data, const Sensors& sensors, std::int32_t sensor, std::int32_t gap)
{
    const std::int32_t column = sensors.column(sensor);
    const auto left = sensors.pointUpTo(sensor, gap - 1);
    const auto right = sensors.pointFrom(sensor, gap + 1);
    if (left && right)
        turboCalc(data, column, *left, *right);
    else if (left)
        clearRows(data, column, *left + 1, data.lines - 1);
    else if (right)
        clearRows(data, column, 0, *right - 1);
    else
        clearRows(data, column, 0, data.lines - 1);
}

} // namespace

void turboCalc(DataSet& data, std::int32_t column, std::int32_t lPoint, std::int32_t rPoint)
{
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

bool setPoint(DataSet& data, Sensors& sensors, std::int32_t sensor, std::int32_t toPoint, std::int32_t fromPoint,
              bool dlt)
{
    if (!sensors.has(sensor) || sensors.lines() != data.lines) return false;
    if (!data.hasRow(toPoint) || fromPoint >= data.lines) return false;
    if (!dlt && fromPoint > -1) sensors.setPoint(sensor, fromPoint, false);
    sensors.setPoint(sensor, toPoint, !dlt);
    dlt ? recomputeAcross(data, sensors, sensor, toPoint) : recomputeAround(data, sensors, sensor, toPoint);
    return true;
}

void dropPoints(DataSet& data, Sensors& sensors, std::int32_t sensor, std::int32_t first, std::int32_t last)
{
    if (!sensors.has(sensor) || sensors.lines() != data.lines || !data.hasRow(first)) return;
    // Removing the points from left to right stretches one segment, from the point before the first of them, to the
    // next point each time. What a later step writes covers the earlier ones, but a segment that ends in a missing
    // reading is left alone: so only the last that is drawn counts, and then the last step of all.
    const std::int32_t column = sensors.column(sensor);
    const auto readings = data.values.column(kUnconverted, column);
    std::optional<std::int32_t> gap;
    std::optional<std::int32_t> drawn;
    const auto left = sensors.pointUpTo(sensor, first - 1);
    for (auto point = sensors.pointFrom(sensor, first); point && *point <= last;) {
        sensors.setPoint(sensor, *point, false);
        sensors.markEdited();
        gap = point;
        point = sensors.pointFrom(sensor, *point + 1);
        if (point && *point <= last && !data.isBlank(readings[*point])) drawn = point;
    }
    if (left && drawn) turboCalc(data, column, *left, *drawn);
    if (!gap) sensors.setPoint(sensor, first, false);
    recomputeAcross(data, sensors, sensor, gap.value_or(first));
}

void BaselinePoints::setPoint(std::int32_t toPoint, std::int32_t fromPoint, bool dlt)
{
    Sensors& sensors = m_window.sensors;
    const std::int32_t sensor = m_window.view.curSensor;
    // A point that is set again on its own row, or a row unmarked that bears no mark, leaves the points as they are.
    const bool changes = dlt == sensors.isPoint(sensor, toPoint) || (!dlt && fromPoint > -1 && fromPoint != toPoint);
    if (!tarvelint::setPoint(m_window.record, sensors, sensor, toPoint, fromPoint, dlt)) return;
    if (changes) sensors.markEdited();
    m_window.markChanged();
}

void BaselinePoints::interpolate()
{
    DataSet& data = m_window.record;
    const View& view = m_window.view;
    const std::int32_t selStart = view.selStart;
    const std::int32_t selEnd = view.selEnd;
    if (selEnd == selStart) return m_window.ui.beep();
    if (selEnd < selStart || !data.hasRow(selStart) || !data.hasRow(selEnd) || !data.hasColumn(view.curCol())) return;

    const auto cells = data.values.column(view.curLayer, view.curCol());
    const double step = (cells[selEnd] - cells[selStart]) / (static_cast<double>(selEnd) - selStart);
    double v = cells[selStart];
    for (std::ptrdiff_t r = std::ptrdiff_t{selStart} + 1; r <= selEnd; ++r) {
        v = v + step;
        cells[r] = data.storable(v);
    }
    if (view.Turbo && view.curLayer == kUnconverted && m_window.sensors.has(view.curSensor)) dropPointsInSelection();
    m_window.markChanged();
}

void BaselinePoints::dropPointsInSelection()
{
    dropPoints(m_window.record, m_window.sensors, m_window.view.curSensor, m_window.view.selStart,
               m_window.view.selEnd);
    View& view = m_window.view;
    if (!m_window.sensors.isPoint(view.curSensor, view.markRow)) view.dropPoint();
    m_window.markChanged();
}

} // namespace tarvelint
