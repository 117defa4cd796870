// SPDX-License-Identifier: MIT
#include "data/numbers.h"

#include "data/decimal_digits.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>

namespace tarvelint {

namespace {

constexpr int kMinFixedExponent = -4; ///< below, and from kSignificantDigits on, the exponent form is used

constexpr auto kPairs = [] {
    std::array<std::array<char, 2>, 100> pairs{};
    for (std::size_t i = 0; i < pairs.size(); ++i)
        pairs[i] = {static_cast<char>('0' + i / 10), static_cast<char>('0' + i % 10)};
    return pairs;
}();

void writeFour(char* out, std::uint32_t number)
{
    std::memcpy(out, kPairs[number / 100].data(), 2);
    std::memcpy(out + 2, kPairs[number % 100].data(), 2);
}

void writeEight(char* out, std::uint32_t number)
{
    writeFour(out, number / 10000);
    writeFour(out + 4, number % 10000);
}

/// The digits of a decimal as characters.
class DigitText {
public:
    explicit DigitText(std::uint64_t digits)
    {
        writeEight(m_text.data(), static_cast<std::uint32_t>(digits / 100'000'000)); // a "0" and seven digits
        writeEight(m_text.data() + 8, static_cast<std::uint32_t>(digits % 100'000'000));
        while (m_count > 1 && first()[m_count - 1] == '0') --m_count;
    }
    /// How many digits are left without the zeros at the end, at least 1.
    [[nodiscard]] int count() const { return m_count; }
    /// Puts digits `from` to `to` (exclusive; zeros up to the 15th, then nothing useful) at `out`. A block of fixed
    /// size is copied in one move: what lies beyond `to` is overwritten by what the caller writes next, or ignored.
    char* put(char* out, int from, int to) const
    {
        std::memcpy(out, first() + from, kBlockSize);
        return out + (to - from);
    }

private:
    static constexpr std::size_t kBlockSize = 16;
    [[nodiscard]] const char* first() const { return m_text.data() + 1; }
    std::array<char, 2 * kBlockSize> m_text{};
    int m_count = kSignificantDigits;
};

char* writeExponent(char* out, int exponent)
{
    *out++ = 'E';
    *out++ = exponent < 0 ? '-' : '+';
    const int size = std::abs(exponent);
    if (size < 10) *out++ = '0';
    return std::to_chars(out, out + 4, size).ptr;
}

/// Writes at most 31 characters, whatever lies behind the end it returns included.
char* writeDecimal(char* out, const Decimal& decimal, bool leadingZero)
{
    const DigitText text(decimal.digits);
    const int exponent = decimal.exponent;
    const int whole = exponent + 1;
    if (exponent >= 0 && exponent < kSignificantDigits) {
        out = text.put(out, 0, whole);
        if (text.count() <= whole) return out;
        *out++ = '.';
        return text.put(out, whole, text.count());
    }
    if (exponent < 0 && exponent >= kMinFixedExponent) {
        if (leadingZero) *out++ = '0';
        *out++ = '.';
        out = std::fill_n(out, -whole, '0');
        return text.put(out, 0, text.count());
    }
    out = text.put(out, 0, 1);
    if (text.count() > 1) {
        *out++ = '.';
        out = text.put(out, 1, text.count());
    }
    return writeExponent(out, exponent);
}

char* writeNumber(char* out, double value, bool leadingZero)
{
    if (value == 0) {
        *out++ = '0';
        return out;
    }
    if (std::isnan(value)) return std::copy_n("nan", 3, out); // its sign means nothing
    if (std::isinf(value)) return std::to_chars(out, out + kNumberTextRoom, value).ptr;
    if (value < 0) *out++ = '-';
    return writeDecimal(out, roundedDecimal(std::abs(value)), leadingZero);
}

std::string grouped(std::string_view digits, std::string_view grouping)
{
    std::string text;
    for (std::size_t i = 0; i < digits.size(); ++i) {
        if (i > 0 && (digits.size() - i) % 3 == 0) text += grouping;
        text += digits[i];
    }
    return text;
}

template <class Integer>
std::optional<Integer> rounded(double value)
{
    using Limits = std::numeric_limits<Integer>;
    const double nearest = std::nearbyint(value); // halves to even: the program never changes the rounding mode
    if (nearest >= Limits::min() && nearest <= Limits::max()) return static_cast<Integer>(nearest);
    return std::nullopt;
}

template <class Integer>
std::string overflowOf(double value)
{
    using Limits = std::numeric_limits<Integer>;
    return "The number " + generalText(value) + " is outside the range from " + std::to_string(Limits::min()) + " to " +
           std::to_string(Limits::max()) + ".";
}

} // namespace

std::optional<std::int16_t> roundedToInt16(double value)
{
    return rounded<std::int16_t>(value);
}

std::optional<std::int32_t> roundedToInt32(double value)
{
    return rounded<std::int32_t>(value);
}

std::optional<float> roundedToFloat32(double value)
{
    constexpr float kMax = std::numeric_limits<float>::max();
    constexpr double kTooLarge = 0x1.ffffffp127; // half a unit above the largest float: rounds to infinity
    const double magnitude = std::abs(value);
    if (!(magnitude < kTooLarge)) return std::nullopt;
    return magnitude > double{kMax} ? std::copysign(kMax, value > 0 ? 1.0F : -1.0F) : static_cast<float>(value);
}

std::string int16Overflow(double value)
{
    return overflowOf<std::int16_t>(value);
}

std::string int32Overflow(double value)
{
    return overflowOf<std::int32_t>(value);
}

std::string float32Overflow(double value)
{
    return "The number " + generalText(value) + " is too large for a 32-bit number.";
}

std::int16_t roundToInt16(double value)
{
    if (const auto fitting = roundedToInt16(value)) return *fitting;
    throw NumericOverflow(int16Overflow(value));
}

std::int32_t roundToInt32(double value)
{
    if (const auto fitting = roundedToInt32(value)) return *fitting;
    throw NumericOverflow(int32Overflow(value));
}

float toFloat32(double value)
{
    if (const auto fitting = roundedToFloat32(value)) return *fitting;
    throw NumericOverflow(float32Overflow(value));
}

char* writeGeneralText(char* out, double value)
{
    return writeNumber(out, value, true);
}

std::string generalText(double value)
{
    std::array<char, kNumberTextRoom> text{};
    return {text.data(), writeGeneralText(text.data(), value)};
}

char* writeFileText(char* out, double value)
{
    return writeNumber(out, value, false);
}

std::string fileText(double value)
{
    std::array<char, kNumberTextRoom> text{};
    return {text.data(), writeFileText(text.data(), value)};
}

std::string float32Text(float value)
{
    if (value == 0 || !std::isfinite(value)) return generalText(double{value});
    std::array<char, kNumberTextRoom> text{};
    char* out = text.data();
    if (value < 0) *out++ = '-';
    return {text.data(), writeDecimal(out, shortestDecimal(std::abs(value)), true)};
}

std::string screenText(double value, std::string_view grouping)
{
    constexpr int kDecimals = 4;
    if (!std::isfinite(value)) return generalText(value);
    const Decimal decimal = value == 0 ? Decimal{} : roundedDecimal(std::abs(value));
    // How many of the 15 digits lie behind the fourth decimal.
    const int surplus = kSignificantDigits - 1 - decimal.exponent - kDecimals;
    std::uint64_t units = decimal.digits; // ten-thousandths
    if (surplus > kSignificantDigits)
        units = 0;
    else if (surplus > 0) {
        std::uint64_t unit = 1;
        for (int i = 0; i < surplus; ++i) unit *= 10;
        units = (units + unit / 2) / unit;
    }
    std::string digits = std::to_string(units);
    if (surplus < 0) digits.append(static_cast<std::size_t>(-surplus), '0');
    if (digits.size() <= kDecimals) digits.insert(0, kDecimals + 1 - digits.size(), '0');
    const std::string_view all = digits;
    const std::size_t whole = all.size() - kDecimals;
    const std::string sign = value < 0 && units > 0 ? "-" : "";
    return sign + grouped(all.substr(0, whole), grouping == "." ? "" : grouping) + "." + digits.substr(whole);
}

std::string groupedText(std::int32_t value, std::string_view grouping)
{
    const std::string digits = std::to_string(std::abs(std::int64_t{value}));
    return (value < 0 ? "-" : "") + grouped(digits, grouping);
}

std::string plainText(std::int64_t value)
{
    return std::to_string(value);
}

} // namespace tarvelint
