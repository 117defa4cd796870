// SPDX-License-Identifier: MIT
#include "edit/selection.h"

#include "data/numbers.h"
#include "window/window.h"

#include <algorithm>

namespace tarvelint {

void Selection::mnuEditSelectAll_Click()
{
    m_window.view.selStart = 0;
    m_window.view.selEnd = m_window.data.lines - 1;
    m_window.showAll();
}

bool Selection::skip(bool draws)
{
    View& view = m_window.view;
    const std::int32_t lastRow = m_window.data.lines - 1;
    if (view.selEnd >= lastRow || view.selEnd < view.selStart) return false;
    const std::int64_t end = std::int64_t{2} * view.selEnd - view.selStart;
    view.selStart = view.selEnd;
    view.selEnd = static_cast<std::int32_t>(std::min<std::int64_t>(end, lastRow));
    show(draws);
    if (draws) m_window.updateCues();
    return true;
}

void Selection::show(bool draws)
{
    const View& view = m_window.view;
    const double width = m_window.ui.surface(0).scaleWidth();
    const std::int32_t before = view.HScroll1.Value;
    if (before + width < view.selEnd) {
        const double value = view.selEnd - width;
        const std::int32_t first = view.longRecord ? roundToInt32(value) : roundToInt16(value);
        draws ? m_window.setScrollValue(first) : static_cast<void>(m_window.moveScrollValue(first));
        if (view.HScroll1.Value != before) return; // scrolling has redrawn both areas
    }
    if (!draws) return;
    m_window.redraw(0, true);
    m_window.redraw(1, false);
}

} // namespace tarvelint
