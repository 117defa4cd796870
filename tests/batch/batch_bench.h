// SPDX-License-Identifier: MIT
#pragma once

#include "batch/batch_run.h"
#include "batch/options.h"
#include "support/doubles.h"

#include <gtest/gtest.h>

#include <optional>
#include <sstream>
#include <vector>

namespace tarvelint::test {

/// What the batch program runs on, and what it has said.
class BatchBench : public testing::Test {
protected:
    MemorySettings settings;
    FixedStyle style;
    MemoryFiles files;
    ManualClock clock;
    std::ostringstream out;
    std::ostringstream err;

    int run(const BatchOptions& options, bool terminal = false)
    {
        return runBatch(options, {files, style, clock}, out, err, terminal);
    }
    /// The command line that reads in.csv and writes out.csv with these arguments; none when it is refused.
    std::optional<BatchOptions> optionsOf(std::vector<const char*> arguments, const std::vector<const char*>& more)
    {
        arguments.insert(arguments.begin(), {"tarvelint-batch", "in.csv", "-o", "out.csv"});
        arguments.insert(arguments.end(), more.begin(), more.end());
        return parseCommandLine(static_cast<int>(arguments.size()), arguments.data(), out, err).options;
    }
};

} // namespace tarvelint::test
