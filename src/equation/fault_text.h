// SPDX-License-Identifier: MIT
#pragma once

#include "equation/equation.h"

#include <cstdint>
#include <string>

/// Faults of an equation in words.
namespace tarvelint {

/// What went wrong, without its end of line: "Division by Zero! ".
[[nodiscard]] std::string faultHeading(const Fault& fault);
/// What it came from: the divisor, or base and exponent.
[[nodiscard]] std::string faultCause(const Fault& fault);
/// The question whether to go on after a fault in row `row0`, for a message box.
[[nodiscard]] std::string faultPrompt(const Fault& fault, std::int32_t row0);

} // namespace tarvelint
