// SPDX-License-Identifier: MIT
#pragma once

#include "data/data_set.h"
#include "data/setting_defaults.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace tarvelint {

/// `HScroll1`. Its numbers fit 16 bits except in long-record mode.
struct ScrollBar {
    std::int32_t Min = 0;
    std::int32_t Max = 0;
    std::int32_t Value = 0; ///< first row shown
    std::int32_t SmallChange = 1;
    std::int32_t LargeChange = 1;
};

/// A button of the pointer, by what it does on the plot.
enum class PointerButton { left, right, other };

/// What of a record is shown, and what of it is selected. Rows and columns are 0-based; elements 0 and 1 belong to the
/// main and the companion area.
struct View {
    // Rows and columns
    ScrollBar HScroll1;
    bool longRecord = false;                          ///< the record is longer than 16-bit scrolling reaches
    std::int16_t zoomFactor = 1;                      ///< plot units per row
    std::int16_t zoomLevel = 0;                       ///< pen width less one
    bool entriesAreLabels = false;                    ///< of both column lists, else numbers; lags behind `showsLabels`
    std::array<std::int32_t, 2> chosenColumn{-1, -1}; ///< entry of `varList`, -1 none
    std::int32_t curLayer = kUnconverted;             ///< of the main area
    /// Sensor ordinal of `curCol`, -1 on a parameter column. Kept and not computed from `curCol`: it follows only when
    /// a column is chosen while `Turbo` is set, and is -1 until then.
    std::int32_t curSensor = -1;
    /// 1-based columns that cues give as the day and the time.
    std::int16_t dateCol = defaults::kDate.as<std::int16_t>();
    std::int16_t timeCol = defaults::kTime.as<std::int16_t>();

    // Values
    std::array<bool, 2> automaticRange{false, false};
    bool showsReference = false; ///< the companion's reference line
    bool showsLabels = false;    ///< the column lists read labels, else numbers
    bool showsToolBar = false;
    bool showsStatusBar = false;
    double yScale = 0; ///< plot units per data unit, as the last redraw of either area left it

    // Selection and points
    std::int32_t selStart = 0;
    std::int32_t selEnd = 0;
    std::int32_t lastClick = 0; ///< anchor row of the selection
    std::int32_t markRow = -1;
    std::int32_t grabbedPoint = -1;
    std::int32_t dragRow = -1;
    std::int32_t hoverRow = 0;

    // Pointer over the main area
    float pointerX = 0;          ///< latest place, plot units from the left edge
    bool buttonReleased = false; ///< ends the scrolling at an edge
    bool isHeld = false;         ///< a button was pressed there and is not released yet
    PointerButton heldButton = PointerButton::left;
    std::int32_t rowCursor = -1; ///< the row that the keyboard points at, -1 none

    // Modes
    bool Turbo = false;    ///< baseline points drive the fixed conversion
    bool lineMode = false; ///< one-click baseline
    bool Sloppy = false;   ///< one-click snaps to the nearby extreme reading
    bool chainActive = false;

    /// The column being worked on: the one that the main area shows, -1 none.
    [[nodiscard]] std::int32_t curCol() const { return chosenColumn[0]; }
    [[nodiscard]] std::int32_t chosen(int index) const { return chosenColumn.at(static_cast<std::size_t>(index)); }
    [[nodiscard]] bool isAutomatic(int index) const { return automaticRange.at(static_cast<std::size_t>(index)); }
    /// No point is picked, grabbed or being moved.
    void dropPoint() { markRow = grabbedPoint = dragRow = -1; }
};

} // namespace tarvelint
