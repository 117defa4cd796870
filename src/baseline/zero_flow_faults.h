// SPDX-License-Identifier: MIT
#pragma once

#include "window/command_failure.h"
#include "window/record.h"

#include <string>

/// What can be wrong with the wish for a pre-process, in the words of a dialog or a command line.
namespace tarvelint {

/// The record has no such column.
/// @param what   "VPD" or "PAR"
/// @param typed  the column as the user gave it
[[nodiscard]] CommandFailure noSuchColumn(const char* what, const std::string& typed, const Record& record);

/// Every column is a parameter.
[[nodiscard]] CommandFailure noSensorColumn();

} // namespace tarvelint
