// SPDX-License-Identifier: MIT
#pragma once

#include "batch/options.h"
#include "window/window.h"

#include <ostream>

namespace tarvelint {

/// The main job without a window: reads, lays the zero-flow baselines, converts, saves. The summary, one line a sensor,
/// goes to `out`; messages and, with `terminal`, progress go to `err`.
/// @return kDone or kDataFault
[[nodiscard]] int runBatch(const BatchOptions& options, const Environment& environment, std::ostream& out,
                           std::ostream& err, bool terminal);

} // namespace tarvelint
