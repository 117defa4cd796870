// SPDX-License-Identifier: MIT
//
// Text to number and back, the inner loops of reading and writing, beside the standard library's own ways.

#include "data/numbers.h"

#include <benchmark/benchmark.h>

#include <array>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

namespace tarvelint {
namespace {

constexpr std::size_t kNumbers = 4096;

/// Readings as loggers write them: 5 to 12 K with four decimals.
const std::vector<std::string>& readingTexts()
{
    static const auto kTexts = [] {
        std::mt19937 engine{1};
        std::vector<std::string> texts(kNumbers);
        for (auto& text : texts) {
            std::array<char, kNumberTextRoom> out{};
            std::snprintf(out.data(), out.size(), "%.4f", 5 + 7 * (static_cast<double>(engine()) / 4294967296.0));
            text = out.data();
        }
        return texts;
    }();
    return kTexts;
}

/// Converted values: full precision, as they come out of the equation.
const std::vector<double>& fluxes()
{
    static const auto kValues = [] {
        std::mt19937 engine{2};
        std::vector<double> values(kNumbers);
        for (auto& value : values) value = 60 * (static_cast<double>(engine()) / 4294967296.0);
        return values;
    }();
    return kValues;
}

void count(benchmark::State& state)
{
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(kNumbers));
}

void read_scanNumber(benchmark::State& state)
{
    for (auto _ : state) {
        double sum = 0;
        for (const auto& text : readingTexts()) {
            double value = 0;
            if (scanNumber(text.data(), text.data() + text.size(), value) != nullptr) sum += value;
        }
        benchmark::DoNotOptimize(sum);
    }
    count(state);
}
BENCHMARK(read_scanNumber);

void read_fromChars(benchmark::State& state)
{
    for (auto _ : state) {
        double sum = 0;
        for (const auto& text : readingTexts()) {
            double value = 0;
            if (std::from_chars(text.data(), text.data() + text.size(), value).ec == std::errc{}) sum += value;
        }
        benchmark::DoNotOptimize(sum);
    }
    count(state);
}
BENCHMARK(read_fromChars);

void read_strtod(benchmark::State& state)
{
    for (auto _ : state) {
        double sum = 0;
        for (const auto& text : readingTexts()) sum += std::strtod(text.c_str(), nullptr);
        benchmark::DoNotOptimize(sum);
    }
    count(state);
}
BENCHMARK(read_strtod);

/// Runs `write(out, value)`, which returns how many characters it wrote, over all values.
template <class Write>
void writeAll(benchmark::State& state, Write write)
{
    std::array<char, kNumberTextRoom> out{};
    for (auto _ : state) {
        std::ptrdiff_t length = 0;
        for (const double value : fluxes()) {
            length += write(out, value);
            benchmark::ClobberMemory();
        }
        benchmark::DoNotOptimize(length);
    }
    count(state);
}

using Text = std::array<char, kNumberTextRoom>;

void write_writeFileText(benchmark::State& state)
{
    writeAll(state, [](Text& out, double value) { return writeFileText(out.data(), value) - out.data(); });
}
BENCHMARK(write_writeFileText);

void write_toChars15(benchmark::State& state)
{
    writeAll(state, [](Text& out, double value) {
        return std::to_chars(out.data(), out.data() + out.size(), value, std::chars_format::general, 15).ptr -
               out.data();
    });
}
BENCHMARK(write_toChars15);

void write_snprintf15(benchmark::State& state)
{
    writeAll(state, [](Text& out, double value) {
        return std::ptrdiff_t{std::snprintf(out.data(), out.size(), "%.15g", value)};
    });
}
BENCHMARK(write_snprintf15);

} // namespace
} // namespace tarvelint
