// SPDX-License-Identifier: MIT
#pragma once

#include "window/conversion_settings.h"
#include "window/record.h"
#include "window/sensors.h"

#include <cstdint>
#include <functional>

/// Finds zero flow without the user: sap stands still in long calm, dark spells, when vapour pressure deficit (VPD) and
/// photosynthetically active radiation (PAR) are both low, and a probe then reads its highest.
namespace tarvelint {

/// Sets `lullFlags` on the rows of a lull from the `lullTime`-th after its first row on; never clears one. When the
/// column of VPD or PAR does not exist no row is flagged.
void preProcess(DataSet& data, const ZeroFlowSettings& settings);

/// Makes every column that is no parameter a sensor without points, places one point at the highest reading of each
/// lull, and computes baseline and converted values between them.
/// @param status  is told what is being done
/// @return how many points were placed, over all sensors
std::int32_t getBase(Record& record, Sensors& sensors, const std::function<void(const char*)>& status);

/// Finds zero flow, and lays the baselines on it: `preProcess`, then `getBase`.
/// @return how many points were placed, over all sensors
std::int32_t layBaselines(Record& record, Sensors& sensors, const ZeroFlowSettings& settings,
                          const std::function<void(const char*)>& status);

} // namespace tarvelint
