// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace tarvelint {

struct DataSet;
class Sensors;
class Window;

/// Baseline and sap flux of rows `lPoint`..`rPoint` of `column` (all 0-based): a straight line in row index between the
/// readings at both ends, and 119 * ((B / X) - 1) ^ 1.23 (Granier 1985), in grams per square metre and second. Nothing
/// happens when either end is missing or outside the data.
void turboCalc(DataSet& data, std::int32_t column, std::int32_t lPoint, std::int32_t rPoint);

/// Marks row `toPoint` of a sensor as a baseline point (taking the mark from `fromPoint` first, -1 for none), or
/// unmarks it when `dlt`, and recomputes the two segments beside it. A point has no value of its own: the baseline
/// there is the reading. A stretch with a point at one end only loses its baseline (0) and its converted values
/// (missing). When a point moves past its neighbour, the segment around its old row stays as it was.
/// @return False when nothing happened: no such sensor, or a row outside the data
bool setPoint(DataSet& data, Sensors& sensors, std::int32_t sensor, std::int32_t toPoint, std::int32_t fromPoint,
              bool dlt);

/// Unmarks every point of a sensor in the rows `first` to `last`, one after the other, and recomputes around each;
/// where there is none, around `first` once. Costs as much as its rows, however many points there are.
void dropPoints(DataSet& data, Sensors& sensors, std::int32_t sensor, std::int32_t first, std::int32_t last);

/// The baseline points of the sensor column on view.
class BaselinePoints {
public:
    explicit BaselinePoints(Window& window) : m_window(window) {}

    /// `setPoint` for the sensor column on view; the record counts as changed when something happened.
    void setPoint(std::int32_t toPoint, std::int32_t fromPoint, bool dlt);

    /// Straight line over the selection in the layer on view, missing ends taken as the numbers they are. A selection
    /// of one row beeps. On readings under `Turbo`, the points inside the selection go.
    void interpolate();
    /// The points inside the selection go; the sensor exists.
    void dropPointsInSelection();

private:
    Window& m_window;
};

} // namespace tarvelint
