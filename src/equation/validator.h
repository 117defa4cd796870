// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tarvelint {

/// An equation as `Equation` reads it; nothing when a ")" comes to stand first, for then there is no repair.
[[nodiscard]] std::optional<std::string> repairedEquation(std::string_view equation);

/// Repairs an equation, in place, into what `Equation` reads: characters outside its alphabet go, implied
/// multiplications are written out ("2X" becomes "2*X"), and an operator or "(" directly before a ")" goes. Nothing is
/// refused, and parentheses are not matched. An empty equation, and one in which a ")" comes to stand first, stays as
/// it was typed.
/// @return the repaired text
std::string evaluate(std::string& equation);

} // namespace tarvelint
