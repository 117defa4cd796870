// SPDX-License-Identifier: MIT
//
// Writes a large record for the benchmarks: day, time, PAR, VPD and sensors, one row every half hour, four decimals.
// Every night has a lull, so zero flow is found on each. A million rows of 24 columns are about 164 MB.
//
//   make_big_record ROWS COLUMNS FILE
//
// The same bytes come out on every run.

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <numbers>
#include <string>
#include <vector>

namespace {

constexpr int kRowsPerDay = 48;
constexpr int kParameters = 4;

/// A linear congruential sequence (constants: Knuth's MMIX); its upper bits are good enough for noise.
class Noise {
public:
    /// 0 to `below` - 1.
    std::int64_t operator()(std::uint64_t below)
    {
        m_state = m_state * 6364136223846793005ULL + 1442695040888963407ULL;
        return static_cast<std::int64_t>((m_state >> 40) * below >> 24);
    }

private:
    std::uint64_t m_state = 1;
};

/// One line's bytes. Values are whole ten-thousandths: no floating point on the way to text.
class Line {
public:
    void number(std::int64_t value)
    {
        std::array<char, 20> digits{};
        std::size_t count = 0;
        do {
            digits[count++] = static_cast<char>('0' + value % 10);
            value /= 10;
        } while (value > 0);
        while (count > 0) m_text += digits[--count];
        m_text += ',';
    }
    void fourDecimals(std::int64_t tenThousandths)
    {
        number(tenThousandths / 10000);
        m_text.back() = '.';
        std::int64_t rest = tenThousandths % 10000;
        for (std::int64_t unit = 1000; unit > 0; unit /= 10) m_text += static_cast<char>('0' + rest / unit % 10);
        m_text += ',';
    }
    void label(const std::string& text) { m_text += text + ','; }
    void end()
    {
        m_text.pop_back();
        m_text += "\r\n";
    }
    std::string& text() { return m_text; }

private:
    std::string m_text;
};

/// How strongly the sun pulls in each half hour of a day: 0 by night, 1 at noon.
std::array<double, kRowsPerDay> sunOfDay()
{
    std::array<double, kRowsPerDay> sun{};
    for (int row = 12; row < 40; ++row)
        sun.at(static_cast<std::size_t>(row)) = std::sin(std::numbers::pi * (row - 11.5) / 28.5);
    return sun;
}

/// A probe's reading at zero flow, in ten-thousandths of a kelvin: 7.0 to 9.4 K, so every reading has one digit before
/// the point.
std::int64_t calmReading(std::size_t sensor, std::int64_t day)
{
    const auto ordinal = static_cast<std::int64_t>(sensor);
    return 70000 + ordinal * 1100 % 20000 + (day * 7 + ordinal * 13) % 4000;
}

void addRow(Line& line, std::int64_t row, std::size_t sensors, Noise& noise)
{
    static const auto kSun = sunOfDay();
    const std::int64_t day = row / kRowsPerDay;
    const std::int64_t halfHours = row % kRowsPerDay;
    const double sun = kSun.at(static_cast<std::size_t>(halfHours)) * (0.5 + 0.05 * static_cast<double>(day % 11));
    line.number(day % 365 + 1);
    line.number(halfHours / 2 * 100 + halfHours % 2 * 30);
    line.fourDecimals(static_cast<std::int64_t>(sun * 18000000) + (sun > 0 ? noise(200000) : 0));
    line.fourDecimals(static_cast<std::int64_t>(sun * 25000) + 50 + noise(300));
    for (std::size_t s = 0; s < sensors; ++s) {
        const double drop = 1 - 0.3 * sun;
        line.fourDecimals(static_cast<std::int64_t>(static_cast<double>(calmReading(s, day)) * drop) + noise(400));
    }
    line.end();
}

bool writeRecord(std::ostream& out, std::int64_t rows, std::size_t sensors)
{
    constexpr std::size_t kChunk = std::size_t{1} << 20;
    Line line;
    for (const char* label : {"Day", "Time", "PAR", "VPD"}) line.label(label);
    for (std::size_t s = 1; s <= sensors; ++s) line.label("S" + std::to_string(s));
    line.end();

    Noise noise;
    std::string& text = line.text();
    for (std::int64_t row = 0; row < rows; ++row) {
        addRow(line, row, sensors, noise);
        if (text.size() >= kChunk) {
            out.write(text.data(), static_cast<std::streamsize>(text.size()));
            text.clear();
        }
    }
    out.write(text.data(), static_cast<std::streamsize>(text.size()));
    return static_cast<bool>(out.flush());
}

} // namespace

int main(int argc, char** argv)
{
    const std::int64_t rows = argc == 4 ? std::atoll(argv[1]) : 0;
    const std::int64_t columns = argc == 4 ? std::atoll(argv[2]) : 0;
    if (rows < 1 || columns <= kParameters || columns > 32767) {
        std::cerr << "usage: make_big_record ROWS COLUMNS FILE   (at least 1 row, 5 to 32767 columns)\n";
        return 2;
    }
    std::ofstream out(argv[3], std::ios::binary);
    if (!writeRecord(out, rows, static_cast<std::size_t>(columns - kParameters))) {
        std::cerr << "make_big_record: cannot write " << argv[3] << '\n';
        return 1;
    }
    return 0;
}
