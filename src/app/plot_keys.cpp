// SPDX-License-Identifier: MIT
#include "app/plot_keys.h"

#include "app/engine.h"
#include "data/numbers.h"
#include "window/plot_scale.h"

#include <algorithm>

namespace tarvelint {

bool PlotKeys::hasRecord() const
{
    return !m_engine.record.isEmpty();
}

void PlotKeys::Form_KeyDown(KeyCode key)
{
    if (!hasRecord()) return;
    const auto entry = [this](Control control, const auto& run) {
        if (m_engine.isEnabled(control)) run();
    };
    switch (key) {
    case KeyCode::escape:
        if (m_engine.view.grabbedPoint >= 0) return m_engine.pointing.endGesture(); // taken in hand by Enter
        return entry(Control::mnuToolsBreak, [this] { m_engine.pointing.mnuToolsBreak_Click(); });
    case KeyCode::space: m_engine.selection.skip(true); return;
    case KeyCode::left: return m_engine.selection.shrinkRight();
    case KeyCode::up: return m_engine.selection.shrinkLeft();
    case KeyCode::right: return m_engine.selection.growRight();
    case KeyCode::down: return m_engine.selection.growLeft();
    case KeyCode::deleteKey:
    case KeyCode::d: return entry(Control::mnuToolsDelete, [this] { m_engine.tools.mnuToolsDelete_Click(); });
    case KeyCode::f2:
    case KeyCode::c: return entry(Control::mnuToolsConvert, [this] { m_engine.conversion.mnuToolsConvert_Click(); });
    case KeyCode::i: return entry(Control::mnuToolsInterpolate, [this] { m_engine.tools.mnuToolsInterpolate_Click(); });
    case KeyCode::m: return entry(Control::mnuToolsMode, [this] { m_engine.pointing.mnuToolsMode_Click(); });
    case KeyCode::v: return entry(Control::viewButton, [this] { m_engine.display.viewButton_Click(); });
    case KeyCode::keypadPlus:
    case KeyCode::plus: return entry(Control::mnuViewZoomIn, [this] { m_engine.scrolling.mnuViewZoomIn_Click(); });
    case KeyCode::keypadMinus:
    case KeyCode::minus: return entry(Control::mnuViewZoomOut, [this] { m_engine.scrolling.mnuViewZoomOut_Click(); });
    }
}

std::int32_t PlotKeys::startRow() const
{
    const View& view = m_engine.view;
    const float width = m_engine.ui.surface(0).scaleWidth();
    const std::int32_t last = lastVisibleRow(width, view.zoomFactor, view.HScroll1.Value, m_engine.record.lines);
    return view.selStart >= view.HScroll1.Value && view.selStart <= last ? view.selStart : view.HScroll1.Value;
}

void PlotKeys::moveRowCursor(std::int32_t rows)
{
    if (!hasRecord()) return;
    const bool isThere = m_engine.view.rowCursor >= 0;
    placeRowCursor(isThere ? m_engine.view.rowCursor + rows : startRow());
}

void PlotKeys::moveRowCursorFar(std::int32_t tenthsOfScreen)
{
    const float rowsShown = m_engine.ui.surface(0).scaleWidth() / static_cast<float>(m_engine.view.zoomFactor);
    moveRowCursor(tenthsOfScreen * std::max(roundToInt32(static_cast<double>(rowsShown) / 10), 1));
}

void PlotKeys::placeRowCursor(std::int32_t row)
{
    const std::int32_t within = std::clamp(row, 0, m_engine.record.lines - 1);
    m_engine.view.rowCursor = within;
    bringIntoView(within);
    m_engine.pointing.moveRowCursor(cursorX());
    tellRow();
}

void PlotKeys::bringIntoView(std::int32_t row)
{
    const View& view = m_engine.view;
    const float width = m_engine.ui.surface(0).scaleWidth();
    const auto shown = std::max(static_cast<std::int32_t>(width) / view.zoomFactor, 1);
    if (row < view.HScroll1.Value) m_engine.setScrollValue(row);
    if (row >= view.HScroll1.Value + shown) m_engine.setScrollValue(row - shown + 1);
}

void PlotKeys::tellRow()
{
    const std::int32_t row = m_engine.view.rowCursor;
    if (row < 0) return m_engine.setText(Control::Picture1_0, {});
    const Record& record = m_engine.record;
    const auto reading = [&](std::int32_t column0) {
        return record.hasColumn(column0) ? generalText(record.values(kUnconverted, column0, row)) : std::string("none");
    };
    m_engine.setText(Control::Picture1_0, "row " + plainText(row + 1) + ", reading " + reading(m_engine.view.curCol()) +
                                              ", day " + reading(m_engine.view.dateCol - 1) + ", time " +
                                              reading(m_engine.view.timeCol - 1));
}

float PlotKeys::cursorX() const
{
    const View& view = m_engine.view;
    return rowX(view.rowCursor, view.HScroll1.Value, view.zoomFactor);
}

void PlotKeys::pressEnter(bool withShift)
{
    if (!hasRecord() || m_engine.view.rowCursor < 0) return;
    bringIntoView(m_engine.view.rowCursor);
    m_engine.pointing.pressAt(cursorX(), withShift);
}

void PlotKeys::doubleClickHere()
{
    if (!hasRecord() || m_engine.view.rowCursor < 0) return;
    bringIntoView(m_engine.view.rowCursor);
    m_engine.pointing.doubleClickAt(cursorX());
}

void PlotKeys::editValueHere()
{
    if (!hasRecord() || m_engine.view.rowCursor < 0) return;
    if (!m_engine.dialogs.isValueDialogOpen()) bringIntoView(m_engine.view.rowCursor);
    m_engine.pointing.editValueAt(cursorX());
}

} // namespace tarvelint
