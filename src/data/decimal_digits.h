// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace tarvelint {

/// Significant digits of a number's general text.
inline constexpr int kSignificantDigits = 15;

/// A magnitude as exactly 15 decimal digits: `digits` times ten to the power of (`exponent` - 14), so
/// `exponent` is that of the first digit.
struct Decimal {
    std::uint64_t digits = 0;
    int exponent = 0;
};

/// The magnitude rounded to 15 significant digits, ties of its exact binary value to even.
/// @param magnitude finite and above 0
[[nodiscard]] Decimal roundedDecimal(double magnitude);

/// The shortest digits that read back as the same 32-bit float, filled up with zeros.
/// @param magnitude finite and above 0
[[nodiscard]] Decimal shortestDecimal(float magnitude);

} // namespace tarvelint
