// SPDX-License-Identifier: MIT
#pragma once

#include "window/window.h"

#include <cstdint>
#include <optional>

namespace tarvelint {

/// Last row (0-based) that an area of `width` plot units shows when `first` stands at its left edge: halves to even,
/// never past the record. Less than `first` when no row is visible.
[[nodiscard]] std::int32_t lastVisibleRow(float width, std::int16_t zoomFactor, std::int32_t first, std::int32_t lines);

/// Plot units from the left edge to a row; negative for rows before `first`.
[[nodiscard]] float rowX(std::int32_t row, std::int32_t first, std::int16_t zoomFactor);

/// How an area's height shows values: `lo` at 95 % of it, `hi` about 4 % from the top.
struct ValueScale {
    double lo = 0;
    double hi = 0;
    double height = 0; ///< plot units
    double yScale = 0; ///< plot units per data unit
    double yBase = 0;  ///< y of the value 0
};

/// The scale for a range; none when the range is not positive or too wide or narrow to be drawn.
[[nodiscard]] std::optional<ValueScale> valueScale(double lo, double hi, float height);

/// Plot units from the top to a value, at most 64000 either way so that a far value is drawn and not lost.
[[nodiscard]] float valueY(const ValueScale& scale, double value);

/// Lowest and highest reading; |blank| and -|blank| stand where the search found none.
struct Extremes {
    double lowest = 0;
    double highest = 0;
};

/// Extremes of the rows `first` to `last` (at least one) of a column, missing readings left out.
[[nodiscard]] Extremes visibleExtremes(ColumnView<const double> readings, std::int32_t first, std::int32_t last,
                                       std::int32_t blank);

/// Draws the two plot areas: the main one (0) with the column being worked on, lulls and baseline points, and the
/// companion (1) with the readings of another column and the reference line. Keeps nothing between calls.
class PlotRendering {
public:
    explicit PlotRendering(Window& window) : m_window(window) {}

    /// Draws area `index` over what it shows, or erases it first. Leaves `yScale` and, with automatic range, the texts
    /// of the range boxes behind. An area that is disabled or has no column chosen is left alone; one without a
    /// visible row or a positive range is erased.
    void redraw(int index, bool clear);

private:
    struct Frame {
        Surface& area;
        int index;
        std::int32_t col;
        int layer;
        std::int32_t first;
        std::int32_t last;
        ValueScale scale;
    };
    [[nodiscard]] bool hasVisibleRow(const Frame& frame) const;
    void writeAutomaticRange(const Frame& frame);
    [[nodiscard]] std::optional<ValueScale> readRange(const Frame& frame) const;
    void drawLayers(const Frame& frame);
    void drawLullBands(const Frame& frame);
    void drawReferenceLine(const Frame& frame);
    void drawBasePoints(const Frame& frame);
    void drawHighlight(const Frame& frame);
    [[nodiscard]] float startAtPointBefore(const Frame& frame);
    void drawLineToPointAfter(const Frame& frame);
    void drawTrace(const Frame& frame);
    [[nodiscard]] bool isPoint(std::int32_t row) const;
    [[nodiscard]] float x(const Frame& frame, std::int32_t row) const;
    [[nodiscard]] float traceY(const Frame& frame, std::int32_t row) const;
    [[nodiscard]] Color traceColor(std::int32_t row) const;

    Window& m_window;
};

} // namespace tarvelint
