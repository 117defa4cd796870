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
    apply(scrollRange16(width(), m_window.view.zoomFactor, m_window.data.lines));
}

void Scrolling::fitScrollBar()
{
    // Only the range is tried: an overflow in what the new range sets off is not a long record.
    const View& view = m_window.view;
    const bool isLong = !fits16Bits(width(), view.zoomFactor, m_window.data.lines);
    m_window.setLongRecord(isLong);
    if (isLong)
        apply(scrollRange32(width(), view.zoomFactor, m_window.data.lines));
    else
        scrollset();
}

void Scrolling::apply(const ScrollRange& range)
{
    const View& view = m_window.view;
    // Where everything fits, Max is 0 and takes the value along.
    m_window.setScrollRange(range.Max, range.SmallChange, range.LargeChange);
    if (view.Turbo && view.markRow >= 0)
        m_window.moveScrollValue(valueCentring(view.markRow, width(), view.zoomFactor, range.Max));
}

void Scrolling::mnuViewZoomIn_Click()
{
    if (m_window.view.zoomFactor < kLargestZoom) zoomTo(m_window.view.zoomFactor * 2.0);
}

void Scrolling::mnuViewZoomOut_Click()
{
    if (m_window.view.zoomFactor > 1) zoomTo(m_window.view.zoomFactor / 2.0);
}

void Scrolling::zoomTo(double unitsPerRow)
{
    View& view = m_window.view;
    view.zoomFactor = roundToInt16(unitsPerRow);
    showZoomEntries();
    view.zoomLevel = 0;
    for (std::int16_t z = view.zoomFactor; z > 1; z = roundToInt16(z / 2.0)) ++view.zoomLevel;
    fitScrollBar();
    m_window.redraw(0, true);
    m_window.redraw(1, true);
}

void Scrolling::showZoomEntries()
{
    m_window.setEnabled(Control::mnuViewZoomIn, m_window.view.zoomFactor < kLargestZoom);
    m_window.setEnabled(Control::mnuViewZoomOut, m_window.view.zoomFactor > 1);
}

void Scrolling::mnuViewRefresh_Click()
{
    m_window.redraw(0, false);
    m_window.redraw(1, false);
}

void Scrolling::HScroll1_Scroll(std::int32_t value)
{
    ScrollBar& bar = m_window.view.HScroll1;
    bar.Value = std::clamp(value, bar.Min, bar.Max);
    m_window.redraw(0, true);
    m_window.redraw(1, true);
}

void Scrolling::HScroll1_GotFocus()
{
    m_window.ui.focus(Control::Picture1_0);
}

} // namespace tarvelint
