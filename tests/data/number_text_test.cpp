// SPDX-License-Identifier: MIT
#include "data/numbers.h"

#include <gtest/gtest.h>

#include <array>
#include <cfloat>
#include <clocale>
#include <cmath>
#include <limits>
#include <locale>
#include <string>
#include <utility>
#include <vector>

namespace tarvelint::test {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

TEST(GeneralText, hasAtMost15SignificantDigitsAndNoZerosAtTheEnd)
{
    const std::vector<std::pair<double, const char*>> cases = {{1, "1"},
                                                               {10, "10"},
                                                               {-100, "-100"},
                                                               {12.5, "12.5"},
                                                               {0.5, "0.5"},
                                                               {-0.25, "-0.25"},
                                                               {0.1 + 0.2, "0.3"},
                                                               {1.0 / 3, "0.333333333333333"},
                                                               {99999, "99999"},
                                                               {-9999, "-9999"},
                                                               {2.0 / 3, "0.666666666666667"},
                                                               {1.23, "1.23"},
                                                               {1200.03, "1200.03"},
                                                               {123456.789012345678, "123456.789012346"}};
    for (const auto& [value, text] : cases) EXPECT_EQ(generalText(value), text);
}

TEST(GeneralText, takesTheExponentFormBelowMinus4AndFrom15On)
{
    const std::vector<std::pair<double, const char*>> cases = {
        {1e-4, "0.0001"},          {1.25e-4, "0.000125"},
        {1e-5, "1E-05"},           {1.5e-7, "1.5E-07"},
        {-1.5e-7, "-1.5E-07"},     {99999999999999, "99999999999999"},
        {1e14, "100000000000000"}, {123456789012345, "123456789012345"},
        {1e15, "1E+15"},           {-1e15, "-1E+15"},
        {1.5e100, "1.5E+100"},     {123456789012345678, "1.23456789012346E+17"},
        {2e-100, "2E-100"}};
    for (const auto& [value, text] : cases) EXPECT_EQ(generalText(value), text);
}

TEST(GeneralText, theFormFollowsTheRoundedNumber)
{
    EXPECT_EQ(generalText(std::nextafter(1e-4, 0.0)), "0.0001"); // below 0.0001, but not in 15 digits
    EXPECT_EQ(generalText(std::nextafter(1e15, 0.0)), "1E+15");  // 999999999999999.875
    EXPECT_EQ(generalText(std::nextafter(1.0, 0.0)), "1");
    EXPECT_EQ(generalText(std::nextafter(1.0, 2.0)), "1");
}

TEST(GeneralText, aTieGoesToTheEvenDigit)
{
    const std::vector<std::pair<double, const char*>> cases = {{999999999999999.5, "1E+15"},
                                                               {100000000000000.5, "100000000000000"},
                                                               {100000000000001.5, "100000000000002"},
                                                               {123456789012345.5, "123456789012346"},
                                                               {123456789012346.5, "123456789012346"},
                                                               {1000000000000005, "1E+15"},
                                                               {1000000000000015, "1.00000000000002E+15"},
                                                               {0.5 + 0x1p-16, "0.500015258789062"}}; // ...0625 exactly
    for (const auto& [value, text] : cases) EXPECT_EQ(generalText(value), text);
}

TEST(GeneralText, reachesTheEndsOfTheRange)
{
    EXPECT_EQ(generalText(DBL_MAX), "1.79769313486232E+308");
    EXPECT_EQ(generalText(-DBL_MAX), "-1.79769313486232E+308");
    EXPECT_EQ(generalText(DBL_MIN), "2.2250738585072E-308"); // ...720138...: the 15th digit is a 0
    EXPECT_EQ(generalText(std::numeric_limits<double>::denorm_min()), "4.94065645841247E-324");
}

TEST(GeneralText, zeroOfEitherSignIs0)
{
    EXPECT_EQ(generalText(0.0), "0");
    EXPECT_EQ(generalText(-0.0), "0");
    EXPECT_EQ(fileText(-0.0), "0");
}

TEST(GeneralText, namesWhatIsNotFinite)
{
    EXPECT_EQ(generalText(kInfinity), "inf");
    EXPECT_EQ(generalText(-kInfinity), "-inf");
    EXPECT_EQ(generalText(kNan), "nan");
    EXPECT_EQ(generalText(-kNan), "nan");
}

TEST(FileText, hasNoZeroBeforeThePoint)
{
    const std::vector<std::pair<double, const char*>> cases = {
        {0.5, ".5"},     {-0.25, "-.25"}, {0.0001, ".0001"}, {-0.00012, "-.00012"}, {1.0 / 3, ".333333333333333"},
        {0, "0"},        {1.5, "1.5"},    {-10.5, "-10.5"},  {100, "100"},          {1.5e-7, "1.5E-07"},
        {1e15, "1E+15"}, {99999, "99999"}};
    for (const auto& [value, text] : cases) EXPECT_EQ(fileText(value), text);
}

TEST(FileText, staysWithinItsRoom)
{
    // The longest texts: 15 digits, a sign, and a point with zeros or an exponent.
    for (const double value :
         {-0.000123456789012345, -1.23456789012345e-300, -12345678901234.5, -1.2, -0.5, -DBL_MAX}) {
        std::array<char, kNumberTextRoom + 1> room{};
        room.back() = '#';
        char* const end = writeFileText(room.data(), value);
        EXPECT_EQ(std::string(room.data(), end), fileText(value));
        EXPECT_EQ(room.back(), '#') << value;
    }
}

TEST(Float32Text, isTheShortestThatReadsBack)
{
    const std::vector<std::pair<float, const char*>> cases = {
        {1000, "1000"},   {6500, "6500"},   {0.05F, "0.05"},          {0.01F, "0.01"},           {-30.5F, "-30.5"},
        {0, "0"},         {-0.0F, "0"},     {100000, "100000"},       {16777216, "16777216"},    {0.1F, "0.1"},
        {1e-5F, "1E-05"}, {1e20F, "1E+20"}, {1.0F / 3, "0.33333334"}, {FLT_MAX, "3.4028235E+38"}};
    for (const auto& [value, text] : cases) EXPECT_EQ(float32Text(value), text);
}

// The screen

TEST(ScreenText, hasFourDecimalsAndGroupsOfThree)
{
    const std::vector<std::pair<double, const char*>> cases = {{0, "0.0000"},
                                                               {1, "1.0000"},
                                                               {12.5, "12.5000"},
                                                               {999.9999, "999.9999"},
                                                               {1234.5, "1,234.5000"},
                                                               {-1234.5, "-1,234.5000"},
                                                               {99999, "99,999.0000"},
                                                               {-0.25, "-0.2500"},
                                                               {1234567.891, "1,234,567.8910"},
                                                               {100, "100.0000"},
                                                               {-100, "-100.0000"},
                                                               {1e20, "100,000,000,000,000,000,000.0000"},
                                                               {123456789012.34565, "123,456,789,012.3460"}};
    for (const auto& [value, text] : cases) EXPECT_EQ(screenText(value, ","), text);
}

TEST(ScreenText, roundsHalvesOfTheDecimalTextAwayFromZero)
{
    const std::vector<std::pair<double, const char*>> cases = {
        {0.00005, "0.0001"},
        {-0.00005, "-0.0001"},
        {0.0000499999, "0.0000"},
        {1.00015, "1.0002"}, // the double lies just below, its 15 digits do not
        {2.00005, "2.0001"},
        {-2.00005, "-2.0001"},
        {2.00004999, "2.0000"},
        {0.99995, "1.0000"},
        {999.99995, "1,000.0000"},
        {999999.99995, "1,000,000.0000"},
        {12345678901.23455, "12,345,678,901.2346"}};
    for (const auto& [value, text] : cases) EXPECT_EQ(screenText(value, ","), text);
}

TEST(ScreenText, whatRoundsToZeroHasNoSign)
{
    for (const double value :
         {-0.0, -0.00004, 0.00004, -1e-10, -1e-11, 1e-300, -std::numeric_limits<double>::denorm_min()})
        EXPECT_EQ(screenText(value, ","), "0.0000") << value;
}

TEST(ScreenText, takesTheSystemsGroupingSign)
{
    EXPECT_EQ(screenText(-1234567, " "), "-1 234 567.0000");
    EXPECT_EQ(screenText(1234567, "\u202F"), "1\u202F234\u202F567.0000"); // a narrow no-break space
    EXPECT_EQ(screenText(1234567, "'"), "1'234'567.0000");
    EXPECT_EQ(screenText(1234567, ""), "1234567.0000");
}

TEST(ScreenText, leavesAPointAsGroupingSignOut)
{
    EXPECT_EQ(screenText(1234567.5, "."), "1234567.5000");
}

TEST(ScreenText, writesTheLargestNumberOut)
{
    const std::string text = screenText(DBL_MAX, "");
    EXPECT_EQ(text, "179769313486232" + std::string(294, '0') + ".0000");
    EXPECT_EQ(screenText(kInfinity, ","), "inf");
    EXPECT_EQ(screenText(kNan, ","), "nan");
}

TEST(ScreenText, aGroupedNumberReadsBackUpToItsFirstGroup)
{
    EXPECT_EQ(leadingNumber(screenText(1234.5, ",")), 1);
}

TEST(GroupedText, groupsWholeNumbersWithAnySign)
{
    EXPECT_EQ(groupedText(0, ","), "0");
    EXPECT_EQ(groupedText(999, ","), "999");
    EXPECT_EQ(groupedText(-999, ","), "-999");
    EXPECT_EQ(groupedText(99999, ","), "99,999");
    EXPECT_EQ(groupedText(99999, "."), "99.999");
    EXPECT_EQ(groupedText(99999, ""), "99999");
    EXPECT_EQ(groupedText(-1234567, "\u202F"), "-1\u202F234\u202F567");
    EXPECT_EQ(groupedText(std::numeric_limits<std::int32_t>::min(), ","), "-2,147,483,648");
}

TEST(PlainText, writesDigitsOnly)
{
    EXPECT_EQ(plainText(0), "0");
    EXPECT_EQ(plainText(-32768), "-32768");
    EXPECT_EQ(plainText(1234567), "1234567");
    EXPECT_EQ(plainText(std::numeric_limits<std::int64_t>::min()), "-9223372036854775808");
}

/// Decimal comma and grouping point for as long as it lives, in the C++ locale and, where the system has it, in C's.
class CommaLocale {
public:
    CommaLocale() : m_before(std::locale::global(std::locale(std::locale(), new Comma)))
    {
        std::setlocale(LC_ALL, "de_DE.UTF-8");
    }
    ~CommaLocale()
    {
        std::locale::global(m_before);
        std::setlocale(LC_ALL, "C");
    }
    CommaLocale(const CommaLocale&) = delete;
    CommaLocale& operator=(const CommaLocale&) = delete;

private:
    class Comma : public std::numpunct<char> {
        char do_decimal_point() const override { return ','; }
        char do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\3"; }
    };
    std::locale m_before;
};

TEST(Numbers, ignoreTheLocale)
{
    const CommaLocale locale;
    EXPECT_EQ(fileText(1234.5), "1234.5");
    EXPECT_EQ(generalText(1.5e-7), "1.5E-07");
    EXPECT_EQ(generalText(123456789012345.5), "123456789012346"); // a tie takes the library's way
    EXPECT_EQ(float32Text(1234.5F), "1234.5");
    EXPECT_EQ(screenText(1234.5, ","), "1,234.5000");
    EXPECT_EQ(groupedText(1234, ","), "1,234");
    EXPECT_EQ(plainText(1234), "1234");
    EXPECT_EQ(numericValue("1.5"), 1.5);
    EXPECT_EQ(numericValue("1.23456789012345678901"), 1.23456789012345678901);
    EXPECT_FALSE(isNumeric("1,5"));
    EXPECT_EQ(leadingNumber("1,5"), 1);
}

} // namespace
} // namespace tarvelint::test
