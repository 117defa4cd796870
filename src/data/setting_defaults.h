// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace tarvelint {

/// A default that is a number: as the text that the store gives for an absent key, and as what that text says.
struct DefaultNumber {
    std::string_view text;
    double value = 0;

    /// @param plain  digits with at most one "."
    explicit consteval DefaultNumber(std::string_view plain) : text(plain)
    {
        double scale = 0; // 0 before the point
        double digits = 0;
        for (const char c : plain) {
            if (c != '.') digits = digits * 10 + (c - '0');
            scale = c == '.' ? 1 : scale * 10;
        }
        value = scale == 0 ? digits : digits / scale;
    }
    /// The value in the width in which it is kept.
    template <class Number>
    [[nodiscard]] constexpr Number as() const
    {
        return static_cast<Number>(value);
    }
};

/// What limits, columns and missing values are until the user sets them otherwise. Columns are 1-based.
namespace defaults {

inline constexpr DefaultNumber kDate{"1"};
inline constexpr DefaultNumber kTime{"2"};
inline constexpr DefaultNumber kBlank{"99999"};
inline constexpr DefaultNumber kVpdColumn{"11"};
inline constexpr DefaultNumber kParColumn{"3"};
inline constexpr DefaultNumber kVpdLimit{"0.05"};

// These two are given twice: whoever never saved options sees 0.05 and 4 in the options dialog, and 0.01 and 3 in the
// column set-up.
inline constexpr DefaultNumber kParLimit{"0.05"};
inline constexpr DefaultNumber kParLimitInColumnSetup{"0.01"};
inline constexpr DefaultNumber kLullTime{"4"};
inline constexpr DefaultNumber kLullTimeInColumnSetup{"3"};

} // namespace defaults

} // namespace tarvelint
