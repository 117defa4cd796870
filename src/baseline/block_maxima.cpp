// SPDX-License-Identifier: MIT
#include "baseline/block_maxima.h"

#include "window/window.h"

#include <algorithm>
#include <optional>

namespace tarvelint {

namespace {

/// A day of half-hourly readings.
constexpr std::int32_t kBlockRows = 48;

using Readings = ColumnView<const double>;

/// The first row with the highest reading of rows `first`..`last`; empty when all are missing.
std::optional<std::int32_t> highestRow(const DataSet& data, std::int32_t column, std::int64_t first, std::int64_t last)
{
    const Readings readings = data.values.column(kUnconverted, column);
    std::optional<std::int32_t> highest;
    for (std::int64_t r = first; r <= last; ++r) {
        if (data.isBlank(readings[r])) continue;
        if (!highest || readings[r] > readings[*highest]) highest = static_cast<std::int32_t>(r);
    }
    return highest;
}

void drawLine(DataSet& data, std::int32_t column, std::int32_t from, std::int32_t to)
{
    const auto readings = data.values.column(kUnconverted, column);
    const auto baseline = data.values.column(kBaseline, column);
    const double slope = from == to ? 0 : (readings[to] - readings[from]) / (static_cast<double>(to) - from);
    double v = readings[from];
    for (std::ptrdiff_t r = from; r <= to; ++r) {
        baseline[r] = data.storable(v);
        v = v + slope;
    }
}

} // namespace

bool drawBlockMaxima(DataSet& data, std::int32_t column)
{
    std::optional<std::int32_t> anchor;
    bool drawn = false;
    if (!data.isBlank(data.values(kUnconverted, column, 0))) anchor = 0;
    for (std::int64_t block = 0; block < data.lines; block += kBlockRows) {
        const std::int64_t blockEnd = std::min<std::int64_t>(block + kBlockRows, data.lines) - 1;
        const auto maximum = highestRow(data, column, block, blockEnd);
        if (!maximum) continue;
        drawLine(data, column, anchor.value_or(*maximum), *maximum);
        drawn = true;
        anchor = maximum;
    }
    return drawn;
}

void BlockMaxima::baseButton_Click()
{
    Record& record = m_window.record;
    View& view = m_window.view;
    const std::int32_t column = view.curCol();
    if (!record.hasColumn(column) || record.lines == 0) return;
    // The setting is read and left at that: a block is 48 rows whatever the time column.
    static_cast<void>(readSetting(m_window.env.settings, Setting::Time));
    view.selStart = 0;
    view.selEnd = record.lines - 1;
    m_window.undoSave(column);
    if (drawBlockMaxima(record, column)) m_window.markChanged();
    m_window.showAll(); // the selection has moved
}

} // namespace tarvelint
