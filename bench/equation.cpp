// SPDX-License-Identifier: MIT
//
// The default equation, clip and missing-value test included, beside the same expression compiled into a loop: "ratio"
// is ours to the compiled one, measured by turns. Then texts of the longest length, read and evaluated, and the whole
// of Recalculate All on a year of quarter hours.

#include "equation/equation.h"
#include "equation/recalculation.h"
#include "support/test_window.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <cmath>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace tarvelint::test {
namespace {

constexpr std::int32_t kRows = 35040; // a year at a quarter of an hour
constexpr std::size_t kSensors = 20;
constexpr double kZeroFlow = 11;
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

/// Chosen by the user when the program runs, so that the compiler knows neither.
ConversionRule chosenRule()
{
    ConversionRule rule;
    benchmark::DoNotOptimize(rule);
    return rule;
}

class GoOn : public FaultSink {
public:
    AfterFault onFault(const Fault&) override { return AfterFault::goOn; }
};

void convertByHand(const ConversionRule& rule, const std::vector<double>& baselines)
{
    for (std::size_t row = 0; row < readings().size(); ++row) {
        double x = readings()[row];
        const double b = baselines[row];
        if (rule.baselineIsHigh ? x > b : x < b) x = b;
        benchmark::DoNotOptimize(x == rule.blank ? x : 119 * std::pow(b / x - 1, 1.23));
    }
}

void convertByEquation(Equation& equation, const ConversionRule& rule, const std::vector<double>& baselines)
{
    GoOn sink;
    for (std::size_t row = 0; row < readings().size(); ++row)
        benchmark::DoNotOptimize(equation.evaluate(readings()[row], baselines[row], rule, sink));
}

template <class Work>
double secondsFor(Work work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

void values_besideHandWritten(benchmark::State& state)
{
    const ConversionRule rule = chosenRule();
    const std::vector<double> baselines(kRows, kZeroFlow);
    Equation equation(kEquation);
    double ours = 0;
    double byHand = 0;
    for (auto _ : state) {
        byHand += secondsFor([&] { convertByHand(rule, baselines); });
        ours += secondsFor([&] { convertByEquation(equation, rule, baselines); });
    }
    const double values = static_cast<double>(state.iterations()) * kRows;
    state.counters["ns_ours"] = ours / values * 1e9;
    state.counters["ns_byHand"] = byHand / values * 1e9;
    state.counters["ratio"] = ours / byHand;
}
BENCHMARK(values_besideHandWritten)->Unit(benchmark::kMicrosecond);

/// `unit` again and again, with a ")" at the end for each "(" in it, as long as an equation may be.
std::string longText(const std::string& unit)
{
    std::string text;
    std::string closing;
    while (text.size() + unit.size() + closing.size() < kLongestEquation - 1) {
        text += unit;
        if (unit.find('(') != std::string::npos && unit.find(')') == std::string::npos) closing += ')';
    }
    return text + "X" + closing;
}

/// The left operands nested: "((X+1)+1)".
std::string leftNest()
{
    constexpr std::size_t kDepth = kLongestEquation / 4;
    std::string text = std::string(kDepth, '(') + "X";
    for (std::size_t i = 0; i + 1 < kDepth; ++i) text += "+1)";
    return text;
}

std::vector<std::string> longTexts()
{
    return {longText("X+B*X-"),
            longText("X+"),
            longText("X*"),
            longText("X^"),
            longText("1.0001*"),
            longText("B-("),
            longText("1^("),
            longText("(X+1)*(B+1)-"),
            longText("(B^"),
            leftNest(),
            std::string(kLongestEquation, '(')};
}

void longText_isRead(benchmark::State& state)
{
    const std::string text = longTexts().at(static_cast<std::size_t>(state.range()));
    for (auto _ : state) {
        Equation equation(text);
        benchmark::DoNotOptimize(equation);
    }
    state.SetLabel(text.substr(0, 12) + "...");
}
BENCHMARK(longText_isRead)->DenseRange(0, 10)->Unit(benchmark::kMicrosecond);

void longText_isEvaluated(benchmark::State& state)
{
    const std::string text = longTexts().at(static_cast<std::size_t>(state.range()));
    Equation equation(text);
    GoOn sink;
    double x = 8;
    for (auto _ : state) {
        x += 1e-6;
        benchmark::DoNotOptimize(equation.evaluate(x, kZeroFlow, {}, sink));
    }
    state.SetLabel(text.substr(0, 12) + "...");
}
BENCHMARK(longText_isEvaluated)->DenseRange(0, 10)->Unit(benchmark::kMicrosecond);

void recalculate_all(benchmark::State& state)
{
    TestWindow window;
    window.setChecked(Control::highBox, true);
    window.setText(Control::FormulaBox, kEquation);
    window.setReadings(std::vector<std::vector<double>>(kSensors, readings()));
    for (std::int32_t column = 0; column < window.record.columns; ++column)
        for (std::int32_t row = 0; row < kRows; ++row) window.record.values(kBaseline, column, row) = kZeroFlow;
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
