// SPDX-License-Identifier: MIT
#pragma once

#include "edit/plot_pointer.h"
#include "support/test_window.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <utility>
#include <vector>

namespace tarvelint::test {

using testing::ElementsAre;
using testing::IsEmpty;
using Rows = std::pair<std::int32_t, std::int32_t>;
constexpr double kMissing = 99999;

/// A column of 100 readings, each its row's number, in a plot of 50 units that begins at row 20: row r lies at r - 20.
/// Column 1 counts days, column 2 times; the readings are column 3.
struct Pointed : TestWindow {
    PlotPointer pointing{*this};

    Pointed()
    {
        std::vector<double> rows(100);
        for (std::size_t r = 0; r < rows.size(); ++r) rows[r] = static_cast<double>(r);
        setReadings({std::vector<double>(100, 180), std::vector<double>(100, 1230), rows});
        fakeUi.surfaces[0].width = 50;
        view.HScroll1 = {.Min = 0, .Max = 49, .Value = 20, .SmallChange = 5, .LargeChange = 50};
        choose(2);
        setEnabled(Control::Picture1_0, true);
        calls.clear();
    }
    void oneClick(bool sloppy = false)
    {
        view.lineMode = true;
        view.Sloppy = sloppy;
    }
    /// `Turbo` with the readings as sensor 0 and points in these rows.
    void turbo(const std::vector<std::int32_t>& points)
    {
        view.Turbo = true;
        view.curSensor = 0;
        makeSensors({2});
        for (const auto row : points) sensors.setPoint(0, row, true);
    }
    void press(std::int32_t row, bool withShift = false)
    {
        pointing.Picture1_MouseDown({PointerButton::left, withShift, static_cast<float>(row - 20)});
    }
    void move(std::int32_t row) { pointing.Picture1_MouseMove(static_cast<float>(row - 20)); }
    void release(std::int32_t row) { pointing.Picture1_MouseUp(static_cast<float>(row - 20)); }
    void rightPress(std::int32_t row)
    {
        pointing.Picture1_MouseDown({PointerButton::right, false, static_cast<float>(row - 20)});
    }
    void reading(std::int32_t row, double value) { record.values(kUnconverted, 2, row) = value; }
    [[nodiscard]] Rows selected() const { return {view.selStart, view.selEnd}; }
};

} // namespace tarvelint::test
