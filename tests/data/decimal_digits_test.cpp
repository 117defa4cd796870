// SPDX-License-Identifier: MIT
#include "data/decimal_digits.h"

#include "data/numbers.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cfloat>
#include <charconv>
#include <cmath>
#include <limits>
#include <random>
#include <string>

namespace tarvelint::test {
namespace {

/// "1.50000000000000e-07": the decimal as the library would write it.
std::string scientific(const Decimal& decimal)
{
    const std::string digits = std::to_string(decimal.digits);
    const std::string size = std::to_string(std::abs(decimal.exponent));
    return digits.substr(0, 1) + "." + digits.substr(1) + (decimal.exponent < 0 ? "e-" : "e+") +
           (size.size() < 2 ? "0" : "") + size;
}

std::string byLibrary(double magnitude)
{
    std::array<char, 40> text{};
    return {text.data(),
            std::to_chars(text.data(), text.data() + text.size(), magnitude, std::chars_format::scientific, 14).ptr};
}

testing::AssertionResult roundsAsTheLibrary(double magnitude)
{
    const std::string here = scientific(roundedDecimal(magnitude));
    if (here == byLibrary(magnitude)) return testing::AssertionSuccess();
    return testing::AssertionFailure() << here << " instead of " << byLibrary(magnitude);
}

TEST(RoundedDecimal, hasExactly15Digits)
{
    EXPECT_EQ(roundedDecimal(1).digits, 100'000'000'000'000U);
    EXPECT_EQ(roundedDecimal(1).exponent, 0);
    EXPECT_EQ(roundedDecimal(0.5).digits, 500'000'000'000'000U);
    EXPECT_EQ(roundedDecimal(0.5).exponent, -1);
    EXPECT_EQ(roundedDecimal(2400.25).digits, 240'025'000'000'000U);
    EXPECT_EQ(roundedDecimal(2400.25).exponent, 3);
}

TEST(RoundedDecimal, aCarryThroughAllDigitsRaisesTheExponent)
{
    const Decimal decimal = roundedDecimal(std::nextafter(1e15, 0.0));
    EXPECT_EQ(decimal.digits, 100'000'000'000'000U);
    EXPECT_EQ(decimal.exponent, 15);
}

TEST(ShortestDecimal, isFilledUpWithZeros)
{
    EXPECT_EQ(shortestDecimal(0.05F).digits, 500'000'000'000'000U);
    EXPECT_EQ(shortestDecimal(0.05F).exponent, -2);
    EXPECT_EQ(shortestDecimal(16777216).digits, 167'772'160'000'000U);
    EXPECT_EQ(shortestDecimal(16777216).exponent, 7);
}

// Laws, against the standard library's exact conversion

TEST(RoundedDecimalLaw, holdsForEveryPowerOfTwoAndTenAndTheirNeighbours)
{
    for (int power = -1074; power <= 1023; ++power) {
        const double two = std::ldexp(1.0, power);
        ASSERT_TRUE(roundsAsTheLibrary(two));
        ASSERT_TRUE(roundsAsTheLibrary(std::nextafter(two, DBL_MAX)));
        if (power > -1074) {
            ASSERT_TRUE(roundsAsTheLibrary(std::nextafter(two, 0.0)));
        }
    }
    for (int power = -323; power <= 308; ++power) {
        const double ten = numericValue("1E" + std::to_string(power)).value();
        ASSERT_TRUE(roundsAsTheLibrary(ten));
        ASSERT_TRUE(roundsAsTheLibrary(std::nextafter(ten, DBL_MAX)));
        ASSERT_TRUE(roundsAsTheLibrary(std::nextafter(ten, 0.0)));
    }
}

TEST(RoundedDecimalLaw, holdsAtTheEndsOfTheRange)
{
    ASSERT_TRUE(roundsAsTheLibrary(DBL_MAX));
    ASSERT_TRUE(roundsAsTheLibrary(DBL_MIN));
    ASSERT_TRUE(roundsAsTheLibrary(std::nextafter(DBL_MIN, 0.0)));
    ASSERT_TRUE(roundsAsTheLibrary(std::numeric_limits<double>::denorm_min()));
}

TEST(RoundedDecimalLaw, holdsForAnyDouble)
{
    std::mt19937_64 bits(1985);
    for (int i = 0; i < 60000; ++i) {
        const double magnitude = std::abs(std::bit_cast<double>(bits()));
        if (std::isfinite(magnitude) && magnitude > 0) {
            ASSERT_TRUE(roundsAsTheLibrary(magnitude));
        }
    }
}

TEST(RoundedDecimalLaw, holdsForReadingsAndFluxes)
{
    std::mt19937_64 random(1997);
    std::uniform_real_distribution<double> reading(0.001, 120);
    for (int i = 0; i < 20000; ++i) ASSERT_TRUE(roundsAsTheLibrary(reading(random)));
    for (int i = 1; i < 20000; ++i) ASSERT_TRUE(roundsAsTheLibrary(i / 1000.0));
}

TEST(RoundedDecimalLaw, holdsForExactTies)
{
    // Whole and half numbers of 16 digits whose last digit is a 5: doubles hold them exactly.
    std::mt19937_64 random(48);
    std::uniform_int_distribution<std::int64_t> fifteenDigits(100'000'000'000'000, 899'999'999'999'999);
    for (int i = 0; i < 10000; ++i) {
        const std::int64_t digits = fifteenDigits(random);
        ASSERT_TRUE(roundsAsTheLibrary(static_cast<double>(digits) + 0.5));
        ASSERT_TRUE(roundsAsTheLibrary(static_cast<double>(digits * 10 + 5)));
    }
}

TEST(RoundedDecimalLaw, holdsForTheDoublesNextToATie)
{
    // "d.dddddddddddddd5E+x" is a tie in decimal; the nearest double lies a little beside it, on either side.
    std::mt19937_64 random(49);
    std::uniform_int_distribution<std::int64_t> fifteenDigits(100'000'000'000'000, 999'999'999'999'999);
    std::uniform_int_distribution<int> power(-300, 290);
    for (int i = 0; i < 20000; ++i) {
        const std::string tie = std::to_string(fifteenDigits(random)) + "5E" + std::to_string(power(random));
        ASSERT_TRUE(roundsAsTheLibrary(numericValue(tie).value()));
    }
}

TEST(ShortestDecimalLaw, theTextOfAFloatReadsBackAsTheSameFloat)
{
    std::mt19937 bits(32);
    for (int i = 0; i < 20000; ++i) {
        const auto value = std::bit_cast<float>(static_cast<std::uint32_t>(bits()));
        if (!std::isfinite(value)) continue;
        ASSERT_EQ(toFloat32(numericValue(float32Text(value)).value()), value);
    }
}

TEST(NumberTextLaw, whatAFileHoldsReadsBackAndIsWrittenTheSameAgain)
{
    std::mt19937_64 bits(64);
    for (int i = 0; i < 20000; ++i) {
        const auto value = std::bit_cast<double>(bits());
        if (!std::isfinite(value) || std::abs(value) > 1e308) continue; // DBL_MAX itself rounds up out of the range
        const std::string text = fileText(value);
        const double back = numericValue(text).value();
        ASSERT_EQ(fileText(back), text);
        // Half a unit of the 15th digit, and the roundings of `back` and of the quotient.
        if (std::abs(value) >= DBL_MIN) {
            ASSERT_NEAR(back / value, 1.0, 5e-15 + 3e-16) << text;
        }
    }
}

} // namespace
} // namespace tarvelint::test
