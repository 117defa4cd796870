// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tarvelint {

/// The per-user store: texts by key, in section "Settings" of the application's title.
class SettingsStore {
public:
    virtual ~SettingsStore() = default;
    /// The stored text, character by character; `defaultText` when the key is absent or the store cannot be read.
    [[nodiscard]] virtual std::string readSetting(std::string_view key, std::string_view defaultText) = 0;
    /// A store that cannot be written loses the text in silence.
    virtual void writeSetting(std::string_view key, std::string_view text) = 0;
};

/// Left, top, width and height of a window in twips (1/1440 inch; 15 to a device-independent pixel).
struct Geometry {
    float left = 1000;
    float top = 1000;
    float width = 6500;
    float height = 6500;
    bool operator==(const Geometry&) const = default;
};

/// What a new window reads; the initialisers are the defaults of an empty store.
struct WindowSettings {
    std::int16_t zoomFactor = 1; ///< 1, 2, 4 or 8
    Geometry geometry;
    std::int16_t date = 1;
    std::int16_t time = 2;
    std::string equation = "119*((B/X)-1)^1.23";
    std::int32_t blank = 99999;
    std::string ref = "0";
    bool high = true;
    bool zero = false;
};

/// Reads in the order ZoomFactor, geometry, Date, Time, Equation, Blank, Ref, High, Zero. A value that
/// does not convert or overflows takes its default, in silence.
[[nodiscard]] WindowSettings readWindowSettings(SettingsStore& store);

/// The missing-value number, 99999 when the stored text is no number or does not fit.
[[nodiscard]] std::int32_t readBlankSetting(SettingsStore& store);

/// "Zero": True for 1, -1 and "True" in any case.
[[nodiscard]] bool readZeroSetting(SettingsStore& store);

/// Texts of the column set-up's boxes, with that dialog's own defaults.
struct PreProcessSettings {
    std::string par = "3";
    std::string vpd = "11";
    std::string parLimit = "0.01";
    std::string vpdLimit = "0.05";
    std::string lullTime = "3";
};
/// The texts as they are stored; they become numbers only when the user presses OK.
[[nodiscard]] PreProcessSettings readPreProcessSettings(SettingsStore& store);

/// What a closing window writes.
struct ClosingSettings {
    std::string ref;
    bool high = true;
    std::int16_t date = 1;
    std::int16_t time = 2;
    std::int16_t zoomFactor = 1;
};

/// Writes Ref, High, Date, Time, ZoomFactor, then the geometry unless `geometry` is null (a minimised window).
void writeClosingSettings(SettingsStore& store, const ClosingSettings& settings, const Geometry* geometry);

/// The new-window command: left and top as they are, width and height cut so that a window opened there
/// fits the screen. Screen size in twips.
void writeNewWindowGeometry(SettingsStore& store, const Geometry& window, float screenWidth, float screenHeight);

/// Kept free between a window and the screen's edge when its size is cut, in twips.
inline constexpr float kScreenMargin = 300;

} // namespace tarvelint
