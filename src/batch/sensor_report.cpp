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

SensorCount countRows(const Record& record, const Sensors& sensors, std::int32_t sensor)
{
    const std::int32_t column = sensors.column(sensor);
    const RowSpan laid = laidRows(sensors, sensor);
    SensorCount count;
    for (std::int32_t row = 0; row < record.lines; ++row) {
        if (sensors.isPoint(sensor, row)) ++count.points;
        const bool isLaid = row >= laid.first && row <= laid.last;
        if (record.isBlank(record.values(kUnconverted, column, row)))
            ++count.missing;
        else if (isLaid && !record.isBlank(record.values(kConverted, column, row)))
            ++count.converted;
        else
            ++count.left;
    }
    return count;
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
