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

/// Every key of the store, called what it is called there.
enum class Setting {
    ZoomFactor,
    MainLeft,
    MainTop,
    MainWidth,
    MainHeight,
    Date,
    Time,
    Equation,
    Blank,
    Ref,
    High,
    Zero,
    VPD,
    PAR,
    VPDlimit,
    PARlimit,
    lullTime
};

/// Whose default an absent key takes: PARlimit and lullTime have two.
enum class DefaultOf { optionsDialog, columnSetup };

/// What `readSetting` answers for an absent key.
[[nodiscard]] std::string_view defaultText(Setting setting, DefaultOf whose = DefaultOf::optionsDialog);
/// The stored text, else the default.
[[nodiscard]] std::string readSetting(SettingsStore& store, Setting setting,
                                      DefaultOf whose = DefaultOf::optionsDialog);
void writeSetting(SettingsStore& store, Setting setting, std::string_view text);

/// Left, top, width and height of a window in twips (1/1440 inch; 15 to a device-independent pixel).
struct Geometry {
    float left = 0;
    float top = 0;
    float width = 0;
    float height = 0;
    bool operator==(const Geometry&) const = default;
};

/// What a new window reads.
struct WindowSettings {
    std::int16_t zoomFactor = 1; ///< 1, 2, 4 or 8
    Geometry geometry;
    std::int16_t date = 0; ///< 1-based, like `time`
    std::int16_t time = 0;
    std::string equation;
    std::int32_t blank = 0;
    std::string ref;
    bool high = false;
    bool zero = false;
};

/// Reads in the order ZoomFactor, geometry, Date, Time, Equation, Blank, Ref, High, Zero. A value that
/// does not convert or overflows takes its default, in silence.
[[nodiscard]] WindowSettings readWindowSettings(SettingsStore& store);

/// The missing-value number, its default when the stored text is no number or does not fit.
[[nodiscard]] std::int32_t readBlankSetting(SettingsStore& store);

/// "Zero": True for 1, -1 and "True" in any case.
[[nodiscard]] bool readZeroSetting(SettingsStore& store);

/// Texts of the column set-up's boxes.
struct PreProcessSettings {
    std::string par;
    std::string vpd;
    std::string parLimit;
    std::string vpdLimit;
    std::string lullTime;
};
/// The texts as they are stored, else that dialog's own defaults; they become numbers only when the user presses OK.
[[nodiscard]] PreProcessSettings readPreProcessSettings(SettingsStore& store);

/// What a closing window writes.
struct ClosingSettings {
    std::string ref;
    bool high = false;
    std::int16_t date = 0;
    std::int16_t time = 0;
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
