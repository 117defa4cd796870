// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>

namespace tarvelint {

class Window;

/// The baseline points of the sensor column on view, and the straight lines between them. A point has no value of its
/// own: the baseline there is the reading. Rows and columns are 0-based; what lies outside the data is never touched.
class BaselinePoints {
public:
    explicit BaselinePoints(Window& window) : m_window(window) {}

    /// Marks `toPoint` (taking the mark from `fromPoint` first, -1 for none), or unmarks it when `dlt`, and recomputes
    /// the two segments beside it. A stretch with a point at one end only loses its baseline (0) and its converted
    /// values (missing). When a point moves past its neighbour, the segment around its old row stays as it was.
    /// Nothing happens without a sensor column on view, without points, or for rows outside the data.
    void setPoint(std::int32_t toPoint, std::int32_t fromPoint, bool dlt);

    /// Baseline and sap flux of rows `lPoint`..`rPoint` of `column`: a straight line in row index between the readings
    /// at both ends, and 119 * ((B / X) - 1) ^ 1.23 (Granier 1985), in grams per square metre and second. Nothing
    /// happens when either end is missing. Does not mark the record as changed: its callers do, once.
    void turboCalc(std::int32_t column, std::int32_t lPoint, std::int32_t rPoint);

    /// Straight line over the selection in the layer on view, missing ends taken as the numbers they are. A selection
    /// of one row beeps. On readings under `Turbo`, the points inside the selection go.
    void interpolate();

private:
    [[nodiscard]] bool canSetPoints() const;
    [[nodiscard]] std::optional<std::int32_t> pointBelow(std::int32_t row) const;
    [[nodiscard]] std::optional<std::int32_t> pointAbove(std::int32_t row) const;
    void recomputeAround(std::int32_t point);
    void recomputeAcross(std::int32_t gap);
    void clearRows(std::int32_t first, std::int32_t last);
    void dropPointsInSelection();

    Window& m_window;
};

} // namespace tarvelint
