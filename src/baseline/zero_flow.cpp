// SPDX-License-Identifier: MIT
#include "baseline/zero_flow.h"

#include "baseline/baseline_points.h"

#include <algorithm>
#include <limits>
#include <vector>

namespace tarvelint {

namespace {

/// A point stands at least so many rows before the next one.
constexpr std::int64_t kPointSpacing = 25;
/// Rows converted at a time: with a few dozen columns they stay in a processor's second cache.
constexpr std::int32_t kCacheRows = 1024;

using Readings = ColumnView<const double>;

/// The VPD and PAR readings of a record, against the limits of a calm, dark row.
class LullTest {
public:
    LullTest(const DataSet& data, const ZeroFlowSettings& settings)
        : m_vpd(data.values.column(kUnconverted, settings.vpdCol)),
          m_par(data.values.column(kUnconverted, settings.parCol)), m_vpdLimit(settings.vpdLimit),
          m_parLimit(settings.parLimit), m_blank(data.blank)
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
std::int64_t flagRun(DataSet& data, const LullTest& lull, std::int64_t start, std::int32_t lullTime)
{
    std::int64_t r = start;
    std::int64_t count = 1;
    while (r < data.lines - 1) {
        ++r;
        if (!lull.continues(r)) break;
        ++count;
        if (count > lullTime) data.lullFlags[static_cast<std::size_t>(r)] = true;
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

/// Places the points of one sensor, each at the highest reading of its lull.
std::int32_t placePoints(const DataSet& data, Sensors& sensors, std::int32_t sensor)
{
    const Readings readings = data.values.column(kUnconverted, sensors.column(sensor));
    std::int32_t placed = 0;
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
            sensors.setPoint(sensor, static_cast<std::int32_t>(r), true);
            ++placed;
            r += kPointSpacing;
        }
    }
    return placed;
}

/// Converts the segments of a sensor that end in rows `first`..`end`-1; `previous` is the point before them, -1 none.
void convertUpTo(DataSet& data, const Sensors& sensors, std::int32_t sensor, std::int32_t first, std::int32_t end,
                 std::int32_t& previous)
{
    for (std::int32_t q = first; q < end; ++q) {
        if (!sensors.isPoint(sensor, q)) continue;
        if (previous >= 0) turboCalc(data, sensors.column(sensor), previous, q);
        previous = q;
    }
}

void convertBetweenPoints(DataSet& data, const Sensors& sensors)
{
    // The sensors of a row are neighbours in memory. Taken block of rows by block of rows, all sensors at a time, a
    // record larger than the cache is fetched once and not once per sensor.
    std::vector<std::int32_t> previous(static_cast<std::size_t>(sensors.count()), -1);
    for (std::int64_t block = 0; block < data.lines; block += kCacheRows) {
        const auto end = static_cast<std::int32_t>(std::min<std::int64_t>(block + kCacheRows, data.lines));
        for (std::int32_t i = 0; i < sensors.count(); ++i)
            convertUpTo(data, sensors, i, static_cast<std::int32_t>(block), end, previous[static_cast<std::size_t>(i)]);
    }
}

} // namespace

void preProcess(DataSet& data, const ZeroFlowSettings& settings)
{
    if (data.lines == 0 || !data.hasColumn(settings.vpdCol) || !data.hasColumn(settings.parCol)) return;
    const LullTest lull(data, settings);
    const std::int64_t stopRow = std::int64_t{data.lines} - settings.lullTime - 1;
    std::int64_t r = 0;
    while (r < data.lines) {
        if (lull.opens(r)) {
            // The row that broke a run is never itself tried as a start.
            r = flagRun(data, lull, r, settings.lullTime) + 1;
        } else {
            ++r;
            // Only a row reached this way ends the search early; a run may jump over it.
            if (r == stopRow) return;
        }
    }
}

std::int32_t getBase(Record& record, Sensors& sensors, const std::function<void(const char*)>& status)
{
    status("Determining baseline points...");
    sensors.assign(record.sensorColumns(), record.lines);
    std::int32_t placed = 0;
    for (std::int32_t i = 0; i < sensors.count(); ++i) placed += placePoints(record, sensors, i);
    status("Converting all data...");
    convertBetweenPoints(record, sensors);
    return placed;
}

std::int32_t layBaselines(Record& record, Sensors& sensors, const ZeroFlowSettings& settings,
                          const std::function<void(const char*)>& status)
{
    preProcess(record, settings);
    return getBase(record, sensors, status);
}

} // namespace tarvelint
