// SPDX-License-Identifier: MIT
//
// Baseline and sap flux of one segment: turboCalc on a window's grid beside the same arithmetic over three plain
// columns. The difference is what the grid's layout and the rules for missing values cost.

#include "baseline/baseline_points.h"
#include "support/test_window.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <random>
#include <vector>

namespace tarvelint::test {
namespace {

constexpr std::int32_t kRows = 35040; // a year at a quarter of an hour
constexpr std::int32_t kDay = 96;     // from point to point
constexpr std::size_t kSensors = 20;

/// 8 to 11 K with the highest reading at the ends of each day.
const std::vector<double>& readings()
{
    static const auto kReadings = [] {
        std::mt19937 engine{3};
        std::vector<double> column;
        column.reserve(kRows);
        for (std::int32_t row = 0; row < kRows; ++row) {
            const double noise = static_cast<double>(engine()) / 4294967296.0;
            column.push_back(row % kDay == 0 ? 11.0 + 0.1 * noise : 8 + 2.9 * noise);
        }
        return column;
    }();
    return kReadings;
}

void convert_turboCalc(benchmark::State& state)
{
    TestWindow window;
    window.setReadings(std::vector<std::vector<double>>(kSensors, readings()));
    std::int32_t column = 0;
    for (auto _ : state) {
        for (std::int32_t row = 0; row + kDay < kRows; row += kDay) turboCalc(window.record, column, row, row + kDay);
        column = (column + 1) % static_cast<std::int32_t>(kSensors);
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * kRows);
}
BENCHMARK(convert_turboCalc)->Unit(benchmark::kMicrosecond);

void convert_plainLoop(benchmark::State& state)
{
    const std::vector<double>& x = readings();
    std::vector<double> baseline(x.size());
    std::vector<double> flux(x.size());
    for (auto _ : state) {
        for (std::size_t from = 0; from + kDay < x.size(); from += kDay) {
            const double slope = (x[from + kDay] - x[from]) / kDay;
            double b = x[from];
            for (std::size_t row = from; row <= from + kDay; ++row) {
                flux[row] = 119 * std::pow(b / std::min(b, x[row]) - 1, 1.23);
                baseline[row] = b;
                b += slope;
            }
        }
        benchmark::ClobberMemory();
        benchmark::DoNotOptimize(flux.data());
        benchmark::DoNotOptimize(baseline.data());
    }
    state.SetItemsProcessed(state.iterations() * kRows);
}
BENCHMARK(convert_plainLoop)->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace tarvelint::test
