// SPDX-License-Identifier: MIT
#pragma once

#include "support/test_window.h"
#include "view/plot_redraw.h"
#include "window/plot_scale.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace tarvelint::test {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Ops = std::vector<DrawOp>;

constexpr double kGap = 99999;

inline DrawOp erase()
{
    return {"erase", {}, {}, {}};
}
inline DrawOp pen(float width)
{
    return {"penWidth", {width}, {}, {}};
}
inline DrawOp moveTo(float x, float y)
{
    return {"moveTo", {x, y}, {}, {}};
}
inline DrawOp lineTo(float x, float y, Color color = colors::kBlack)
{
    return {"lineTo", {x, y}, color, {}};
}
inline DrawOp redTo(float x, float y)
{
    return lineTo(x, y, colors::kRed);
}
inline DrawOp box(float x1, float x2)
{
    return {"box", {x1, 0, x2, 110}, colors::kWhite, colors::kWhite};
}
inline DrawOp dot(float x, float y)
{
    return {"circle", {x, y, 3}, colors::kRed, colors::kRed};
}
inline DrawOp highlight(float x, float y, float r)
{
    return {"circle", {x, y, r}, colors::kYellow, colors::kYellow};
}

/// Two areas of 4 x 110 units with a manual range of 0 to 10: 110 / (10 x 1.1) = 10 units per data unit, 0 at
/// 0.95 x 110 = 104.5, so a value v lies at 104.5 - 10 v. At zoom 1 rows first to first + 4 are visible.
struct Plot : TestWindow {
    PlotRedraw rendering{*this};

    explicit Plot(const std::vector<double>& main, const std::vector<double>& companion = {})
    {
        setReadings({main, companion.empty() ? main : companion});
        surfaces()[0].width = surfaces()[1].width = 4;
        view.chosenColumn[0] = 0;
        view.chosenColumn[1] = 1;
        view.HScroll1.Max = record.lines;
        range(0, "0", "10");
        range(1, "0", "10");
    }
    std::array<RecordingSurface, 2>& surfaces() { return fakeUi.surfaces; }
    void range(int index, const std::string& bottom, const std::string& top)
    {
        setText(element(Control::minLabel0, index), bottom);
        setText(element(Control::maxLabel0, index), top);
    }
    std::string range(int index) const
    {
        return text(element(Control::minLabel0, index)) + " to " + text(element(Control::maxLabel0, index));
    }
    void automatic(int index = 0) { setChecked(element(Control::scaleBox0, index), true); }
    /// `view.Turbo` with the main column as sensor 0 and points at these rows.
    void points(const std::vector<std::int32_t>& rows)
    {
        view.Turbo = true;
        view.curSensor = 0;
        makeSensors({0});
        for (const auto row : rows) sensors.setPoint(0, row, true);
    }
    void reference(const std::string& value)
    {
        setChecked(Control::refCheck, true);
        setText(Control::refBox, value);
    }
    /// What a redraw draws, without the pen width set first.
    Ops drawn(int index = 0, bool clear = false)
    {
        auto& ops = surfaces()[static_cast<std::size_t>(index)].ops;
        ops.clear();
        rendering.redraw(index, clear);
        return ops.empty() ? ops : Ops(ops.begin() + 1, ops.end());
    }
    /// The same without the trace (one pen move and a line to each visible row), which comes last.
    Ops drawnBeforeTrace(int index = 0)
    {
        Ops ops = drawn(index);
        const auto rows = static_cast<std::size_t>(
            lastVisibleRow(surfaces()[0].width, view.zoomFactor, view.HScroll1.Value, record.lines) -
            view.HScroll1.Value + 1);
        ops.resize(ops.size() - rows - 1);
        return ops;
    }
    void expectAutomaticRange(const std::string& expected)
    {
        automatic();
        drawn();
        EXPECT_EQ(range(0), expected);
    }
};

} // namespace tarvelint::test
