// SPDX-License-Identifier: MIT
#include "data/decimal_digits.h"

#include <array>
#include <bit>
#include <charconv>
#include <limits>

namespace tarvelint {

namespace {

__extension__ using Wide = unsigned __int128;

static_assert(std::numeric_limits<double>::is_iec559 && std::numeric_limits<double>::digits == 53);

constexpr std::uint64_t kFirstWith15Digits = 100'000'000'000'000;
constexpr std::uint64_t kFirstWith16Digits = 10 * kFirstWith15Digits;

/// A power of ten: `significand` times two to the power of `exponent`, the significand's top bit set.
struct Power {
    std::uint64_t significand = 0;
    int exponent = 0;
};

/// Every power of ten that brings a normal double to 15 or 16 digits before the point.
constexpr int kLeastPower = -294;
constexpr int kGreatestPower = 322;

/// 128 bits of a power of ten, the top bit set; multiplied or divided by ten and cut off again.
class WidePower {
public:
    constexpr void timesTen()
    {
        // 5/4 of the significand, and three more in the exponent: 10 = 5/4 * 2^3.
        const Wide quarter = m_significand >> 2U;
        const bool carries = m_significand > ~Wide{0} - quarter;
        m_significand += quarter;
        if (carries) m_significand = (m_significand >> 1U) | (Wide{1} << 127U);
        m_exponent += carries ? 4 : 3;
    }
    constexpr void byTen()
    {
        Wide quotient = m_significand / 10;
        Wide remainder = m_significand % 10;
        for (; (quotient >> 127U) == 0; --m_exponent) {
            remainder *= 2;
            quotient = quotient * 2 + remainder / 10;
            remainder %= 10;
        }
        m_significand = quotient;
    }
    /// Each step loses less than 2^-126 of the value, so after 322 steps the first 64 bits are those of the
    /// exact power or one less: never too large, and too small by less than 1 + 2^-50 units.
    [[nodiscard]] constexpr Power rounded() const
    {
        return {static_cast<std::uint64_t>(m_significand >> 64U), m_exponent + 64};
    }

private:
    Wide m_significand = Wide{1} << 127U;
    int m_exponent = -127;
};

using Powers = std::array<Power, kGreatestPower - kLeastPower + 1>;

constexpr Powers kPowers = [] {
    Powers powers{};
    WidePower up;
    for (int power = 0; power <= kGreatestPower; ++power, up.timesTen())
        powers[static_cast<std::size_t>(power - kLeastPower)] = up.rounded();
    WidePower down;
    for (int power = 0; power >= kLeastPower; --power, down.byTen())
        powers[static_cast<std::size_t>(power - kLeastPower)] = down.rounded();
    return powers;
}();

/// Reads back what std::to_chars wrote in scientific form.
Decimal decimalOf(const char* first, const char* last)
{
    Decimal decimal;
    int count = 0;
    const char* at = first;
    for (; *at != 'e'; ++at) {
        if (*at == '.') continue;
        decimal.digits = decimal.digits * 10 + static_cast<std::uint64_t>(*at - '0');
        ++count;
    }
    for (; count < kSignificantDigits; ++count) decimal.digits *= 10;
    const char* const exponent = at[1] == '+' ? at + 2 : at + 1; // from_chars takes no plus sign
    std::from_chars(exponent, last, decimal.exponent);
    return decimal;
}

Decimal decimalByLibrary(double magnitude)
{
    std::array<char, 32> text{};
    const auto written = std::to_chars(text.data(), text.data() + text.size(), magnitude, std::chars_format::scientific,
                                       kSignificantDigits - 1);
    return decimalOf(text.data(), written.ptr);
}

} // namespace

Decimal roundedDecimal(double magnitude)
{
    const auto bits = std::bit_cast<std::uint64_t>(magnitude);
    const int biased = static_cast<int>(bits >> 52U);
    if (biased == 0) return decimalByLibrary(magnitude); // a denormal
    // magnitude = mantissa * 2^(biased - 1086), the mantissa's top bit set.
    const std::uint64_t mantissa = (bits << 11U) | (std::uint64_t{1} << 63U);
    // 315653 / 2^20 is log10(2) to 5e-7, enough for the integer part of every product here: the true
    // exponent or one less.
    int exponent = ((biased - 1023) * 315653) >> 20;
    for (;; ++exponent) {
        const Power& power = kPowers[static_cast<std::size_t>(kSignificantDigits - 1 - exponent - kLeastPower)];
        // The upper half of the product, in units of 2^-shift; the exact value is less than 2 units above it.
        const auto high = static_cast<std::uint64_t>((Wide{mantissa} * power.significand) >> 64U);
        const int shift = 1086 - 64 - biased - power.exponent;
        std::uint64_t digits = high >> shift;
        if (digits >= kFirstWith16Digits) continue;
        const std::uint64_t half = std::uint64_t{1} << (shift - 1);
        const std::uint64_t fraction = high & (2 * half - 1);
        if (fraction == half || fraction + 1 == half) return decimalByLibrary(magnitude); // too near to a tie
        if (fraction > half) ++digits;
        if (digits == kFirstWith16Digits) return {kFirstWith15Digits, exponent + 1};
        return {digits, exponent};
    }
}

Decimal shortestDecimal(float magnitude)
{
    std::array<char, 32> text{};
    const auto written =
        std::to_chars(text.data(), text.data() + text.size(), magnitude, std::chars_format::scientific);
    return decimalOf(text.data(), written.ptr);
}

} // namespace tarvelint
