// SPDX-License-Identifier: MIT
#pragma once

#include "data/file_format.h"
#include "data/setting_defaults.h"
#include "window/conversion_settings.h"

#include <cstdint>
#include <optional>
#include <ostream>
#include <string>

namespace tarvelint {

/// The equation of a command line, repaired once.
struct BatchEquation {
    std::string typed;
    std::optional<std::string> repaired; ///< none: there is no repair, and it is taken as typed

    explicit BatchEquation(std::string text);
    /// As it is read.
    [[nodiscard]] const std::string& text() const { return repaired ? *repaired : typed; }
};

/// What a command line asks for; the defaults are those of the column set-up. Columns are 1-based.
struct BatchOptions {
    std::string input; ///< file names are the system's bytes
    std::string output;
    FileType inputType = FileType::comma;
    FileType outputType = FileType::comma;
    std::int16_t vpdColumn = defaults::kVpdColumn.as<std::int16_t>();
    std::int16_t parColumn = defaults::kParColumn.as<std::int16_t>();
    ZeroFlowSettings zeroFlow;             ///< limits and lull length; its columns are not set here
    std::optional<BatchEquation> equation; ///< none: the fixed conversion
    bool baselineIsHigh = true;
    std::optional<std::string> parameters; ///< columns that are not converted; none: 1, 2, VPD and PAR
    FileContents choices;
    std::int32_t blank = defaults::kBlank.as<std::int32_t>();
    bool quiet = false;

    /// With the limits and the lull length of the column set-up.
    BatchOptions();
};

/// Exit statuses of the batch program.
enum ExitStatus : int { kDone = 0, kDataFault = 1, kWrongCommandLine = 2 };

/// The options, or the status to exit with at once (after --help, --version or a fault that was explained on `err`).
struct ParsedCommandLine {
    std::optional<BatchOptions> options;
    int exitStatus = kDone;
};

[[nodiscard]] ParsedCommandLine parseCommandLine(int argc, const char* const* argv, std::ostream& out,
                                                 std::ostream& err);

} // namespace tarvelint
