// SPDX-License-Identifier: MIT
#include "baseline/zero_flow.h"

#include "window/window.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <vector>

namespace tarvelint {

namespace {

/// A point stands at least so many rows before the next one.
constexpr std::int64_t kPointSpacing = 25;
/// Rows of one block of the "Baseline" button: a day of half-hourly readings.
constexpr std::int32_t kBlockRows = 48;
/// Rows converted at a time: with a few dozen columns they stay in a processor's second cache.
constexpr std::int32_t kCacheRows = 1024;

using Readings = ColumnView<const double>;

/// The VPD and PAR readings of a record, against the limits of a calm, dark row.
class LullTest {
public:
    explicit LullTest(const DataSet& data)
        : m_vpd(data.values.column(kUnconverted, data.vpdCol)), m_par(data.values.column(kUnconverted, data.parCol)),
          m_vpdLimit(data.vpdLimit), m_parLimit(data.parLimit), m_blank(data.blank)
    {
    }
    /// One condition is enough to open a run, and a missing reading is a number like any other here; going on needs
    /// both conditions and both readings. The difference is deliberate.
    [[nodiscard]] bool opens(std::ptrdiff_t row) const { return m_vpd[row] <= m_vpdLimit || m_par[row] <= m_parLimit; }
    [[nodiscard]] bool continues(std::ptrdiff_t row) const
    {
        return m_vpd[row] <= m_vpdLimit && m_vpd[row] != m_blank && m_par[row] <= m_parLimit && m_par[row] != m_blank;
    }

private:
    Readings m_vpd;
    Readings m_par;
    double m_vpdLimit; // 32-bit limits widened: a reading of 0.05 is within 0.05F, one of 0.01 is not within 0.01F
    double m_parLimit;
    double m_blank;
};

/// Flags the rows of the run that row `start` opens; returns the row that broke it, or the last row.
std::int64_t flagRun(DataSet& data, const LullTest& lull, std::int64_t start)
{
    std::int64_t r = start;
    std::int64_t count = 1;
    while (r < data.lines - 1) {
        ++r;
        if (!lull.continues(r)) break;
        ++count;
        if (count > data.lullTime) data.lullFlags[static_cast<std::size_t>(r)] = true;
    }
    return r;
}

/// The 32-bit reference a candidate's neighbours are compared with.
float reference(double reading)
{
    constexpr float kInfinity = std::numeric_limits<float>::infinity();
    if (reading > std::numeric_limits<float>::max()) return kInfinity;
    if (reading < std::numeric_limits<float>::lowest()) return -kInfinity;
    return static_cast<float>(reading);
}

/// What the rows after a candidate for a baseline point say about it.
struct LookAhead {
    std::int64_t row = 0; ///< the candidate; the higher reading; the last row when the data end within reach
    bool higher = false;
};

LookAhead lookAhead(const DataSet& data, Readings readings, std::int64_t candidate)
{
    // Rounded to 32 bits, so a reading may exceed an equal one by the rounding; missing readings count as high.
    const double ref = reference(readings[candidate]);
    for (std::int64_t j = candidate + 1; j < candidate + kPointSpacing; ++j) {
        // The point then goes to the last row, not to the candidate: deliberate.
        if (j > data.lines - 1) return {data.lines - 1, false};
        if (data.lullFlags[static_cast<std::size_t>(j)] && readings[j] > ref) return {j, true};
    }
    return {candidate, false};
}

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

} // namespace

void ZeroFlow::preProcess()
{
    DataSet& data = m_window.data;
    if (data.lines == 0 || !data.hasColumn(data.vpdCol) || !data.hasColumn(data.parCol)) return;
    const LullTest lull(data);
    const std::int64_t stopRow = std::int64_t{data.lines} - data.lullTime - 1;
    std::int64_t r = 0;
    while (r < data.lines) {
        if (lull.opens(r)) {
            // The row that broke a run is never itself tried as a start.
            r = flagRun(data, lull, r) + 1;
        } else {
            ++r;
            // Only a row reached this way ends the search early; a run may jump over it.
            if (r == stopRow) return;
        }
    }
}

void ZeroFlow::getBase()
{
    m_window.setStatus(1, "Determining baseline points...");
    m_window.ui.paintStatus();
    m_window.sensors = std::max(m_window.sensors, 0);
    m_window.basePoints.allocate(m_window.sensors, m_window.data.lines);
    listSensorColumns();
    for (std::int32_t i = 0; i < m_window.sensors; ++i) placePoints(i);
    m_window.setStatus(1, "Converting all data...");
    m_window.ui.paintStatus();
    convertBetweenPoints();
    m_window.markChanged();
}

void ZeroFlow::listSensorColumns()
{
    auto& sensorCols = m_window.sensorCols;
    sensorCols.assign(static_cast<std::size_t>(m_window.sensors), 0);
    std::size_t found = 0;
    for (std::int32_t k = 1; k <= m_window.data.columns && found < sensorCols.size(); ++k)
        if (!m_window.isParameterColumn(k - 1)) sensorCols[found++] = k;
}

void ZeroFlow::placePoints(std::int32_t sensor)
{
    const DataSet& data = m_window.data;
    const std::int32_t column = m_window.sensorColumn(sensor);
    if (!data.hasColumn(column) || data.lines == 0) return;
    const Readings readings = data.values.column(kUnconverted, column);
    std::int64_t r = 0;
    while (r < data.lines) {
        if (!data.lullFlags[static_cast<std::size_t>(r)]) {
            ++r;
            continue;
        }
        const LookAhead found = lookAhead(data, readings, r);
        r = found.row;
        if (found.higher) continue;
        if (data.isBlank(readings[r])) {
            ++r;
        } else {
            m_window.basePoints.set(sensor, static_cast<std::int32_t>(r), true);
            r += kPointSpacing;
        }
    }
}

void ZeroFlow::convertBetweenPoints()
{
    // The sensors of a row are neighbours in memory. Taken block of rows by block of rows, all sensors at a time, a
    // record larger than the cache is fetched once and not once per sensor.
    std::vector<std::int32_t> previous(m_window.sensorCols.size(), -1);
    for (std::int64_t block = 0; block < m_window.data.lines; block += kCacheRows) {
        const auto end = static_cast<std::int32_t>(std::min<std::int64_t>(block + kCacheRows, m_window.data.lines));
        for (std::int32_t i = 0; i < m_window.sensors; ++i)
            convertUpTo(i, static_cast<std::int32_t>(block), end, previous[static_cast<std::size_t>(i)]);
    }
}

void ZeroFlow::convertUpTo(std::int32_t sensor, std::int32_t first, std::int32_t end, std::int32_t& previous)
{
    const std::int32_t column = m_window.sensorColumn(sensor);
    if (!m_window.data.hasColumn(column)) return;
    for (std::int32_t q = first; q < end; ++q) {
        if (!m_window.basePoints(sensor, q)) continue;
        if (previous >= 0) m_window.turboCalc(column, previous, q);
        previous = q;
    }
}

void ZeroFlow::baseButton_Click()
{
    const std::int32_t column = m_window.curCol;
    if (!m_window.data.hasColumn(column) || m_window.data.lines == 0) return;
    // The setting is read and left at that: a block is 48 rows whatever the time column.
    static_cast<void>(readSetting(m_window.env.settings, Setting::Time));
    m_window.selStart = 0;
    m_window.selEnd = m_window.data.lines - 1;
    m_window.undoSave(column);
    drawBlockMaxima(column);
    m_window.markChanged();
    m_window.redraw(0, true);
    m_window.redraw(1, true);
    m_window.updateCues(); // the selection has moved
}

void ZeroFlow::drawBlockMaxima(std::int32_t column)
{
    const DataSet& data = m_window.data;
    std::optional<std::int32_t> anchor;
    if (!data.isBlank(data.values(kUnconverted, column, 0))) anchor = 0;
    for (std::int64_t block = 0; block < data.lines; block += kBlockRows) {
        const std::int64_t blockEnd = std::min<std::int64_t>(block + kBlockRows, data.lines) - 1;
        const auto maximum = highestRow(data, column, block, blockEnd);
        if (!maximum) continue;
        drawLine(column, anchor.value_or(*maximum), *maximum);
        anchor = maximum;
    }
}

void ZeroFlow::drawLine(std::int32_t column, std::int32_t from, std::int32_t to)
{
    DataSet& data = m_window.data;
    const auto readings = data.values.column(kUnconverted, column);
    const auto baseline = data.values.column(kBaseline, column);
    const double slope = from == to ? 0 : (readings[to] - readings[from]) / (static_cast<double>(to) - from);
    double v = readings[from];
    for (std::ptrdiff_t r = from; r <= to; ++r) {
        baseline[r] = data.storable(v);
        v = v + slope;
    }
}

} // namespace tarvelint
