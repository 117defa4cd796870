// SPDX-License-Identifier: MIT
#include "data/numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <system_error>

namespace tarvelint {

namespace {

constexpr bool isBlank(char c)
{
    return c == ' ' || c == '\t';
}

constexpr bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// The standard conversion reports both ends of the range alike: an infinity for a number that is too large, 0 for one
/// that is too small.
double beyondRange(std::string_view number)
{
    const std::size_t mantissaEnd = std::min(number.find_first_of("Ee"), number.size());
    // Digits before the point, or zeros after it as a negative count; one more or less decides nothing out here.
    const auto place = static_cast<std::int64_t>(std::min(number.find('.'), mantissaEnd)) -
                       static_cast<std::int64_t>(number.find_first_of("123456789"));
    std::string_view written = number.substr(std::min(mantissaEnd + 1, number.size()));
    if (written.starts_with('+')) written.remove_prefix(1);
    using Limits = std::numeric_limits<std::int32_t>;
    std::int32_t exponent = 0;
    if (std::from_chars(written.data(), written.data() + written.size(), exponent).ec == std::errc::result_out_of_range)
        exponent = written.starts_with('-') ? Limits::min() : Limits::max();
    return exponent + place > 0 ? std::numeric_limits<double>::infinity() : 0.0;
}

/// The common field, a few digits with or without a point: both numbers are exact doubles, so that their quotient is
/// rounded once, as the standard conversion would (Clinger 1990). nullptr for anything else.
const char* scanPlain(const char* first, const char* last, double& value)
{
    constexpr std::ptrdiff_t kMostDigits = 15;
    constexpr std::array<double, kMostDigits + 1> kPowers{1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                          1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    std::uint64_t mantissa = 0;
    const char* point = nullptr;
    const char* at = first;
    for (; at != last; ++at) {
        if (isDigit(*at))
            mantissa = mantissa * 10 + static_cast<std::uint64_t>(*at - '0');
        else if (*at == '.' && point == nullptr)
            point = at;
        else
            break;
    }
    const std::ptrdiff_t digits = at - first - (point == nullptr ? 0 : 1);
    if (digits < 1 || digits > kMostDigits || (at != last && (*at | 0x20) == 'e')) return nullptr;
    value = static_cast<double>(mantissa);
    if (point != nullptr) value /= kPowers[static_cast<std::size_t>(at - point - 1)];
    return at;
}

/// As `scanNumber`, but a number that is too large gives an infinity instead of none.
const char* scanAnySize(const char* first, const char* last, double& value)
{
    const bool negative = first != last && *first == '-';
    if (first != last && (*first == '-' || *first == '+')) ++first;
    // Words such as "inf" are numbers to the standard conversion, and so is a second minus.
    if (first == last || !(isDigit(*first) || *first == '.')) return nullptr;
    double magnitude = 0;
    const auto [end, fault] = std::from_chars(first, last, magnitude);
    if (fault == std::errc::invalid_argument) return nullptr;
    if (fault == std::errc::result_out_of_range)
        magnitude = beyondRange({first, static_cast<std::size_t>(end - first)});
    value = negative ? -magnitude : magnitude;
    return end;
}

} // namespace

double leadingNumber(std::string_view text)
{
    std::string compact;
    for (const char c : text) {
        if (isBlank(c) || c == '\n') continue;
        compact += c == 'D' || c == 'd' ? 'E' : c;
    }
    double value = 0;
    static_cast<void>(scanAnySize(compact.data(), compact.data() + compact.size(), value));
    return value;
}

bool isNumeric(std::string_view text)
{
    return numericValue(text).has_value();
}

std::optional<double> numericValue(std::string_view text)
{
    while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
    double value = 0;
    const char* const last = text.data() + text.size();
    if (text.empty() || scanNumber(text.data(), last, value) != last) return std::nullopt;
    return value;
}

const char* scanNumber(const char* first, const char* last, double& value)
{
    if (const char* const end = scanPlain(first, last, value); end != nullptr) return end;
    double read = 0;
    const char* const end = scanAnySize(first, last, read);
    if (end == nullptr || std::isinf(read)) return nullptr;
    value = read;
    return end;
}

} // namespace tarvelint
