// SPDX-License-Identifier: MIT
#pragma once

#include "batch/options.h"
#include "window/ports.h"

#include <ostream>

namespace tarvelint {

/// What a run needs from the machine; all outlive it.
struct BatchMachine {
    Files& files;
    SystemStyle& style;
    Clock& clock;
};

/// Reads, finds zero flow, lays the baselines, converts and writes one file. Summary lines go to `out`, everything else
/// to `err`; progress is shown only on a `terminal`.
/// @return the exit status: a fault in the data, or a file in which no sensor was converted, is `kDataFault`
[[nodiscard]] int runBatch(const BatchOptions& options, const BatchMachine& machine, std::ostream& out,
                           std::ostream& err, bool terminal);

} // namespace tarvelint
