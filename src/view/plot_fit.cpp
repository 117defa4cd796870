// SPDX-License-Identifier: MIT
#include "view/plot_fit.h"

#include "data/numbers.h"

#include <cmath>
#include <cstdlib>

namespace tarvelint {

namespace {

/// The range is made of the numbers a person would read, 15 digits long.
double asRead(double value)
{
    const double read = leadingNumber(generalText(value));
    return std::isfinite(read) ? read : value;
}

RangeTexts automaticTexts(const Record& record, const PlotFit& fit, std::string_view grouping)
{
    const Extremes found = visibleExtremes(record.values.column(fit.layer, fit.col), fit.first, fit.last, record.blank);
    const auto isLeftOver = [&](double value) {
        return std::abs(value) == std::abs(static_cast<double>(record.blank));
    };
    if (isLeftOver(found.lowest) || isLeftOver(found.highest)) return {"0", "0"};
    return {screenText(found.lowest, grouping), screenText(found.highest, grouping)};
}

} // namespace

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

PlotFit fitPlot(const Record& record, const View& view, const PlotPlace& place, const RangeTexts& boxes,
                std::string_view grouping)
{
    PlotFit fit;
    fit.index = place.index;
    fit.col = view.chosen(place.index);
    fit.layer = place.index == 1 ? static_cast<int>(kUnconverted) : view.curLayer;
    fit.first = view.HScroll1.Value;
    fit.last = lastVisibleRow(place.mainWidth, view.zoomFactor, fit.first, record.lines);
    fit.penWidth = view.zoomLevel + 1;
    if (!record.hasColumn(fit.col) || fit.first < 0 || fit.first > fit.last) return fit; // no row is visible
    if (view.isAutomatic(place.index)) fit.automaticRange = automaticTexts(record, fit, grouping);
    // As typed or shown: of a grouped "1,234.5" only the 1 counts.
    const RangeTexts& range = fit.automaticRange ? *fit.automaticRange : boxes;
    fit.scale = valueScale(leadingNumber(range.bottom), leadingNumber(range.top), place.height);
    return fit;
}

} // namespace tarvelint
