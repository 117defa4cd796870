// SPDX-License-Identifier: MIT
#include "view/scrolling.h"

#include "data/numbers.h"

#include <algorithm>

namespace tarvelint {

namespace {

constexpr std::int16_t kLargestZoom = 8;

template <class Round>
ScrollRange scrollRange(float width, std::int16_t zoomFactor, std::int32_t lines, Round round)
{
    if (static_cast<double>(width) >= static_cast<double>(zoomFactor) * lines) return {};
    const double rowsShown = static_cast<double>(width) / zoomFactor;
    ScrollRange range;
    range.Max = std::max<std::int32_t>(0, round(lines - rowsShown - 1));
    range.LargeChange = round(rowsShown);
    range.SmallChange = round(range.LargeChange / 10.0);
    return range;
}

bool fits16Bits(float width, std::int16_t zoomFactor, std::int32_t lines)
{
    try {
        static_cast<void>(scrollRange16(width, zoomFactor, lines));
        return true;
    } catch (const NumericOverflow&) {
        return false;
    }
}

} // namespace

ScrollRange scrollRange16(float width, std::int16_t zoomFactor, std::int32_t lines)
{
    return scrollRange(width, zoomFactor, lines, roundToInt16);
}

ScrollRange scrollRange32(float width, std::int16_t zoomFactor, std::int32_t lines)
{
    return scrollRange(width, zoomFactor, lines, roundToInt32);
}

std::int32_t valueCentring(std::int32_t row, float width, std::int16_t zoomFactor, std::int32_t max)
{
    const double half = static_cast<double>(width) / (2.0 * zoomFactor);
    return row > half ? std::min(roundToInt32(row - half), max) : 0;
}

void Scrolling::scrollset()
{
    apply(scrollRange16(width(), m_window.zoomFactor, m_window.data.lines));
}

void Scrolling::scrollsetLong()
{
    apply(scrollRange32(width(), m_window.zoomFactor, m_window.data.lines));
}

void Scrolling::fitScrollBar()
{
    // Only the range is tried: an overflow in what the new range sets off is not a long record.
    const bool isLong = !fits16Bits(width(), m_window.zoomFactor, m_window.data.lines);
    m_window.setLongRecord(isLong);
    isLong ? scrollsetLong() : scrollset();
}

void Scrolling::apply(const ScrollRange& range)
{
    // Where everything fits, Max is 0 and takes the value along.
    m_window.setScrollRange(range.Max, range.SmallChange, range.LargeChange);
    if (m_window.Turbo && m_window.markRow >= 0)
        m_window.setScrollValue(valueCentring(m_window.markRow, width(), m_window.zoomFactor, range.Max));
}

void Scrolling::mnuViewZoomIn_Click()
{
    if (m_window.zoomFactor >= kLargestZoom) return;
    m_window.zoomFactor = roundToInt16(m_window.zoomFactor * 2.0);
    if (m_window.zoomFactor == kLargestZoom) m_window.setEnabled(Control::mnuViewZoomIn, false);
    m_window.setEnabled(Control::mnuViewZoomOut, true);
    showNewZoom();
}

void Scrolling::mnuViewZoomOut_Click()
{
    if (m_window.zoomFactor <= 1) return;
    m_window.zoomFactor = roundToInt16(m_window.zoomFactor / 2.0);
    if (m_window.zoomFactor == 1) m_window.setEnabled(Control::mnuViewZoomOut, false);
    m_window.setEnabled(Control::mnuViewZoomIn, true);
    showNewZoom();
}

void Scrolling::showNewZoom()
{
    m_window.zoomLevel = 0;
    for (std::int16_t z = m_window.zoomFactor; z > 1; z = roundToInt16(z / 2.0)) ++m_window.zoomLevel;
    fitScrollBar();
    m_window.redraw(0, true);
    m_window.redraw(1, true);
}

void Scrolling::mnuViewRefresh_Click()
{
    m_window.redraw(0, false);
    m_window.redraw(1, false);
}

void Scrolling::HScroll1_Change()
{
    m_window.redraw(1, true);
    if (!m_window.isEnabled(Control::Picture1_0)) return;
    m_window.ui.focus(Control::Picture1_0);
    m_window.redraw(0, true);
}

void Scrolling::HScroll1_Scroll(std::int32_t value)
{
    ScrollBar& bar = m_window.HScroll1;
    bar.Value = std::clamp(value, bar.Min, bar.Max);
    m_window.redraw(0, true);
    m_window.redraw(1, true);
}

void Scrolling::HScroll1_GotFocus()
{
    m_window.ui.focus(Control::Picture1_0);
}

} // namespace tarvelint
