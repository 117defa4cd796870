// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>

/// Rows and values in plot units and back: what drawing and the pointer share. Rows are 0-based; plot units run from an
/// area's top left corner, x to the right and y down.
namespace tarvelint {

/// Last row that an area of `width` plot units shows when `first` stands at its left edge: halves to even, never past
/// the record. Less than `first` when no row is visible.
[[nodiscard]] std::int32_t lastVisibleRow(float width, std::int16_t zoomFactor, std::int32_t first, std::int32_t lines);

/// Plot units from the left edge to a row; negative for rows before `first`.
[[nodiscard]] float rowX(std::int32_t row, std::int32_t first, std::int16_t zoomFactor);

/// The row at `x`, rounded half to even after `first` is added; it may lie beside the record.
/// @throws NumericOverflow for a row that does not fit 32 bits
[[nodiscard]] std::int32_t rowAt(float x, std::int32_t first, std::int16_t zoomFactor);

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

/// The value at `y` of an area whose range begins at `lo`: `valueY` backwards, as far as 32 bits tell.
[[nodiscard]] double valueAt(float y, double lo, float height, double yScale);

} // namespace tarvelint
