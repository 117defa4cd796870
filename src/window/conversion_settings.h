// SPDX-License-Identifier: MIT
#pragma once

#include "data/setting_defaults.h"

#include <cstdint>
#include <string>

namespace tarvelint {

/// By which readings zero flow is believed: vapour pressure deficit (VPD) and photosynthetically active radiation (PAR)
/// both at or below their limits for long enough.
struct ZeroFlowSettings {
    std::int16_t vpdCol = -1; ///< 0-based once the column set-up has set it
    std::int16_t parCol = -1; ///< 0-based once the column set-up has set it
    float vpdLimit = defaults::kVpdLimit.as<float>();
    float parLimit = defaults::kParLimit.as<float>();
    std::int32_t lullTime = defaults::kLullTime.as<std::int32_t>(); ///< rows of a lull before its rows count
};

/// How a window turns readings into sap flux.
struct ConversionSettings {
    std::string equation;       ///< in the reading X and the baseline B, as `FormulaBox` shows it
    bool baselineIsHigh = true; ///< readings above their baseline count as the baseline, else those below it
    ZeroFlowSettings zeroFlow;
};

} // namespace tarvelint
