// SPDX-License-Identifier: MIT
#include "data/numbers.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <limits>
#include <string>
#include <utility>
#include <vector>

namespace tarvelint::test {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

template <class Value>
using Cases = std::vector<std::pair<const char*, Value>>;

// The leading-number rule of typed texts

TEST(LeadingNumber, takesTheNumberATextBeginsWith)
{
    const Cases<double> cases = {{"12abc", 12},  {"1,234.5", 1}, {"1.5.2", 1.5}, {"-.5", -0.5}, {"+7", 7},
                                 {"5.", 5},      {".25", 0.25},  {"5%", 5},      {"0x10", 0},   {"99999", 99999},
                                 {"1e2.5", 100}, {"-3-2", -3},   {"1.E2", 100},  {"007", 7},    {"3\r", 3}};
    for (const auto& [text, value] : cases) EXPECT_EQ(leadingNumber(text), value) << text;
}

TEST(LeadingNumber, isZeroForATextThatDoesNotBeginWithANumber)
{
    for (const char* text :
         {"", " ", "abc", ".", "-", "+", "e5", ".e5", "--5", "+-5", ",5", "inf", "nan", "&H10", "x1"})
        EXPECT_EQ(leadingNumber(text), 0) << text;
}

TEST(LeadingNumber, ignoresBlanksTabsAndLineFeedsBeforeAndInside)
{
    const Cases<double> cases = {{"1 234", 1234}, {"  12", 12},   {"\t1\n2\t3", 123},  {"- 5", -5},
                                 {"1 E 2", 100},  {"1 . 5", 1.5}, {" + 1 e - 1 ", 0.1}};
    for (const auto& [text, value] : cases) EXPECT_EQ(leadingNumber(text), value) << text;
    EXPECT_EQ(leadingNumber("1\xC2\xA0"
                            "234"),
              1); // a no-break space is no blank
}

TEST(LeadingNumber, takesEAndDInEitherCaseAsExponent)
{
    const Cases<double> cases = {{"1E3", 1000},  {"1e3", 1000}, {"1D3", 1000},  {"1d3", 1000},
                                 {"1d-2", 0.01}, {"1D+2", 100}, {"2.5e1x", 25}, {"1E3E3", 1000}};
    for (const auto& [text, value] : cases) EXPECT_EQ(leadingNumber(text), value) << text;
}

TEST(LeadingNumber, leavesAnIncompleteExponentOut)
{
    for (const char* text : {"1E", "1E+", "1e-", "1D", "1d+", "1Ex", "1E+x", "1E.5"})
        EXPECT_EQ(leadingNumber(text), 1) << text;
}

TEST(LeadingNumber, givesAnInfinityForWhatIsTooLarge)
{
    EXPECT_EQ(leadingNumber("1E400"), kInfinity);
    EXPECT_EQ(leadingNumber("-1E400x"), -kInfinity);
    EXPECT_EQ(leadingNumber("1E-400"), 0);
    EXPECT_EQ(leadingNumber("-1E99999999999999999999"), -kInfinity);
    EXPECT_EQ(leadingNumber("1E-99999999999999999999"), 0);
}

// What counts as a number

TEST(NumericValue, takesSignDigitsPointAndExponentBetweenBlanks)
{
    const Cases<double> cases = {{"0", 0},
                                 {"12", 12},
                                 {".5", 0.5},
                                 {"5.", 5},
                                 {"-.5", -0.5},
                                 {"+7", 7},
                                 {" 1.5E3 ", 1500},
                                 {"\t3 \t", 3},
                                 {"1e-2", 0.01},
                                 {"1E+2", 100},
                                 {"00012.50", 12.5},
                                 {"5.e1", 50},
                                 {"1E308", 1e308},
                                 {"1E-400", 0},
                                 {"-0", 0},
                                 {"0E99999999999", 0},
                                 {"0.000E-99999999999", 0}};
    for (const auto& [text, value] : cases) {
        EXPECT_TRUE(isNumeric(text)) << text;
        EXPECT_EQ(numericValue(text), value) << text;
    }
}

constexpr const char* kNoNumbers[] = {"",
                                      " ",
                                      "\t",
                                      ".",
                                      "+",
                                      "-",
                                      "+.",
                                      "e5",
                                      ".e5",
                                      "1e",
                                      "1e+",
                                      "1e-",
                                      "1,234",
                                      "1 234",
                                      "1. 5",
                                      "0x10",
                                      "inf",
                                      "-inf",
                                      "infinity",
                                      "nan",
                                      "NAN",
                                      "1D3",
                                      "1d3",
                                      "12abc",
                                      "abc",
                                      "1.5.2",
                                      "--1",
                                      "+-1",
                                      "1e5.",
                                      "1E5E5",
                                      "5\n",
                                      "\r5",
                                      "1_000",
                                      "5%",
                                      "\xC2\xA0"
                                      "5",
                                      "1E309",
                                      "-1E309",
                                      "1E99999999999999999999",
                                      "179769313486232E294"};

TEST(NumericValue, refusesEverythingElse)
{
    for (const char* text : kNoNumbers) {
        EXPECT_FALSE(isNumeric(text)) << text;
        EXPECT_EQ(numericValue(text), std::nullopt) << text;
    }
}

TEST(NumericValue, aTextWithANulInsideIsNoNumber)
{
    EXPECT_FALSE(isNumeric(std::string_view("1\0", 2)));
    EXPECT_FALSE(isNumeric(std::string_view("1\0"
                                            "2",
                                            3)));
}

TEST(NumericValue, isRoundedCorrectlyAtTheEdges)
{
    const Cases<double> cases = {{"9007199254740993", 9007199254740992.0}, // 2^53 + 1: a tie, to even
                                 {"9007199254740993.0000000000000000000001", 9007199254740994.0}, // just above the tie
                                 {"9007199254740995", 9007199254740996.0},
                                 {"123456789012345678901234567890", 123456789012345678901234567890.0},
                                 {"0.1", 0.1},
                                 {"1E23", 1e23}, // the power of ten itself is no double
                                 {"8.5E22", 8.5e22},
                                 {"1.7976931348623157E308", DBL_MAX},
                                 {"2.2250738585072014E-308", DBL_MIN},
                                 {"4.9E-324", std::numeric_limits<double>::denorm_min()},
                                 {"2.4E-324", 0.0}, // below half of the smallest denormal
                                 {"0.00000000000000000000000000000000000001", 1e-38}};
    for (const auto& [text, value] : cases) EXPECT_EQ(numericValue(text), value) << text;
    const std::string tooLarge = "1" + std::string(309, '0');
    EXPECT_EQ(numericValue(tooLarge), std::nullopt);
    EXPECT_EQ(numericValue(tooLarge + "E-309"), 1.0);
    EXPECT_EQ(numericValue("0." + std::string(400, '0') + "1E401"), 1.0);
    EXPECT_EQ(numericValue("0." + std::string(400, '0') + "1"), 0.0);
    EXPECT_EQ(numericValue("0." + std::string(400, '0') + "1E+9"), 0.0);
    EXPECT_EQ(numericValue(std::string(400, '0') + "1E-400"), 0.0);
    EXPECT_EQ(numericValue(tooLarge + ".5E-0"), std::nullopt);
}

// Rounding into narrower fields

TEST(RoundToInteger, takesTheNearestHalvesToEven)
{
    const std::vector<std::pair<double, int>> cases = {{0.5, 0},   {1.5, 2},   {2.5, 2},       {-0.5, 0},
                                                       {-1.5, -2}, {-2.5, -2}, {2.51, 3},      {2.49, 2},
                                                       {-7, -7},   {0.05, 0},  {1234.5, 1234}, {1235.5, 1236}};
    for (const auto& [value, nearest] : cases) {
        EXPECT_EQ(roundedToInt16(value), nearest) << value;
        EXPECT_EQ(roundedToInt32(value), nearest) << value;
        EXPECT_EQ(roundToInt16(value), nearest) << value;
        EXPECT_EQ(roundToInt32(value), nearest) << value;
    }
}

TEST(RoundToInteger, checksTheRangeAfterRounding)
{
    EXPECT_EQ(roundToInt16(32767.4), 32767);
    EXPECT_EQ(roundToInt16(-32768.5), -32768); // half to even stays inside
    EXPECT_EQ(roundToInt32(2147483647.4), 2147483647);
    EXPECT_EQ(roundToInt32(-2147483648.5), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(roundedToInt16(32767.5), std::nullopt);
    EXPECT_EQ(roundedToInt32(2147483647.5), std::nullopt);
    EXPECT_THROW(static_cast<void>(roundToInt16(32767.5)), NumericOverflow);
    EXPECT_THROW(static_cast<void>(roundToInt16(-32768.6)), NumericOverflow);
    EXPECT_THROW(static_cast<void>(roundToInt32(2147483647.5)), NumericOverflow);
    EXPECT_THROW(static_cast<void>(roundToInt32(-2147483649.0)), NumericOverflow);
}

TEST(RoundToInteger, refusesWhatIsNotFinite)
{
    for (const double value : {kInfinity, -kInfinity, kNan, DBL_MAX}) {
        EXPECT_EQ(roundedToInt16(value), std::nullopt);
        EXPECT_EQ(roundedToInt32(value), std::nullopt);
        EXPECT_THROW(static_cast<void>(roundToInt16(value)), NumericOverflow);
        EXPECT_THROW(static_cast<void>(roundToInt32(value)), NumericOverflow);
    }
}

TEST(RoundToInteger, saysWhichNumberIsOutsideWhichRange)
{
    try {
        static_cast<void>(roundToInt16(40000.5));
        FAIL() << "no overflow";
    } catch (const NumericOverflow& overflow) {
        EXPECT_STREQ(overflow.what(), "The number 40000.5 is outside the range from -32768 to 32767.");
    }
}

TEST(ToFloat32, takesTheNearestFloat)
{
    EXPECT_EQ(toFloat32(0.05), 0.05F);
    EXPECT_EQ(toFloat32(-6500), -6500.0F);
    EXPECT_EQ(toFloat32(16777217), 16777216.0F); // 2^24 + 1: a tie, to even
    EXPECT_EQ(toFloat32(1e-60), 0.0F);
    EXPECT_EQ(toFloat32(double{FLT_MAX}), FLT_MAX);
    // FLT_MAX is 2^128 - 2^104; everything below 2^128 - 2^103 is nearer to it than to 2^128.
    EXPECT_EQ(toFloat32(std::nextafter(0x1.ffffffp127, 0.0)), FLT_MAX);
    EXPECT_EQ(toFloat32(-std::nextafter(0x1.ffffffp127, 0.0)), -FLT_MAX);
}

TEST(ToFloat32, refusesWhatIsTooLargeOrNotFinite)
{
    for (const double value : {0x1.ffffffp127, -0x1.ffffffp127, 3.5e38, DBL_MAX, kInfinity, -kInfinity, kNan}) {
        EXPECT_EQ(roundedToFloat32(value), std::nullopt) << value;
        EXPECT_THROW(static_cast<void>(toFloat32(value)), NumericOverflow) << value;
    }
}

} // namespace
} // namespace tarvelint::test
