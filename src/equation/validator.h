// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace tarvelint {

/// Repairs an equation, in place, into what the evaluator reads: characters outside its alphabet go, implied
/// multiplications are written out ("2X" becomes "2*X"), and an operator or "(" directly before a ")" goes. Nothing is
/// refused, and parentheses are not matched. An empty equation, and one in which a ")" comes to stand first, stays as
/// it was typed.
/// @return the repaired text
std::string evaluate(std::string& equation);

} // namespace tarvelint
