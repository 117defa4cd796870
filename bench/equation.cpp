// SPDX-License-Identifier: MIT
//
// The default equation, clip and missing-value test included: read from its text for every value, beside the same
// expression compiled into a loop. Then the whole of Recalculate All on a year of quarter hours.

#include "baseline/recalculation.h"
#include "equation/evaluator.h"
#include "support/test_window.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace tarvelint::test {
namespace {

constexpr std::int32_t kRows = 35040; // a year at a quarter of an hour
constexpr std::size_t kSensors = 20;
constexpr double kBase = 11;
constexpr const char* kEquation = "119*((B/X)-1)^1.23";

/// 8 to 11 K.
const std::vector<double>& readings()
{
    static const auto kReadings = [] {
        std::mt19937 engine{3};
        std::vector<double> column(kRows);
        for (double& reading : column) reading = 8 + 3 * static_cast<double>(engine()) / 4294967296.0;
        return column;
    }();
    return kReadings;
}

void value_fromText(benchmark::State& state)
{
    TestWindow window;
    window.setChecked(Control::highBox, true);
    Evaluator evaluator(window);
    const std::string text = kEquation;
    for (auto _ : state)
        for (const double reading : readings()) {
            std::string_view equation = text;
            benchmark::DoNotOptimize(evaluator.convert(equation, reading, kBase));
        }
    state.SetItemsProcessed(state.iterations() * kRows);
}
BENCHMARK(value_fromText)->Unit(benchmark::kMicrosecond);

void value_byHand(benchmark::State& state)
{
    TestWindow window;
    window.setChecked(Control::highBox, true);
    for (auto _ : state)
        for (const double reading : readings()) {
            double x = reading;
            if (window.isChecked(Control::highBox) ? x > kBase : x < kBase) x = kBase;
            benchmark::DoNotOptimize(window.data.isBlank(x) ? x : 119 * std::pow(kBase / x - 1, 1.23));
        }
    state.SetItemsProcessed(state.iterations() * kRows);
}
BENCHMARK(value_byHand)->Unit(benchmark::kMicrosecond);

void recalculate_all(benchmark::State& state)
{
    TestWindow window;
    window.setChecked(Control::highBox, true);
    window.setText(Control::FormulaBox, kEquation);
    window.setReadings(std::vector<std::vector<double>>(kSensors, readings()));
    for (std::int32_t column = 0; column < window.data.columns; ++column)
        for (std::int32_t row = 0; row < kRows; ++row) window.data.values(kBaseline, column, row) = kBase;
    Recalculation recalculation(window);
    for (auto _ : state) {
        recalculation.recalculate(-1);
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * kRows * static_cast<std::int64_t>(kSensors));
}
BENCHMARK(recalculate_all)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace tarvelint::test
