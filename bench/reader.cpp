// SPDX-License-Identifier: MIT
//
// Opening a year of readings every quarter of an hour from 20 sensors, from memory: splitting, conversion and storing.
// Beside it, the least that any reader must do: convert every field where it stands.

#include "data/data_file_reader.h"
#include "data/numbers.h"

#include <benchmark/benchmark.h>

#include <array>
#include <cstdint>
#include <cstdio>
#include <sstream>
#include <string>

namespace tarvelint {
namespace {

constexpr int kRows = 365 * 96;
constexpr int kSensors = 20;
constexpr int kColumns = 4 + kSensors;

class Silent : public Progress {
public:
    void status(const std::string&) override {}
    void row(std::int32_t) override {}
};

const std::string& year()
{
    static const std::string kText = [] {
        std::string text = "Day,Time,PAR,VPD";
        for (int s = 1; s <= kSensors; ++s) text += ",S" + std::to_string(s);
        text += "\r\n";
        std::array<char, 64> field{};
        for (int row = 0; row < kRows; ++row) {
            const int quarter = row % 96;
            std::snprintf(field.data(), field.size(), "%d,%d,%.4f,%.4f", row / 96 + 1,
                          quarter / 4 * 100 + quarter % 4 * 15, quarter * 17.25, quarter * 0.0151);
            text += field.data();
            for (int s = 0; s < kSensors; ++s) {
                std::snprintf(field.data(), field.size(), ",%.4f", 8 + s * 0.1 + (row * 37 + s * 11) % 1000 * 0.0013);
                text += field.data();
            }
            text += "\r\n";
        }
        return text;
    }();
    return kText;
}

void count(benchmark::State& state)
{
    state.SetItemsProcessed(state.iterations() * kRows * kColumns);
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(year().size()));
}

void open_dataFileReader(benchmark::State& state)
{
    std::istringstream stream(year());
    for (auto _ : state) {
        stream.clear();
        stream.seekg(0);
        DataSet record;
        Silent progress;
        DataFileReader(stream, "year.csv", ',', record, progress, [] { return 99999; }).load();
        if (record.lines != kRows || record.columns != kColumns) state.SkipWithError("the record was not read whole");
        benchmark::DoNotOptimize(record.values.row(0));
    }
    count(state);
}
BENCHMARK(open_dataFileReader)->Unit(benchmark::kMillisecond);

void open_convertFieldsOnly(benchmark::State& state)
{
    const std::string& text = year();
    const char* last = text.data() + text.size();
    for (auto _ : state) {
        double sum = 0;
        const char* at = text.data() + text.find('\n') + 1;
        while (at < last) {
            double value = 0;
            at = scanNumber(at, last, value);
            if (at == nullptr) {
                state.SkipWithError("a field is not a number");
                return;
            }
            sum += value;
            while (at < last && (*at == ',' || *at == '\r' || *at == '\n')) ++at;
        }
        benchmark::DoNotOptimize(sum);
    }
    count(state);
}
BENCHMARK(open_convertFieldsOnly)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace tarvelint
