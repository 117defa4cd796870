// SPDX-License-Identifier: MIT
#include "data/settings_store.h"

#include "data/numbers.h"

#include <algorithm>
#include <optional>

namespace tarvelint {

namespace {

/// The stored text under `key` through `convert` (a rounding to some width), or `standard` when there
/// is no such key, no number, or one that does not fit.
template <class Number>
Number readNumber(SettingsStore& store, std::string_view key, Number standard, std::optional<Number> (*convert)(double))
{
    const auto value = numericValue(store.readSetting(key, generalText(standard)));
    return value ? convert(*value).value_or(standard) : standard;
}

/// The zoom commands know these four factors only.
std::int16_t knownZoom(std::int16_t factor)
{
    for (const std::int16_t known : {std::int16_t{8}, std::int16_t{4}, std::int16_t{2}})
        if (factor >= known) return known;
    return 1;
}

/// What is left of a screen from `start` on, when `size` would reach its far edge.
float fittingSize(float start, float size, float screenSize)
{
    if (start + size + kScreenMargin < screenSize) return size;
    // A window that starts beyond the edge has no room left at all; a size is never negative.
    return std::max(0.0F, screenSize - start - kScreenMargin);
}

} // namespace

WindowSettings readWindowSettings(SettingsStore& store)
{
    WindowSettings read;
    read.zoomFactor = knownZoom(readNumber(store, "ZoomFactor", read.zoomFactor, roundedToInt16));
    read.geometry.left = readNumber(store, "MainLeft", read.geometry.left, roundedToFloat32);
    read.geometry.top = readNumber(store, "MainTop", read.geometry.top, roundedToFloat32);
    read.geometry.width = readNumber(store, "MainWidth", read.geometry.width, roundedToFloat32);
    read.geometry.height = readNumber(store, "MainHeight", read.geometry.height, roundedToFloat32);
    read.date = readNumber(store, "Date", read.date, roundedToInt16);
    read.time = readNumber(store, "Time", read.time, roundedToInt16);
    read.equation = store.readSetting("Equation", read.equation);
    read.blank = readBlankSetting(store);
    read.ref = store.readSetting("Ref", read.ref);
    read.high = readNumber(store, "High", std::int16_t{1}, roundedToInt16) != 0;
    read.zero = readZeroSetting(store);
    return read;
}

bool readZeroSetting(SettingsStore& store)
{
    std::string text = store.readSetting("Zero", "0");
    for (char& c : text)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return text == "true" || text == "1" || text == "-1";
}

std::int32_t readBlankSetting(SettingsStore& store)
{
    return readNumber(store, "Blank", WindowSettings{}.blank, roundedToInt32);
}

PreProcessSettings readPreProcessSettings(SettingsStore& store)
{
    PreProcessSettings read;
    read.par = store.readSetting("PAR", read.par);
    read.vpd = store.readSetting("VPD", read.vpd);
    read.parLimit = store.readSetting("PARlimit", read.parLimit);
    read.vpdLimit = store.readSetting("VPDlimit", read.vpdLimit);
    read.lullTime = store.readSetting("lullTime", read.lullTime);
    return read;
}

void writeClosingSettings(SettingsStore& store, const ClosingSettings& settings, const Geometry* geometry)
{
    store.writeSetting("Ref", settings.ref);
    store.writeSetting("High", settings.high ? "1" : "0");
    store.writeSetting("Date", plainText(settings.date));
    store.writeSetting("Time", plainText(settings.time));
    store.writeSetting("ZoomFactor", plainText(settings.zoomFactor));
    if (geometry == nullptr) return;
    store.writeSetting("MainLeft", float32Text(geometry->left));
    store.writeSetting("MainTop", float32Text(geometry->top));
    store.writeSetting("MainWidth", float32Text(geometry->width));
    store.writeSetting("MainHeight", float32Text(geometry->height));
}

void writeNewWindowGeometry(SettingsStore& store, const Geometry& window, float screenWidth, float screenHeight)
{
    store.writeSetting("MainLeft", float32Text(window.left));
    store.writeSetting("MainTop", float32Text(window.top));
    store.writeSetting("MainHeight", float32Text(fittingSize(window.top, window.height, screenHeight)));
    store.writeSetting("MainWidth", float32Text(fittingSize(window.left, window.width, screenWidth)));
}

} // namespace tarvelint
