// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace tarvelint {

class Window;

/// Finds zero flow without the user: sap stands still in long calm, dark spells, when vapour pressure deficit (VPD) and
/// photosynthetically active radiation (PAR) are both low, and a probe then reads its highest.
class ZeroFlow {
public:
    explicit ZeroFlow(Window& window) : m_window(window) {}

    /// Sets `lullFlags` on the rows of a lull from the `lullTime`-th after its first row on; never clears one. VPD and
    /// PAR come from the columns `vpdCol` and `parCol` (0-based) of the readings; when either does not exist no row is
    /// flagged.
    void preProcess();

    /// Discards all baseline points, places one at the highest reading of each lull in every sensor column, and
    /// computes baseline and converted values between them through the window's `turboCalc`. `sensors` is the number of
    /// columns not marked as parameters, counted by the caller.
    void getBase();

    /// The "Baseline" button: straight lines between the highest readings of consecutive 48-row blocks, in the baseline
    /// layer of the column on view. Takes an undo copy of the whole column; nothing happens when no column is chosen.
    void baseButton_Click();

private:
    void listSensorColumns();
    void placePoints(std::int32_t sensor);
    void convertBetweenPoints();
    /// Converts the segments of `sensor` that end in rows `first`..`end`-1; `previous` is the point before them, -1
    /// none.
    void convertUpTo(std::int32_t sensor, std::int32_t first, std::int32_t end, std::int32_t& previous);
    void drawBlockMaxima(std::int32_t column);
    void drawLine(std::int32_t column, std::int32_t from, std::int32_t to);

    Window& m_window;
};

} // namespace tarvelint
