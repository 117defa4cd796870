// SPDX-License-Identifier: MIT
#pragma once

#include "window/window.h"

#include <algorithm>
#include <cstdint>
#include <optional>

namespace tarvelint {

/// Range and steps of the scroll bar, in rows.
struct ScrollRange {
    std::int32_t Max = 0;
    std::int32_t SmallChange = 1; ///< a tenth of a screen; 0 where five rows or fewer are shown
    std::int32_t LargeChange = 1; ///< one screen
    bool operator==(const ScrollRange&) const = default;
};

/// What lets an area of `width` plot units scroll through `lines` rows; each number is rounded, halves to even.
/// None when one of them does not fit 16 bits.
[[nodiscard]] std::optional<ScrollRange> scrollRange16(float width, std::int16_t zoomFactor, std::int32_t lines);
/// The same formulas in 32 bits, which every record fits.
[[nodiscard]] ScrollRange scrollRange32(float width, std::int16_t zoomFactor, std::int32_t lines);

/// First row that brings `row` to the middle of an area of `width` plot units, within 0..max.
[[nodiscard]] std::int32_t valueCentring(std::int32_t row, float width, std::int16_t zoomFactor, std::int32_t max);

/// Scroll bar and zoom of a window.
class Scrolling {
public:
    explicit Scrolling(Window& window) : m_window(window), m_view(window.view), m_record(window.record), m_ui(window.ui)
    {
    }

    /// Fits the scroll bar to the main area's width, the record and the zoom; a current baseline point is brought to
    /// the middle. Draws nothing: what calls it does.
    /// @throws NumericOverflow, having changed nothing, when the record is too long for 16 bits
    void scrollset();
    /// What opening, zooming and resizing call: `scrollset` or, when that would overflow, the same in 32 bits, in
    /// long-record mode. A record that fits 16 bits leaves the mode.
    void fitScrollBar();

    /// Both plots have another size: fits the scroll bar and draws them.
    void Form_Resize();

    /// Doubles the zoom, up to 8 units a row, fits the scroll bar and draws both areas afresh.
    void mnuViewZoomIn_Click();
    /// Halves it, down to 1 unit a row.
    void mnuViewZoomOut_Click();
    /// Enables the two zoom entries as far as the zoom can still go.
    void showZoomEntries();
    /// Draws over what is there without erasing.
    void mnuViewRefresh_Click();

    /// The pointer moved to `x` of the main area. At or beyond an edge the view scrolls by `SmallChange` a pass, at
    /// most 20 passes a second, until the pointer comes back, the button is released or the record ends; with `extend`
    /// the selection is drawn along, elsewhere too. While it scrolls, another call does nothing.
    void doScroll(float x, bool extend);

    [[nodiscard]] bool isAtEdge() const { return m_isAtEdge; }

    /// The wheel was turned over a plot, in eighths of a degree, positive away from the hand: each 15 degrees scroll by
    /// `SmallChange`, away towards earlier rows, or with `zooms` zoom in or out while the entry is enabled. Less adds
    /// up.
    void turnWheel(int eighthsOfDegrees, bool zooms);
    /// One screen back or on, to the first row, to the last screen.
    enum class ScrollKey { pageUp, pageDown, home, end };
    void pressScrollKey(ScrollKey key);

    /// The thumb was dragged to `value` (first row shown, clipped to the bar); the window's `HScroll1_Change` is
    /// left to its release.
    void HScroll1_Scroll(std::int32_t value) { m_window.dragScrollValue(value); }
    /// Hands the focus back: keys always go to the plot.
    void HScroll1_GotFocus();

private:
    [[nodiscard]] float width() const { return m_ui.surface(0).scaleWidth(); }
    void apply(const ScrollRange& range);
    void zoomTo(double unitsPerRow);
    [[nodiscard]] std::int32_t step() const { return std::max(m_view.HScroll1.SmallChange, 1); }
    [[nodiscard]] std::int32_t clipped(std::int64_t firstRow) const;
    struct Edge;
    [[nodiscard]] std::optional<Edge> edgeAt(float x) const;
    enum class Ended { pointerBack, recordEnd, released };
    [[nodiscard]] Ended scrollAt(const Edge& edge, bool extend);
    void drawDragged(float x, bool clear, bool extend);

    Window& m_window;
    View& m_view;
    const Record& m_record;
    Ui& m_ui;
    bool m_isAtEdge = false; ///< `doScroll` runs
    int m_turned = 0;        ///< eighths of a degree that make no whole step yet
    bool m_turnZooms = false;
};

} // namespace tarvelint
