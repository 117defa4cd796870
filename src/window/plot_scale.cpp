// SPDX-License-Identifier: MIT
#include "window/plot_scale.h"

#include "data/numbers.h"

#include <algorithm>
#include <cmath>

namespace tarvelint {

namespace {

constexpr double kFarthest = 64000; // plot units that a line may reach beyond its area
constexpr double kHeadroom = 1.1;   // the range takes 1/1.1 of the height ...
constexpr double kBottom = 0.95;    // ... above a margin of 5 %

} // namespace

std::int32_t lastVisibleRow(float width, std::int16_t zoomFactor, std::int32_t first, std::int32_t lines)
{
    const double last = static_cast<double>(width) / zoomFactor + first;
    return last <= lines - 1 ? roundToInt32(last) : lines - 1;
}

float rowX(std::int32_t row, std::int32_t first, std::int16_t zoomFactor)
{
    return static_cast<float>((std::int64_t{row} - first) * zoomFactor);
}

std::int32_t rowAt(float x, std::int32_t first, std::int16_t zoomFactor)
{
    return roundToInt32(static_cast<double>(x) / zoomFactor + first);
}

std::optional<ValueScale> valueScale(double lo, double hi, float height)
{
    const double room = (hi - lo) * kHeadroom;
    if (!(hi - lo > 0) || !std::isfinite(room)) return std::nullopt;
    ValueScale scale{lo, hi, static_cast<double>(height), 0, 0};
    scale.yScale = scale.height / room;
    scale.yBase = lo * scale.yScale + scale.height * kBottom;
    if (!std::isfinite(scale.yScale) || !std::isfinite(scale.yBase)) return std::nullopt;
    return scale;
}

float valueY(const ValueScale& scale, double value)
{
    const double y = scale.yBase - value * scale.yScale;
    return static_cast<float>(std::clamp(y, -kFarthest, kFarthest));
}

double valueAt(float y, double lo, float height, double yScale)
{
    return lo + (kBottom * static_cast<double>(height) - static_cast<double>(y)) / yScale;
}

} // namespace tarvelint
