// SPDX-License-Identifier: MIT
//
// Writes the sample record: thirty days of a small heat-dissipation installation, one row every half hour. It is made,
// not measured, but it has what real records have: cloudy days, calm nights on which the flow stops and windy ones on
// which it does not, probes that drift, noise, gaps, and a probe that dies.
//
//   make_sample FILE
//
// The same bytes come out on every run.

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <numbers>
#include <random>
#include <string>

namespace {

constexpr int kFirstDay = 180; // day of year
constexpr int kDays = 30;
constexpr int kRowsPerDay = 48;
constexpr int kRows = kDays * kRowsPerDay;
constexpr int kSensors = 8;
constexpr double kHoursPerRow = 0.5;

/// Random numbers that do not depend on the standard library's distributions, which differ between makers.
class Chance {
public:
    double uniform() { return static_cast<double>(m_engine()) / 4294967296.0; }
    /// Close to a normal deviate: the sum of twelve uniform ones, less its mean.
    double normal()
    {
        double sum = -6;
        for (int i = 0; i < 12; ++i) sum += uniform();
        return sum;
    }

private:
    std::mt19937 m_engine{20240628};
};

struct Weather {
    double par = 0;         // µmol m-2 s-1
    double vpd = 0;         // kPa
    double temperature = 0; // °C
};

/// What a day and the night before it are like.
struct Day {
    double clearness = 1;     // 1 cloudless, 0.2 overcast
    double lowest = 12;       // °C, just before sunrise
    double nightHumidity = 1; // relative; near saturation on calm nights
};

std::array<Day, kDays + 1> drawDays(Chance& chance)
{
    std::array<Day, kDays + 1> days;
    for (std::size_t d = 0; d < days.size(); ++d) {
        days[d].clearness = 0.25 + 0.75 * std::sqrt(chance.uniform());
        days[d].lowest = 12 + 3 * std::sin(static_cast<double>(d) / 4.0) + chance.uniform();
        const bool windy = d % 6 == 4; // one night in six stays dry: no zero flow there
        days[d].nightHumidity = windy ? 0.82 + 0.04 * chance.uniform() : 0.982 + 0.010 * chance.uniform();
    }
    return days;
}

/// Saturation vapour pressure in kPa at a temperature in °C (Magnus form, Alduchov and Eskridge 1996).
double saturationPressure(double temperature)
{
    return 0.61094 * std::exp(17.625 * temperature / (temperature + 243.04));
}

/// Half a sine between two hours of the day, 0 outside.
double arch(double hour, double from, double to)
{
    if (hour <= from || hour >= to) return 0;
    return std::sin(std::numbers::pi * (hour - from) / (to - from));
}

Weather weatherAt(int row, const std::array<Day, kDays + 1>& days, Chance& chance)
{
    const double hour = (row % kRowsPerDay) * kHoursPerRow;
    const auto today = static_cast<std::size_t>(row / kRowsPerDay);
    const Day& day = days[today];
    const Day& night = days[hour < 14.5 ? today : today + 1];

    Weather weather;
    const double sun = arch(hour, 4.75, 21.25);
    const double cloud = std::clamp(day.clearness + 0.12 * chance.normal(), 0.1, 1.0);
    weather.par = sun > 0 ? 1900 * std::pow(sun, 1.3) * cloud : 0;

    const double warmth = arch(hour, 5.5, 22.0);
    weather.temperature = night.lowest + (6 + 9 * day.clearness) * warmth + 0.1 * chance.normal();
    const double dayHumidity = 0.75 - 0.35 * day.clearness;
    const double humidity = night.nightHumidity + (dayHumidity - night.nightHumidity) * warmth;
    weather.vpd = std::max(0.0, saturationPressure(weather.temperature) * (1 - humidity) + 0.002 * chance.normal());
    return weather;
}

/// One probe: how its tree drinks, and what the probe itself adds.
struct Sensor {
    double highestFlux; // g m-2 s-1
    double calm;        // K, reading at zero flow
    double driftPerDay; // K
    double noise;       // K
    double flux = 0;    // g m-2 s-1, follows the weather with delay: stems store water
};

/// The reading in K: Granier's calibration (1985), flux = 119 * K^1.231 with K = calm/dT - 1, solved for dT.
double reading(Sensor& sensor, const Weather& weather, int row, Chance& chance)
{
    const double light = 1 - std::exp(-weather.par / 350);
    const double nightShare = weather.vpd > 0.08 ? 0.08 : 0;
    const double demand = sensor.highestFlux * (1 - std::exp(-weather.vpd / 0.9)) * std::max(light, nightShare);
    sensor.flux += 0.45 * (demand - sensor.flux);

    const double calm = sensor.calm + sensor.driftPerDay * row / kRowsPerDay;
    const double k = std::pow(sensor.flux / 119, 1 / 1.231);
    return calm / (1 + k) + sensor.noise * chance.normal();
}

/// Sensors and rows are counted from 0 here; S1 is sensor 0.
bool isMissing(int sensor, int row, Chance& chance)
{
    const int day = row / kRowsPerDay;
    const int rowOfDay = row % kRowsPerDay;
    const double luck = chance.uniform();
    if (day == 8 && rowOfDay >= 20 && rowOfDay < 26) return true; // three hours without power, all probes
    if (sensor == 1 && day == 17) return true;                    // a cable off for a day
    if (sensor == 4 && luck < 0.02) return true;                  // a loose contact
    return sensor == 6 && day >= 12;                              // a heater that burnt out
}

std::string fourDecimals(double value)
{
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.4f", value);
    return text.data();
}

void writeRow(std::ostream& out, int row, const Weather& weather, std::array<Sensor, kSensors>& sensors, Chance& chance)
{
    const int halfHours = row % kRowsPerDay;
    out << kFirstDay + row / kRowsPerDay << ',' << halfHours / 2 * 100 + halfHours % 2 * 30 << ','
        << fourDecimals(weather.par) << ',' << fourDecimals(weather.vpd) << ',' << fourDecimals(weather.temperature);
    for (int s = 0; s < kSensors; ++s) {
        const double value = reading(sensors[static_cast<std::size_t>(s)], weather, row, chance);
        out << ',' << (isMissing(s, row, chance) ? "99999" : fourDecimals(value));
    }
    out << "\r\n";
}

void writeRecord(std::ostream& out)
{
    Chance chance;
    const auto days = drawDays(chance);
    std::array<Sensor, kSensors> sensors{{{42, 10.6, 0.010, 0.012},
                                          {35, 9.8, -0.008, 0.010},
                                          {28, 11.4, 0.004, 0.015},
                                          {50, 10.1, 0.015, 0.010},
                                          {22, 11.9, -0.012, 0.020},
                                          {38, 9.5, 0.006, 0.012},
                                          {31, 10.9, 0.000, 0.010},
                                          {45, 11.1, -0.005, 0.014}}};
    out << "Day,Time,PAR,VPD,Tair,S1,S2,S3,S4,S5,S6,S7,S8\r\n";
    for (int row = 0; row < kRows; ++row) writeRow(out, row, weatherAt(row, days, chance), sensors, chance);
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::cerr << "usage: make_sample FILE\n";
        return 2;
    }
    std::ofstream out(argv[1], std::ios::binary);
    writeRecord(out);
    out.close();
    if (!out) {
        std::cerr << "make_sample: cannot write " << argv[1] << '\n';
        return 1;
    }
    return 0;
}
