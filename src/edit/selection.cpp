// SPDX-License-Identifier: MIT
#include "edit/selection.h"

#include "data/numbers.h"
#include "window/window.h"

#include <algorithm>

namespace tarvelint {

void Selection::mnuEditSelectAll_Click()
{
    m_view.selStart = 0;
    m_view.selEnd = m_record.lines - 1;
    m_window.showAll();
}

void Selection::shrinkRight()
{
    if (m_view.selEnd <= 0 || m_view.selEnd <= m_view.selStart) return;
    --m_view.selEnd;
    m_window.showAll();
}

void Selection::shrinkLeft()
{
    if (m_view.selStart >= m_view.selEnd) return;
    ++m_view.selStart;
    m_window.showAll();
}

void Selection::growRight()
{
    if (m_view.selEnd >= m_record.lines - 1) return;
    ++m_view.selEnd;
    scrollOrDraw(m_view.HScroll1.Value + static_cast<double>(m_ui.surface(0).scaleWidth()) < m_view.selEnd,
                 m_view.HScroll1.Value + 1);
}

void Selection::growLeft()
{
    if (m_view.selStart <= 0) return;
    --m_view.selStart;
    scrollOrDraw(m_view.selStart < m_view.HScroll1.Value, m_view.selStart);
}

/// Scrolling draws both areas by itself.
void Selection::scrollOrDraw(bool scrolls, std::int32_t firstRow)
{
    const std::int32_t before = m_view.HScroll1.Value;
    if (scrolls) m_window.setScrollValue(firstRow);
    if (m_view.HScroll1.Value == before) m_window.redrawBoth();
    m_window.updateCues();
}

void Selection::ExtendSelection(float x)
{
    const std::int32_t rows = roundToInt32(static_cast<double>(x) / m_view.zoomFactor);
    const std::int64_t row = std::int64_t{rows} + m_view.HScroll1.Value;
    if (row <= m_view.lastClick)
        m_view.selStart = static_cast<std::int32_t>(std::max<std::int64_t>(row, 0));
    else
        m_view.selEnd = static_cast<std::int32_t>(std::min<std::int64_t>(row, m_record.lines - 1));
    m_window.updateCues();
}

bool Selection::skip(bool draws)
{
    const std::int32_t lastRow = m_record.lines - 1;
    if (m_view.selEnd >= lastRow || m_view.selEnd < m_view.selStart) return false;
    const std::int64_t end = std::int64_t{2} * m_view.selEnd - m_view.selStart;
    m_view.selStart = m_view.selEnd;
    m_view.selEnd = static_cast<std::int32_t>(std::min<std::int64_t>(end, lastRow));
    show(draws);
    if (draws) m_window.updateCues();
    return true;
}

void Selection::show(bool draws)
{
    const double width = m_ui.surface(0).scaleWidth();
    const std::int32_t before = m_view.HScroll1.Value;
    if (before + width < m_view.selEnd) {
        const double value = m_view.selEnd - width;
        const std::int32_t first = m_view.longRecord ? roundToInt32(value) : roundToInt16(value);
        draws ? m_window.setScrollValue(first) : static_cast<void>(m_window.moveScrollValue(first));
        if (m_view.HScroll1.Value != before) return; // scrolling has redrawn both areas
    }
    if (!draws) return;
    m_window.redraw(0, true);
    m_window.redraw(1, false);
}

} // namespace tarvelint
