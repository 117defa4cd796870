// SPDX-License-Identifier: MIT
#pragma once

#include "window/plot_scale.h"
#include "window/record.h"
#include "window/view.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tarvelint {

/// Lowest and highest reading; |blank| and -|blank| stand where the search found none.
struct Extremes {
    double lowest = 0;
    double highest = 0;
};

/// Extremes of the rows `first` to `last` (at least one) of a column, missing readings left out.
[[nodiscard]] Extremes visibleExtremes(ColumnView<const double> readings, std::int32_t first, std::int32_t last,
                                       std::int32_t blank);

/// What the range boxes of an area read; their texts are the range.
struct RangeTexts {
    std::string bottom;
    std::string top;
    bool operator==(const RangeTexts&) const = default;
};

/// The area that a plot is to be fitted to. Plot units are device-independent pixels.
struct PlotPlace {
    int index = 0;       ///< 0 main area, 1 companion area
    float mainWidth = 0; ///< of the main area, whichever is fitted: both show the same rows
    float height = 0;    ///< of the area itself
};

/// A plot made ready for any surface: which rows of which column and layer, and where its values lie.
struct PlotFit {
    int index = 0;
    std::int32_t col = -1;
    int layer = kUnconverted;
    std::int32_t first = 0; ///< first and last visible row
    std::int32_t last = -1;
    int penWidth = 1;
    std::optional<RangeTexts> automaticRange; ///< what the range boxes are to read; none while the user sets them
    std::optional<ValueScale> scale;          ///< none: there is nothing to draw, and the area is to be erased
};

/// Fits the column chosen for an area (there is one) to its place. Changes nothing.
/// @param boxes     the range that the boxes read, used unless the range is automatic
/// @param grouping  the system's digit grouping sign, for the automatic range's texts
[[nodiscard]] PlotFit fitPlot(const Record& record, const View& view, const PlotPlace& place, const RangeTexts& boxes,
                              std::string_view grouping);

} // namespace tarvelint
