// SPDX-License-Identifier: MIT
#include "view/scrolling.h"

#include "data/numbers.h"
#include "window/raised.h"

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

void Scrolling::Form_Resize()
{
    fitScrollBar();
    m_window.redrawBoth();
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

/// One end of the view, where holding the pointer scrolls.
struct Scrolling::Edge {
    bool isRight;
    float x; ///< where the selection is drawn to
};

std::int32_t Scrolling::clipped(std::int64_t firstRow) const
{
    const ScrollBar& bar = m_view.HScroll1;
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(firstRow, bar.Min, bar.Max));
}

std::optional<Scrolling::Edge> Scrolling::edgeAt(float x) const
{
    if (x >= width() - 1) return Edge{true, width()};
    if (x < 2) return Edge{false, 0};
    return std::nullopt;
}

void Scrolling::doScroll(float x, bool extend)
{
    if (m_isAtEdge) return;
    if (const auto edge = edgeAt(x)) {
        const Raised atEdge(m_isAtEdge);
        if (scrollAt(*edge, extend) != Ended::released) return;
    }
    if (extend) drawDragged(x, false, true);
}

Scrolling::Ended Scrolling::scrollAt(const Edge& edge, bool extend)
{
    constexpr std::chrono::milliseconds kPass{50};
    const ScrollBar& bar = m_view.HScroll1;
    while (true) {
        const std::int64_t next = std::int64_t{bar.Value} + (edge.isRight ? step() : -step());
        const bool isLast = edge.isRight ? next > bar.Max : next < bar.Min;
        m_window.moveScrollValue(clipped(next));
        drawDragged(edge.x, true, extend);
        if (isLast) return Ended::recordEnd;
        m_ui.letEventsRunFor(kPass);
        const float x = m_view.pointerX;
        if (edge.isRight ? x < width() - 2 : x > 0) {
            drawDragged(x, false, extend);
            return Ended::pointerBack;
        }
        if (m_view.buttonReleased) return Ended::released;
    }
}

void Scrolling::drawDragged(float x, bool clear, bool extend)
{
    if (extend) m_window.ExtendSelection(x);
    m_window.redrawBoth(clear);
}

void Scrolling::turnWheel(int eighthsOfDegrees, bool zooms)
{
    constexpr int kStep = 120;
    const bool turnsBack = (eighthsOfDegrees < 0) != (m_turned < 0);
    if (turnsBack || zooms != m_turnZooms) m_turned = 0;
    m_turnZooms = zooms;
    m_turned += eighthsOfDegrees;
    const int steps = m_turned / kStep;
    m_turned -= steps * kStep;
    if (!zooms)
        return m_window.setScrollValue(clipped(std::int64_t{m_view.HScroll1.Value} - std::int64_t{steps} * step()));
    for (int i = 0; i < steps && m_window.isEnabled(Control::mnuViewZoomIn); ++i) mnuViewZoomIn_Click();
    for (int i = 0; i > steps && m_window.isEnabled(Control::mnuViewZoomOut); --i) mnuViewZoomOut_Click();
}

void Scrolling::pressScrollKey(ScrollKey key)
{
    const ScrollBar& bar = m_view.HScroll1;
    switch (key) {
    case ScrollKey::pageUp: return m_window.setScrollValue(clipped(std::int64_t{bar.Value} - bar.LargeChange));
    case ScrollKey::pageDown: return m_window.setScrollValue(clipped(std::int64_t{bar.Value} + bar.LargeChange));
    case ScrollKey::home: return m_window.setScrollValue(bar.Min);
    case ScrollKey::end: return m_window.setScrollValue(bar.Max);
    }
}

void Scrolling::HScroll1_GotFocus()
{
    m_ui.focus(Control::Picture1_0);
}

} // namespace tarvelint
