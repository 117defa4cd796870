// SPDX-License-Identifier: MIT
#pragma once

#include "support/doubles.h"
#include "support/grid.h"
#include "window/window.h"

#include <string>
#include <vector>

namespace tarvelint::test {

/// What a window under test stands on; a base so that it is built before the window.
struct Ground {
    MemorySettings settings;
    FixedStyle style;
    MemoryFiles files;
    ManualClock clock;
    FakeUi fakeUi;
};

/// A window whose procedures only write down that they were called ("redraw 0 True", "undoSave 3"), so one
/// subsystem can be tested alone. Tests that need a neighbour to act override it.
class TestWindow : public Ground, public Window {
public:
    TestWindow() : Window(fakeUi, fakeUi, Environment{settings, style, files, clock}) {}

    std::vector<std::string> calls;

    void redraw(int index, bool clear) override { note("redraw", index, clear); }
    void updateCues() override { calls.emplace_back("updateCues"); }
    void undoSave(std::int32_t column) override { note("undoSave", column); }
    void setPoint(std::int32_t toPoint, std::int32_t fromPoint, bool dlt) override
    {
        note("setPoint", toPoint, fromPoint, dlt);
    }
    void convertSelection(bool draws) override { note("convertSelection", draws); }
    void doScroll(float x, bool extend) override { note("doScroll", static_cast<std::int32_t>(x), extend); }
    void ExtendSelection(float x) override { note("ExtendSelection", static_cast<std::int32_t>(x)); }
    bool skip(bool draws) override
    {
        note("skip", draws);
        return skips;
    }
    bool skips = true; ///< False at the record's end

    /// The columns of readings as sensors, in this order (0-based), without points.
    void makeSensors(std::vector<std::int32_t> columns) { sensors.assign(std::move(columns), record.lines); }
    void choose(std::int32_t column0) { view.chosenColumn[0] = column0; }

    /// Columns of readings (layer 1), all of one length; baseline and converted start as 0.
    void setReadings(const std::vector<std::vector<double>>& columns) { test::setReadings(record, columns); }
    [[nodiscard]] std::vector<double> column(int layer, std::int32_t column0) const
    {
        return columnOf(record, layer, column0);
    }

private:
    static std::string word(bool value) { return value ? "True" : "False"; }
    static std::string word(std::int32_t value) { return std::to_string(value); }
    template <class... Arguments>
    void note(const std::string& name, Arguments... arguments)
    {
        std::string call = name;
        ((call += " " + word(arguments)), ...);
        calls.push_back(call);
    }
};

} // namespace tarvelint::test
