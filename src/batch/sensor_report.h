// SPDX-License-Identifier: MIT
#pragma once

#include "window/conversion_settings.h"
#include "window/record.h"
#include "window/sensors.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tarvelint {

/// Both ends belong to it; empty when `last` is below `first`.
struct RowSpan {
    std::int32_t first = 0;
    std::int32_t last = -1;
};

/// From a sensor's first point to its last: where the zero-flow detection has laid a baseline, which takes two points.
/// Elsewhere a file that was converted before may hold another one.
[[nodiscard]] RowSpan laidRows(const Sensors& sensors, std::int32_t sensor);

/// What was done to one sensor; rows are counted once, as converted, left or missing.
struct SensorCount {
    std::int64_t points = 0;
    std::int64_t converted = 0;
    std::int64_t left = 0;    ///< readings without a converted value of this run
    std::int64_t missing = 0; ///< rows without a reading
};

/// One for each sensor, from one pass over the record.
[[nodiscard]] std::vector<SensorCount> countRows(const Record& record, const Sensors& sensors);

[[nodiscard]] std::int64_t countPoints(const Sensors& sensors, std::int32_t sensor);
/// Whether a sensor has a converted value of this run; looks no further than the first.
[[nodiscard]] bool isConverted(const Record& record, const Sensors& sensors, std::int32_t sensor);

/// A line of the summary, without the sensor's label.
[[nodiscard]] std::string summaryLine(const SensorCount& count);

/// The lowest VPD and PAR of a record beside their limits: why too few rows are calm and dark.
[[nodiscard]] std::string lowestBesideLimits(const Record& record, const ZeroFlowSettings& zeroFlow);

} // namespace tarvelint
