// SPDX-License-Identifier: MIT
#include "view/scrolling.h"

#include "data/numbers.h"

#include <algorithm>
#include <optional>

namespace tarvelint {

namespace {

constexpr std::int16_t kLargestZoom = 8;

template <class Round>
std::optional<ScrollRange> scrollRange(float width, std::int16_t zoomFactor, std::int32_t lines, Round round)
{
    if (static_cast<double>(width) >= static_cast<double>(zoomFactor) * lines) return ScrollRange{};
    const double rowsShown = static_cast<double>(width) / zoomFactor;
    const auto max = round(lines - rowsShown - 1);
    const auto largeChange = round(rowsShown);
    if (!max || !largeChange) return std::nullopt;
    return ScrollRange{std::max<std::int32_t>(0, *max), round(*largeChange / 10.0).value(), *largeChange};
}

} // namespace

std::optional<ScrollRange> scrollRange16(float width, std::int16_t zoomFactor, std::int32_t lines)
{
    return scrollRange(width, zoomFactor, lines, roundedToInt16);
}

ScrollRange scrollRange32(float width, std::int16_t zoomFactor, std::int32_t lines)
{
    return scrollRange(width, zoomFactor, lines, roundedToInt32).value();
}

std::int32_t valueCentring(std::int32_t row, float width, std::int16_t zoomFactor, std::int32_t max)
{
    const double half = static_cast<double>(width) / (2.0 * zoomFactor);
    return row > half ? std::min(roundToInt32(row - half), max) : 0;
}

void Scrolling::scrollset()
{
    const auto range = scrollRange16(width(), m_view.zoomFactor, m_record.lines);
    if (!range) throw NumericOverflow("The record is longer than a 16-bit scroll bar reaches.");
    apply(*range);
}

void Scrolling::fitScrollBar()
{
    const bool isLong = !scrollRange16(width(), m_view.zoomFactor, m_record.lines);
    m_window.setLongRecord(isLong);
    if (isLong)
        apply(scrollRange32(width(), m_view.zoomFactor, m_record.lines));
    else
        scrollset();
}

void Scrolling::apply(const ScrollRange& range)
{
    // Where everything fits, Max is 0 and takes the value along.
    m_window.setScrollRange(range.Max, range.SmallChange, range.LargeChange);
    if (m_view.Turbo && m_view.markRow >= 0)
        m_window.moveScrollValue(valueCentring(m_view.markRow, width(), m_view.zoomFactor, range.Max));
}

void Scrolling::mnuViewZoomIn_Click()
{
    if (m_view.zoomFactor < kLargestZoom) zoomTo(m_view.zoomFactor * 2.0);
}

void Scrolling::mnuViewZoomOut_Click()
{
    if (m_view.zoomFactor > 1) zoomTo(m_view.zoomFactor / 2.0);
}

void Scrolling::zoomTo(double unitsPerRow)
{
    m_view.zoomFactor = roundToInt16(unitsPerRow);
    showZoomEntries();
    m_view.zoomLevel = 0;
    for (std::int16_t z = m_view.zoomFactor; z > 1; z = roundToInt16(z / 2.0)) ++m_view.zoomLevel;
    fitScrollBar();
    m_window.redrawBoth();
}

void Scrolling::showZoomEntries()
{
    m_window.setEnabled(Control::mnuViewZoomIn, m_view.zoomFactor < kLargestZoom);
    m_window.setEnabled(Control::mnuViewZoomOut, m_view.zoomFactor > 1);
}

void Scrolling::mnuViewRefresh_Click()
{
    m_window.redrawBoth(false);
}

void Scrolling::Picture1_Resize(int index)
{
    if (index == 1) return m_window.redraw(1, true);
    fitScrollBar();
    m_window.redrawBoth();
}

void Scrolling::HScroll1_GotFocus()
{
    m_ui.focus(Control::Picture1_0);
}

} // namespace tarvelint
