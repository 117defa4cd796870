// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>
#include <vector>

/// Where everything of a main window stands. Lengths are twips, 15 to a device-independent pixel, of the area below the
/// menu bar, tool bar and status bar included.
namespace tarvelint {

inline constexpr double kTwipsPerPixel = 15;

/// A place in device-independent pixels; no length is negative.
struct PixelRect {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
    bool operator==(const PixelRect&) const = default;
};

/// One control and its place.
struct PlacedControl {
    std::string_view name; ///< the control's given name; elements of control arrays end in their index
    PixelRect place;       ///< from the corner of `Frame1` for what is in it, else of the whole area
    bool isInFrame = false;
    bool isShown = true; ///< False for a caption that a low window has no room for
};

/// The rules of `Form_Resize`: both plots grow with the window, one below the other; what belongs to them keeps to
/// them, and the three rows of cues to the frame's lower edge. Everything else stands where it was designed.
/// @param width, height  of the area below the menu bar, in device-independent pixels
[[nodiscard]] std::vector<PlacedControl> placeControls(int width, int height);

/// The least size of a main window, menu bar included: 7800 x 6650 twips in whole pixels.
inline constexpr int kLeastWidth = 520;
inline constexpr int kLeastHeight = 444;

} // namespace tarvelint
