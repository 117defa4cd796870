// SPDX-License-Identifier: MIT
#pragma once

#include "baseline/baseline_points.h"
#include "support/test_window.h"

#include <cstdint>
#include <vector>

namespace tarvelint::test {

using Column = std::vector<double>;
using Rows = std::vector<std::int32_t>;

inline constexpr double blank = 99999;
inline constexpr double untouched = -7; ///< stands in the baseline and converted layers beforehand
inline constexpr double cleared = 0;    ///< the baseline of a row without points around it

/// One sensor column on view, with the points under test at work.
class PointsWindow : public TestWindow {
public:
    BaselinePoints points{*this};

    explicit PointsWindow(const Column& readings) : PointsWindow(std::vector<Column>{readings}) {}
    explicit PointsWindow(const std::vector<Column>& columns)
    {
        setReadings(columns);
        for (std::int32_t c = 0; c < record.columns; ++c)
            for (std::int32_t r = 0; r < record.lines; ++r)
                record.values(kBaseline, c, r) = record.values(kConverted, c, r) = untouched;
        std::vector<std::int32_t> all;
        for (std::int32_t c = 0; c < record.columns; ++c) all.push_back(c);
        makeSensors(all);
        choose(0);
        view.curSensor = 0;
    }
    void turboCalc(std::int32_t column, std::int32_t lPoint, std::int32_t rPoint)
    {
        tarvelint::turboCalc(record, column, lPoint, rPoint);
    }
    void mark(const Rows& rows)
    {
        for (const auto row : rows) sensors.setPoint(view.curSensor, row, true);
    }
    [[nodiscard]] Rows marks() const
    {
        Rows rows;
        for (std::int32_t r = 0; r < record.lines; ++r)
            if (sensors.isPoint(view.curSensor, r)) rows.push_back(r);
        return rows;
    }
    void select(std::int32_t first, std::int32_t last)
    {
        view.selStart = first;
        view.selEnd = last;
    }
    [[nodiscard]] Column readings() const { return column(kUnconverted, 0); }
    [[nodiscard]] Column baseline() const { return column(kBaseline, 0); }
    [[nodiscard]] Column converted() const { return column(kConverted, 0); }
    [[nodiscard]] bool nothingHappened() const
    {
        const Column same(static_cast<std::size_t>(record.lines), untouched);
        return baseline() == same && converted() == same && record.saveCheck;
    }
};

/// `first`, then nine tenths more in steps of 0.1 and the last: what a running sum of 0.1 comes to.
inline double tenTenthsFrom(double first)
{
    double sum = first;
    for (int i = 0; i < 10; ++i) sum = sum + 0.1;
    return sum;
}

} // namespace tarvelint::test
