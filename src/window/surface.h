// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace tarvelint {

/// Red, green and blue of the screen, 0 to 255 each.
struct Color {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    bool operator==(const Color&) const = default;
};

namespace colors {
inline constexpr Color kBlack{0, 0, 0};
inline constexpr Color kRed{255, 0, 0};
inline constexpr Color kCyan{0, 255, 255};
inline constexpr Color kYellow{255, 255, 0};
inline constexpr Color kWhite{255, 255, 255};
inline constexpr Color kBlue{0, 0, 255};
} // namespace colors

/// What plots are drawn on: origin top left, x right, y down, units are device-independent
/// pixels. Keeps its pixels until erased; clips by itself; does not smooth lines.
class Surface {
public:
    virtual ~Surface() = default;
    [[nodiscard]] virtual float scaleWidth() const = 0;
    [[nodiscard]] virtual float scaleHeight() const = 0;
    /// Fills the area with the program's own background; pen and current point stay.
    virtual void erase() = 0;
    /// Width in units of every line and outline from here on.
    virtual void setPenWidth(int width) = 0;
    /// Sets the current point.
    virtual void moveTo(float x, float y) = 0;
    /// Line from the current point, which moves to the line's end.
    virtual void lineTo(float x, float y, Color color) = 0;
    /// Line between two points; the current point moves to its end.
    virtual void line(float x1, float y1, float x2, float y2, Color color) = 0;
    /// Box between two opposite corners, without outline. The current point stays.
    virtual void filledBox(float x1, float y1, float x2, float y2, Color color) = 0;
    /// Circle outlined in `color` and filled with `fill`. The current point becomes its centre.
    virtual void circle(float x, float y, float radius, Color color, Color fill) = 0;
};

} // namespace tarvelint
