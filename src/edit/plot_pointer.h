// SPDX-License-Identifier: MIT
#pragma once

#include "edit/value_edit.h"
#include "window/window.h"

#include <cstdint>
#include <string>

namespace tarvelint {

/// A press on a plot area, as the toolkit tells it.
struct PointerPress {
    PointerButton button = PointerButton::left;
    bool withShift = false; ///< Shift and no other modifier
    float x = 0;            ///< plot units from the area's left edge
};

/// The pointer over the main area: selects and drags in traditional mode, lays a baseline click by click in the
/// one-click modes, and picks and moves baseline points under `Turbo`. Rows beside the record count as the nearest one.
class PlotPointer {
public:
    explicit PlotPointer(Window& window)
        : m_window(window), m_view(window.view), m_record(window.record), m_sensors(window.sensors), m_ui(window.ui),
          m_style(window.env.style), m_valueEdit(window)
    {
    }

    /// A press first counts as a movement to its place, and is held until its button is released; other buttons count
    /// for nothing meanwhile. A right press edits the value of its row.
    void Picture1_MouseDown(const PointerPress& press);
    /// The pointer moved: cues, and what the mode does with a movement. May scroll at an edge until that ends.
    void Picture1_MouseMove(float x);
    /// The button that is held was released: a point in hand is dropped.
    void Picture1_MouseUp(float x);
    /// Break, or under `Turbo` a new point where the pointer last was. The button is held again, with no point in hand.
    void Picture1_DblClick();

    /// The window is at work: only the place and the cues count.
    void moveWhileBusy(float x);
    /// The button was released while the window is at work: scrolling at an edge ends.
    void releaseWhileBusy();
    /// The gesture ends where the pointer last was; a point in hand goes back to its place.
    void endGesture();
    /// Scrolling without a button ends: the pointer has left the area, or a key or button was pressed.
    void endHoverScrolling();

    /// The keyboard's row cursor came to `x`: a movement without scrolling at an edge.
    void moveRowCursor(float x);
    /// Enter on the row cursor: press and release there. Under `Turbo` it takes a point within reach in hand, and the
    /// next one drops it.
    void pressAt(float x, bool withShift);
    /// Ctrl+Enter and the Menu key there.
    void doubleClickAt(float x);
    void editValueAt(float x);

    /// "&Mode Change": traditional, one-click, sloppy one-click, and round again. Nothing under `Turbo`.
    void mnuToolsMode_Click();
    /// Ends a one-click chain.
    void mnuToolsBreak_Click();

private:
    [[nodiscard]] bool canWork() const;
    [[nodiscard]] std::int32_t rowUnder(float x) const;
    void noteMovement(float x);
    void showCues(std::int32_t row);
    void snap(std::int32_t row);
    void oneClickPress(std::int32_t row);
    void traditionalPress(std::int32_t row, bool withShift);
    void pressOn(std::int32_t row, bool withShift);
    void doubleClick();
    void pickPoint(std::int32_t row);
    void editValue(float x);
    [[nodiscard]] bool isDragging() const { return m_view.isHeld && m_view.heldButton == PointerButton::left; }
    void moveInLineMode(float x);
    void moveInTraditionalMode(float x, std::int32_t row);
    [[nodiscard]] bool isPointInHand() const { return m_view.grabbedPoint >= 0; }
    void dropAt(std::int32_t row);

    Window& m_window;
    View& m_view;
    const Record& m_record;
    const Sensors& m_sensors;
    Ui& m_ui;
    const SystemStyle& m_style;
    ValueEdit m_valueEdit;
};

} // namespace tarvelint
