// SPDX-License-Identifier: MIT
#include "batch/sensor_report.h"

#include "data/numbers.h"

#include <algorithm>
#include <optional>

namespace tarvelint {

namespace {

std::string lowestOf(const Record& record, std::int32_t column)
{
    std::optional<double> lowest;
    for (std::int32_t row = 0; row < record.lines; ++row) {
        const double reading = record.values(kUnconverted, column, row);
        if (!record.isBlank(reading)) lowest = std::min(lowest.value_or(reading), reading);
    }
    return lowest ? generalText(*lowest) : "missing throughout";
}

} // namespace

RowSpan laidRows(const Sensors& sensors, std::int32_t sensor)
{
    const auto first = sensors.pointFrom(sensor, 0);
    const auto last = sensors.pointUpTo(sensor, sensors.lines() - 1);
    return first && *last > *first ? RowSpan{*first, *last} : RowSpan{};
}

std::vector<SensorCount> countRows(const Record& record, const Sensors& sensors)
{
    std::vector<SensorCount> counts(static_cast<std::size_t>(sensors.count()));
    std::vector<RowSpan> laid;
    for (std::int32_t sensor = 0; sensor < sensors.count(); ++sensor) laid.push_back(laidRows(sensors, sensor));
    for (std::int32_t row = 0; row < record.lines; ++row) {
        for (std::size_t i = 0; i < counts.size(); ++i) {
            const std::int32_t sensor = static_cast<std::int32_t>(i);
            const std::int32_t column = sensors.column(sensor);
            const bool isLaid = row >= laid[i].first && row <= laid[i].last;
            if (sensors.isPoint(sensor, row)) ++counts[i].points;
            if (record.isBlank(record.values(kUnconverted, column, row)))
                ++counts[i].missing;
            else if (isLaid && !record.isBlank(record.values(kConverted, column, row)))
                ++counts[i].converted;
            else
                ++counts[i].left;
        }
    }
    return counts;
}

std::int64_t countPoints(const Sensors& sensors, std::int32_t sensor)
{
    std::int64_t points = 0;
    for (auto row = sensors.pointFrom(sensor, 0); row; row = sensors.pointFrom(sensor, *row + 1)) ++points;
    return points;
}

bool isConverted(const Record& record, const Sensors& sensors, std::int32_t sensor)
{
    const std::int32_t column = sensors.column(sensor);
    const RowSpan laid = laidRows(sensors, sensor);
    for (std::int32_t row = laid.first; row <= laid.last; ++row)
        if (!record.isBlank(record.values(kUnconverted, column, row)) &&
            !record.isBlank(record.values(kConverted, column, row)))
            return true;
    return false;
}

std::string summaryLine(const SensorCount& count)
{
    return plainText(count.points) + " points, " + plainText(count.converted) + " rows converted, " +
           plainText(count.left) + " readings left unconverted, " + plainText(count.missing) + " rows missing";
}

std::string lowestBesideLimits(const Record& record, const ZeroFlowSettings& zeroFlow)
{
    return "the lowest VPD is " + lowestOf(record, zeroFlow.vpdCol) + " (limit " + float32Text(zeroFlow.vpdLimit) +
           "), the lowest PAR " + lowestOf(record, zeroFlow.parCol) + " (limit " + float32Text(zeroFlow.parLimit) + ")";
}

} // namespace tarvelint
