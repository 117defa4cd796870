// SPDX-License-Identifier: MIT
#include "data/number_scan.h"

#include "data/numbers.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <system_error>

namespace tarvelint {

namespace {

constexpr auto kIntegerPowers = [] {
    std::array<std::uint64_t, 20> powers{1};
    for (std::size_t i = 1; i < powers.size(); ++i) powers[i] = powers[i - 1] * 10;
    return powers;
}();

/// Powers of ten that a double holds exactly.
constexpr std::array<double, 23> kExactPowers{1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                              1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

constexpr bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// Text is read in blocks of eight characters, the first in the lowest byte: a loop over single characters would
/// mispredict the end of each run of digits, and their lengths change from field to field.
constexpr std::ptrdiff_t kBlock = 8;
constexpr bool kBlocksWork = std::endian::native == std::endian::little;

/// Eight characters, "0" counted as 0.
std::uint64_t loadBlock(const char* at)
{
    std::uint64_t block = 0;
    std::memcpy(&block, at, kBlock);
    return block ^ 0x3030303030303030U;
}

/// Sets the top bit of the bytes that are no digits; correct up to and including the first of them, and beyond
/// it when it is an ASCII character (else a carry goes into the next byte).
std::uint64_t notDigits(std::uint64_t block)
{
    return ((block + 0x7676767676767676U) | block) & 0x8080808080808080U;
}

/// Number of bytes before the first that `marks` marks, 8 when there is none.
unsigned bytesBefore(std::uint64_t marks)
{
    return static_cast<unsigned>(std::countr_zero(marks)) / 8U;
}

/// The number that the first `count` (1 to 8) digits of a block make: what follows is shifted out and zeros come
/// in before them; then neighbours are joined to pairs, pairs to fours, fours to eight.
std::uint64_t joinDigits(std::uint64_t block, unsigned count)
{
    block <<= 64 - 8 * count;
    block = (block * 10 + (block >> 8U)) & 0x00FF00FF00FF00FFU;
    block = (block * 100 + (block >> 16U)) & 0x0000FFFF0000FFFFU;
    return (block * 10000 + (block >> 32U)) & 0xFFFFFFFFU;
}

/// Passes a run of digits and appends them to `mantissa` (which wraps after 19).
const char* scanDigits(const char* at, const char* last, std::uint64_t& mantissa)
{
    while (kBlocksWork && last - at >= kBlock) {
        const std::uint64_t block = loadBlock(at);
        const unsigned count = bytesBefore(notDigits(block));
        if (count == 0) return at;
        mantissa = mantissa * kIntegerPowers[count] + joinDigits(block, count);
        at += count;
        if (count < kBlock) return at;
    }
    for (; at != last && isDigit(*at); ++at) mantissa = mantissa * 10 + static_cast<std::uint64_t>(*at - '0');
    return at;
}

/// The common field at the end of a text. A number of an equation is such a text, read again for every logger row: the
/// branches come out the same each time, and the processor learns them.
const char* scanTail(const char* first, const char* last, double& magnitude)
{
    std::uint32_t mantissa = 0;
    const char* at = first;
    for (; at != last && isDigit(*at); ++at) mantissa = mantissa * 10 + static_cast<std::uint32_t>(*at - '0');
    const char* const wholeEnd = at;
    std::size_t decimals = 0;
    if (at != last && *at == '.')
        for (++at; at != last && isDigit(*at); ++at, ++decimals)
            mantissa = mantissa * 10 + static_cast<std::uint32_t>(*at - '0');
    if ((wholeEnd == first && decimals == 0) || (at != last && (*at | 0x20) == 'e')) return nullptr;
    magnitude = decimals == 0 ? mantissa : mantissa / kExactPowers[decimals];
    return at;
}

/// The common field, at most seven characters without sign and exponent ("12.3456"), from a single block.
/// Returns nullptr for anything else, and then leaves `magnitude` alone.
const char* scanShort(const char* first, const char* last, double& magnitude)
{
    if (last - first < kBlock) return scanTail(first, last, magnitude);
    if (!kBlocksWork) return nullptr;
    std::uint64_t block = loadBlock(first);
    std::uint64_t marks = notDigits(block);
    const unsigned whole = bytesBefore(marks);
    if (marks == 0) return nullptr;
    unsigned decimals = 0;
    unsigned length = whole;
    if (first[whole] == '.') {
        marks &= marks - 1;
        if (marks == 0) return nullptr;
        length = bytesBefore(marks);
        decimals = length - whole - 1;
        const std::uint64_t beforePoint = (std::uint64_t{1} << (8 * whole)) - 1;
        block = (block & beforePoint) | ((block >> 8U) & ~beforePoint);
    }
    if (whole + decimals == 0 || (first[length] | 0x20) == 'e') return nullptr;
    // Both are exact doubles, so that the quotient is rounded once.
    magnitude = static_cast<double>(joinDigits(block, whole + decimals)) / kExactPowers[decimals];
    return first + length;
}

/// Takes a complete exponent (letter, optional sign, digits) at `at`; leaves an incomplete one alone.
const char* scanExponent(const char* at, const char* last, std::ptrdiff_t& exponent)
{
    constexpr std::ptrdiff_t kFarAway = 1'000'000'000; // out of every range, and no sum of such overflows
    const char* next = at + 1;
    const bool negative = next != last && *next == '-';
    if (next != last && (*next == '-' || *next == '+')) ++next;
    if (next == last || !isDigit(*next)) return at;
    std::ptrdiff_t written = 0;
    for (; next != last && isDigit(*next); ++next) written = std::min(written * 10 + (*next - '0'), kFarAway);
    exponent += negative ? -written : written;
    return next;
}

/// What the standard conversion makes of a number without its sign; an infinity when it is too large, 0 when it
/// is too small. `exponent` is the power of ten that belongs to its `digits` read as a whole number.
double valueByLibrary(const char* first, const char* end, std::ptrdiff_t digits, std::ptrdiff_t exponent)
{
    double value = 0;
    const auto result = std::from_chars(first, end, value);
    if (result.ec != std::errc::result_out_of_range) return value;
    // Both ends of the range are reported alike: the place of the first significant digit tells them apart.
    std::ptrdiff_t leadingZeros = 0;
    for (const char* at = first; at != end && (*at == '0' || *at == '.'); ++at) leadingZeros += *at == '0' ? 1 : 0;
    return digits - leadingZeros + exponent > 0 ? std::numeric_limits<double>::infinity() : 0.0;
}

/// A number without its sign; one that is too large gives an infinity.
const char* scanMagnitude(const char* first, const char* last, double& magnitude)
{
    std::uint64_t mantissa = 0;
    const char* at = scanDigits(first, last, mantissa);
    std::ptrdiff_t digits = at - first;
    std::ptrdiff_t exponent = 0;
    if (at != last && *at == '.') {
        const char* const fraction = at + 1;
        at = scanDigits(fraction, last, mantissa);
        exponent = fraction - at;
        digits -= exponent;
    }
    if (digits == 0) return nullptr;
    if (at != last && (*at == 'E' || *at == 'e')) at = scanExponent(at, last, exponent);

    // A mantissa and a power of ten that are both exact doubles need one rounding only (Clinger 1990); that
    // covers what loggers and this program write.
    constexpr std::uint64_t kExactMantissa = std::uint64_t{1} << 53U;
    constexpr std::ptrdiff_t kExactPower = kExactPowers.size() - 1;
    if (digits > 19 || mantissa > kExactMantissa || exponent < -kExactPower || exponent > kExactPower)
        magnitude = valueByLibrary(first, at, digits, exponent);
    else if (exponent <= 0)
        magnitude = static_cast<double>(mantissa) / kExactPowers[static_cast<std::size_t>(-exponent)];
    else
        magnitude = static_cast<double>(mantissa) * kExactPowers[static_cast<std::size_t>(exponent)];
    return at;
}

} // namespace

const char* scanAnySize(const char* first, const char* last, double& value)
{
    const bool negative = first != last && *first == '-';
    if (first != last && (*first == '-' || *first == '+')) ++first;
    double magnitude = 0;
    const char* end = scanShort(first, last, magnitude);
    if (end == nullptr) end = scanMagnitude(first, last, magnitude);
    value = negative ? -magnitude : magnitude;
    return end;
}

const char* scanNumber(const char* first, const char* last, double& value)
{
    // Tried before a sign is looked for: the start of the digits then depends on nothing but `first`.
    if (const char* const end = scanShort(first, last, value); end != nullptr) return end;
    double read = 0;
    const char* const end = scanAnySize(first, last, read);
    if (end == nullptr || std::isinf(read)) return nullptr;
    value = read;
    return end;
}

} // namespace tarvelint
