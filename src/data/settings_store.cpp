// SPDX-License-Identifier: MIT
#include "data/settings_store.h"

#include "data/numbers.h"
#include "data/setting_defaults.h"

#include <algorithm>
#include <array>
#include <optional>

namespace tarvelint {

namespace {

struct Row {
    std::string_view key;
    std::string_view standard;
    std::string_view inColumnSetup = standard;
};

/// In the order of `Setting`. A third text is the default in the column set-up where that differs.
constexpr auto kRows =
    std::to_array<Row>({{"ZoomFactor", "1"},
                        {"MainLeft", "1000"},
                        {"MainTop", "1000"},
                        {"MainWidth", "6500"},
                        {"MainHeight", "6500"},
                        {"Date", defaults::kDate.text},
                        {"Time", defaults::kTime.text},
                        {"Equation", "119*((B/X)-1)^1.23"},
                        {"Blank", defaults::kBlank.text},
                        {"Ref", "0"},
                        {"High", "1"},
                        {"Zero", "0"},
                        {"VPD", defaults::kVpdColumn.text},
                        {"PAR", defaults::kParColumn.text},
                        {"VPDlimit", defaults::kVpdLimit.text},
                        {"PARlimit", defaults::kParLimit.text, defaults::kParLimitInColumnSetup.text},
                        {"lullTime", defaults::kLullTime.text, defaults::kLullTimeInColumnSetup.text}});
static_assert(kRows.size() == static_cast<std::size_t>(Setting::lullTime) + 1);

const Row& rowOf(Setting setting)
{
    return kRows[static_cast<std::size_t>(setting)];
}

/// The stored text through `convert` (a rounding to some width), or the default when there is no such key, no number,
/// or one that does not fit.
template <class Number>
Number readNumber(SettingsStore& store, Setting setting, std::optional<Number> (*convert)(double))
{
    const auto numberIn = [=](std::string_view text) {
        const auto value = numericValue(text);
        return value ? convert(*value) : std::nullopt;
    };
    return numberIn(readSetting(store, setting)).value_or(numberIn(defaultText(setting)).value());
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

std::string_view defaultText(Setting setting, DefaultOf whose)
{
    return whose == DefaultOf::columnSetup ? rowOf(setting).inColumnSetup : rowOf(setting).standard;
}

std::string readSetting(SettingsStore& store, Setting setting, DefaultOf whose)
{
    return store.readSetting(rowOf(setting).key, defaultText(setting, whose));
}

void writeSetting(SettingsStore& store, Setting setting, std::string_view text)
{
    store.writeSetting(rowOf(setting).key, text);
}

WindowSettings readWindowSettings(SettingsStore& store)
{
    WindowSettings read;
    read.zoomFactor = knownZoom(readNumber(store, Setting::ZoomFactor, roundedToInt16));
    read.geometry.left = readNumber(store, Setting::MainLeft, roundedToFloat32);
    read.geometry.top = readNumber(store, Setting::MainTop, roundedToFloat32);
    read.geometry.width = readNumber(store, Setting::MainWidth, roundedToFloat32);
    read.geometry.height = readNumber(store, Setting::MainHeight, roundedToFloat32);
    read.date = readNumber(store, Setting::Date, roundedToInt16);
    read.time = readNumber(store, Setting::Time, roundedToInt16);
    read.equation = readSetting(store, Setting::Equation);
    read.blank = readBlankSetting(store);
    read.ref = readSetting(store, Setting::Ref);
    read.high = readNumber(store, Setting::High, roundedToInt16) != 0;
    read.zero = readZeroSetting(store);
    return read;
}

bool readZeroSetting(SettingsStore& store)
{
    std::string text = readSetting(store, Setting::Zero);
    for (char& c : text)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return text == "true" || text == "1" || text == "-1";
}

std::int32_t readBlankSetting(SettingsStore& store)
{
    return readNumber(store, Setting::Blank, roundedToInt32);
}

PreProcessSettings readPreProcessSettings(SettingsStore& store)
{
    const auto read = [&](Setting setting) { return readSetting(store, setting, DefaultOf::columnSetup); };
    return {.par = read(Setting::PAR),
            .vpd = read(Setting::VPD),
            .parLimit = read(Setting::PARlimit),
            .vpdLimit = read(Setting::VPDlimit),
            .lullTime = read(Setting::lullTime)};
}

void writeClosingSettings(SettingsStore& store, const ClosingSettings& settings, const Geometry* geometry)
{
    writeSetting(store, Setting::Ref, settings.ref);
    writeSetting(store, Setting::High, settings.high ? "1" : "0");
    writeSetting(store, Setting::Date, plainText(settings.date));
    writeSetting(store, Setting::Time, plainText(settings.time));
    writeSetting(store, Setting::ZoomFactor, plainText(settings.zoomFactor));
    if (geometry == nullptr) return;
    writeSetting(store, Setting::MainLeft, float32Text(geometry->left));
    writeSetting(store, Setting::MainTop, float32Text(geometry->top));
    writeSetting(store, Setting::MainWidth, float32Text(geometry->width));
    writeSetting(store, Setting::MainHeight, float32Text(geometry->height));
}

void writeNewWindowGeometry(SettingsStore& store, const Geometry& window, float screenWidth, float screenHeight)
{
    writeSetting(store, Setting::MainLeft, float32Text(window.left));
    writeSetting(store, Setting::MainTop, float32Text(window.top));
    writeSetting(store, Setting::MainHeight, float32Text(fittingSize(window.top, window.height, screenHeight)));
    writeSetting(store, Setting::MainWidth, float32Text(fittingSize(window.left, window.width, screenWidth)));
}

} // namespace tarvelint
