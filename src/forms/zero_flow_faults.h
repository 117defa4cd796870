// SPDX-License-Identifier: MIT
#pragma once

#include "window/command_failure.h"
#include "window/record.h"

#include <cstdint>
#include <string>

/// What can be wrong with the wish for a pre-process, in the words of a dialog or a command line.
namespace tarvelint {

/// The 0-based column that a typed number names: its leading number less one, rounded half to even.
/// @param what  "VPD" or "PAR"
/// @throws CommandFailure when the record has no such column
[[nodiscard]] std::int16_t columnIndex(const std::string& typed, const char* what, const Record& record);

/// Every column is a parameter.
[[nodiscard]] CommandFailure noSensorColumn();

} // namespace tarvelint
