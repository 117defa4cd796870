// SPDX-License-Identifier: MIT
#include "edit/plot_pointer.h"

#include "data/numbers.h"
#include "window/plot_scale.h"
#include "window/raised.h"

#include <algorithm>

namespace tarvelint {

namespace {

constexpr std::int32_t kReach = 3; // rows to either side in which a press finds a point, and sloppy mode an extreme

} // namespace

bool PlotPointer::canWork() const
{
    return !m_record.isEmpty() && m_record.hasColumn(m_view.curCol());
}

std::int32_t PlotPointer::rowUnder(float x) const
{
    return std::clamp(rowAt(x, m_view.HScroll1.Value, m_view.zoomFactor), 0, m_record.lines - 1);
}

void PlotPointer::Picture1_MouseDown(const PointerPress& press)
{
    if (press.button == PointerButton::right && m_valueEdit.isWaiting()) return m_valueEdit.remind();
    if (!canWork() || m_view.isHeld) return;
    m_view.heldButton = press.button;
    m_view.isHeld = true;
    m_view.buttonReleased = false;
    noteMovement(press.x);
    if (press.button == PointerButton::right) return editValue(press.x);
    pressOn(rowUnder(press.x), press.withShift);
}

void PlotPointer::pressOn(std::int32_t row, bool withShift)
{
    if (m_view.lineMode)
        oneClickPress(m_view.Sloppy ? m_view.hoverRow : row);
    else
        traditionalPress(row, withShift);
}

/// The dialog takes the release.
void PlotPointer::editValue(float x)
{
    const Raised held(m_view.isHeld);
    m_valueEdit.editValue(x);
}

void PlotPointer::noteMovement(float x)
{
    m_view.pointerX = x;
    const std::int32_t row = rowUnder(x);
    showCues(row);
    if (m_view.lineMode && m_view.Sloppy) snap(row);
}

void PlotPointer::oneClickPress(std::int32_t row)
{
    if (!m_view.chainActive) {
        m_view.chainActive = true;
        m_window.setPointer(Pointer::fourWay);
        m_view.selStart = m_view.selEnd = m_view.lastClick = row;
        return m_window.showAll();
    }
    m_view.selStart = std::min(m_view.lastClick, row);
    m_view.selEnd = std::max(m_view.lastClick, row);
    m_view.lastClick = row;
    m_window.convertSelection(false);
    m_window.showAll();
}

void PlotPointer::traditionalPress(std::int32_t row, bool withShift)
{
    if (m_view.Turbo) pickPoint(row);
    if (!withShift)
        m_view.lastClick = m_view.selStart = m_view.selEnd = row;
    else if (m_view.lastClick < row)
        m_view.selEnd = row;
    else
        m_view.selStart = row;
    m_window.updateCues();
    m_window.redrawBoth();
}

void PlotPointer::pickPoint(std::int32_t row)
{
    m_view.dropPoint();
    if (m_view.curLayer != kUnconverted) return; // points are picked where they are shown
    for (std::int32_t r = row - kReach; r <= row + kReach; ++r) {
        if (!m_sensors.isPoint(m_view.curSensor, r)) continue;
        m_view.grabbedPoint = m_view.markRow = r;
        return;
    }
}

void PlotPointer::Picture1_MouseMove(float x)
{
    m_view.pointerX = x;
    if (!canWork()) return;
    const std::int32_t row = rowUnder(x);
    showCues(row);
    if (m_view.lineMode)
        moveInLineMode(x);
    else
        moveInTraditionalMode(x, row);
}

void PlotPointer::moveInLineMode(float x)
{
    m_view.buttonReleased = false;
    m_window.doScroll(x, false);
    const std::int32_t row = rowUnder(m_view.pointerX); // scrolling has brought another one there
    showCues(row);
    if (m_view.Sloppy) {
        snap(row);
        m_window.redraw(0, false);
    }
    if (m_view.curLayer != kUnconverted) return m_ui.setPlotToolTip({});
    m_ui.setPlotToolTip(
        m_view.Sloppy ? screenText(m_record.values(kUnconverted, m_view.curCol(), m_view.hoverRow), m_style.grouping())
                      : m_window.text(Control::inLabel));
}

void PlotPointer::moveInTraditionalMode(float x, std::int32_t row)
{
    if (isDragging() && m_view.Turbo && m_view.curSensor >= 0 && isPointInHand()) {
        m_view.dragRow = row;
        return m_window.redraw(0, true);
    }
    if (isDragging()) {
        m_view.buttonReleased = false;
        m_window.doScroll(x, true);
    }
    m_ui.setPlotToolTip({});
}

void PlotPointer::snap(std::int32_t row)
{
    const auto readings = m_record.values.column(kUnconverted, m_view.curCol());
    const bool high = m_window.conversionSettings.baselineIsHigh;
    m_view.hoverRow = row;
    // A missing reading counts as the number it is, and of equal ones the first row holds.
    for (std::int32_t r = std::max(row - kReach, 0); r <= std::min(row + kReach, m_record.lines - 1); ++r) {
        const double held = readings[m_view.hoverRow];
        if (high ? readings[r] > held : readings[r] < held) m_view.hoverRow = r;
    }
}

void PlotPointer::showCues(std::int32_t row)
{
    const std::string grouping = m_style.grouping();
    const auto cell = [&](int layer) { return screenText(m_record.values(layer, m_view.curCol(), row), grouping); };
    const auto parameter = [&](std::int32_t column0) {
        return m_record.hasColumn(column0) ? generalText(m_record.values(kUnconverted, column0, row)) : std::string();
    };
    m_window.setText(Control::inLabel, cell(kUnconverted));
    m_window.setText(Control::baseLabel, cell(kBaseline));
    m_window.setText(Control::outLabel, cell(kConverted));
    m_window.setText(Control::dateLabel, parameter(m_view.dateCol - 1));
    m_window.setText(Control::timeLabel, parameter(m_view.timeCol - 1));
}

void PlotPointer::Picture1_MouseUp(float x)
{
    if (!m_view.isHeld) return; // its press was not taken
    releaseWhileBusy();
    m_view.pointerX = x;
    if (canWork() && isPointInHand()) dropAt(rowUnder(x));
}

void PlotPointer::dropAt(std::int32_t row)
{
    const std::int32_t from = m_view.grabbedPoint;
    m_view.grabbedPoint = m_view.dragRow = -1;
    if (m_record.isBlank(m_record.values(kUnconverted, m_view.curCol(), row))) {
        m_ui.beep();
    } else {
        m_view.markRow = row;
        m_window.setPoint(row, from, false);
    }
    m_window.showAll();
}

void PlotPointer::Picture1_DblClick()
{
    if (!canWork() || m_view.isHeld) return; // another button's
    m_view.heldButton = PointerButton::left;
    m_view.isHeld = true;
    m_view.buttonReleased = false;
    doubleClick();
}

void PlotPointer::doubleClick()
{
    m_view.grabbedPoint = m_view.dragRow = -1;
    if (!m_view.Turbo || m_view.curSensor < 0) return mnuToolsBreak_Click();
    const std::int32_t row = rowUnder(m_view.pointerX);
    if (m_record.isBlank(m_record.values(kUnconverted, m_view.curCol(), row))) return m_ui.beep();
    m_view.markRow = row;
    m_window.setPoint(row, -1, false);
    m_window.showAll();
}

void PlotPointer::moveWhileBusy(float x)
{
    m_view.pointerX = x;
    if (canWork()) showCues(rowUnder(x));
}

void PlotPointer::releaseWhileBusy()
{
    m_view.isHeld = false;
    m_view.buttonReleased = true;
}

void PlotPointer::endGesture()
{
    const bool wasInHand = isPointInHand();
    releaseWhileBusy();
    m_view.grabbedPoint = m_view.dragRow = -1;
    if (wasInHand) m_window.showAll();
}

void PlotPointer::endHoverScrolling()
{
    if (!m_view.isHeld) m_view.buttonReleased = true;
}

void PlotPointer::moveRowCursor(float x)
{
    if (!canWork()) return;
    noteMovement(x);
    if (m_view.lineMode && m_view.Sloppy) m_window.redraw(0, false);
    if (!isPointInHand()) return;
    m_view.dragRow = rowUnder(x);
    m_window.redraw(0, true);
}

void PlotPointer::pressAt(float x, bool withShift)
{
    if (!canWork()) return;
    if (isPointInHand()) return dropAt(rowUnder(x));
    {
        const Raised held(m_view.isHeld); // nothing else begins meanwhile, and it ends whatever happens
        noteMovement(x);
        pressOn(rowUnder(x), withShift);
    }
    m_view.buttonReleased = true;
}

void PlotPointer::doubleClickAt(float x)
{
    if (!canWork()) return;
    noteMovement(x);
    const Raised held(m_view.isHeld);
    doubleClick();
}

void PlotPointer::editValueAt(float x)
{
    if (m_valueEdit.isWaiting()) return m_valueEdit.remind();
    if (!canWork()) return;
    noteMovement(x);
    editValue(x);
}

void PlotPointer::mnuToolsMode_Click()
{
    if (m_view.Turbo) return;
    if (!m_view.lineMode) {
        m_view.lineMode = true;
        m_view.chainActive = false;
        m_window.showMode();
    } else if (!m_view.Sloppy) {
        m_view.Sloppy = true;
        m_window.showMode(false);
        m_window.redrawBoth();
    } else {
        m_view.lineMode = m_view.Sloppy = false;
        m_window.showMode();
    }
}

void PlotPointer::mnuToolsBreak_Click()
{
    if (!m_view.lineMode) return;
    m_view.chainActive = false;
    m_window.setPointer(Pointer::northSouth);
}

} // namespace tarvelint
