// SPDX-License-Identifier: MIT
#include "data/numbers.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace tarvelint::test {
namespace {

template <class Value>
using Cases = std::vector<std::pair<const char*, Value>>;

/// How many characters `scanNumber` takes from the start of `text`; -1 for no number.
std::ptrdiff_t scanned(const std::string& text)
{
    double value = 0;
    const char* const end = scanNumber(text.data(), text.data() + text.size(), value);
    return end == nullptr ? -1 : end - text.data();
}

TEST(ScanNumber, stopsAfterTheNumber)
{
    const Cases<std::ptrdiff_t> cases = {
        {"12.5,7", 4}, {"12.5", 4}, {"5.,6", 2},   {".5 6", 2},  {"-3\t", 2},       {"1e5,", 3}, {"1E+05,2", 5},
        {"1e,", 1},    {"1e+,", 1}, {"1.5e-x", 3}, {"1.2.3", 3}, {"7abcdefghi", 1}, {"1D3", 1},  {"99999,99999", 5}};
    for (const auto& [text, length] : cases) EXPECT_EQ(scanned(text), length) << text;
}

TEST(ScanNumber, findsNoNumberWhereNoneStarts)
{
    for (const char* text :
         {"", ".", ",5", " 5", "+", "-,", "e5", ".,12345678", "abc", "inf", "nan", "1E400", "-1E400,"})
        EXPECT_EQ(scanned(text), -1) << text;
}

TEST(ScanNumber, leavesTheValueAloneWhenThereIsNoNumber)
{
    for (const std::string text : {"", ".", "1E400", "word,word,word", ".,,,,,,,,"}) {
        double value = 42;
        EXPECT_EQ(scanNumber(text.data(), text.data() + text.size(), value), nullptr);
        EXPECT_EQ(value, 42) << text;
    }
}

TEST(ScanNumber, neverLooksBehindTheEnd)
{
    const std::string text = "12.345678";
    for (std::size_t length = 1; length <= text.size(); ++length) {
        double value = 0;
        const char* const last = text.data() + length;
        EXPECT_EQ(scanNumber(text.data(), last, value), last);
        EXPECT_EQ(value, std::stod(text.substr(0, length)));
    }
}

TEST(ScanNumber, bytesAbove127AreNoDigits)
{
    // Each high byte at each place behind the digits, and one after the point.
    for (int byte = 128; byte < 256; ++byte) {
        const auto strange = static_cast<char>(byte);
        for (std::size_t digits = 1; digits <= 9; ++digits) {
            const std::string text = std::string(digits, '7') + strange + "88888888";
            EXPECT_EQ(scanned(text), static_cast<std::ptrdiff_t>(digits)) << byte;
        }
        EXPECT_EQ(scanned(std::string("1.5") + strange + "555555"), 3) << byte;
    }
}

// Laws, against the standard library

struct Found {
    std::ptrdiff_t length = -1;
    double value = 0;
    bool operator==(const Found&) const = default;
};

/// The C library's reading of the same grammar: these texts hold no word and no hexadecimal.
Found byLibrary(const std::string& text)
{
    char* end = nullptr;
    const double value = std::strtod(text.c_str(), &end);
    if (end == text.c_str() || std::isinf(value)) return {};
    return {end - text.c_str(), value};
}

Found found(const std::string& text, const std::string& behind)
{
    const std::string line = text + behind;
    Found here;
    const char* const end = scanNumber(line.data(), line.data() + line.size(), here.value);
    if (end != nullptr) here.length = end - line.data();
    return here;
}

TEST(ScanNumberLaw, everyShortTextReadsAsTheLibraryReadsIt)
{
    constexpr std::string_view kLetters = "05.-+e";
    int checked = 0;
    std::vector<std::string> texts = {""};
    for (int length = 1; length <= 6; ++length) {
        std::vector<std::string> longer;
        for (const auto& text : texts)
            for (const char letter : kLetters) longer.push_back(text + letter);
        for (const auto& text : longer) {
            const Found expected = byLibrary(text);
            if (found(text, "") != expected || found(text, ",,,,,,,,") != expected) ADD_FAILURE() << text;
            ++checked;
        }
        texts = std::move(longer);
    }
    EXPECT_EQ(checked, 55986); // 6 + 6^2 + ... + 6^6
}

TEST(ScanNumberLaw, theShortestTextOfEveryDoubleReadsBack)
{
    std::mt19937_64 bits(20261120);
    for (int i = 0; i < 40000; ++i) {
        const auto value = std::bit_cast<double>(bits());
        if (!std::isfinite(value)) continue;
        std::array<char, 32> text{};
        const std::string shortest(text.data(), std::to_chars(text.data(), text.data() + text.size(), value).ptr);
        const Found expected{static_cast<std::ptrdiff_t>(shortest.size()), value};
        ASSERT_EQ(found(shortest, i % 2 == 0 ? "" : ",12345678"), expected) << shortest;
    }
}

TEST(ScanNumberLaw, aDecimalOfAnyLengthReadsAsTheLibraryReadsIt)
{
    std::mt19937_64 random(7);
    for (int i = 0; i < 40000; ++i) {
        std::string text = random() % 4 == 0 ? "-" : "";
        for (auto whole = random() % 12; whole > 0; --whole) text += static_cast<char>('0' + random() % 10);
        text += '.';
        for (auto decimals = 1 + random() % 12; decimals > 0; --decimals)
            text += static_cast<char>('0' + random() % 10);
        if (random() % 8 == 0) text += "E" + std::to_string(static_cast<int>(random() % 80) - 40);
        ASSERT_EQ(found(text, i % 2 == 0 ? "" : "\t12345678"), byLibrary(text)) << text;
    }
}

TEST(ScanNumberLaw, bothEndsOfTheRangeAreToldApartAsTheLibraryTellsThem)
{
    std::mt19937_64 random(11);
    for (int i = 0; i < 40000; ++i) {
        std::string text = std::string(random() % 400, '0') + std::to_string(random() % 1000);
        if (random() % 2 == 0) text += std::string(random() % 400, '0');
        if (random() % 2 == 0) text += '.' + std::string(random() % 400, '0') + std::to_string(random());
        if (random() % 2 == 0) text += (random() % 2 == 0 ? "e-" : "E+") + std::to_string(random() % 800);
        ASSERT_EQ(found(text, i % 2 == 0 ? "" : ",1"), byLibrary(text)) << text;
    }
}

} // namespace
} // namespace tarvelint::test
