// SPDX-License-Identifier: MIT
#include "edit/selection.h"

#include "window/window.h"

namespace tarvelint {

void Selection::mnuEditSelectAll_Click()
{
    m_window.selStart = 0;
    m_window.selEnd = m_window.data.lines - 1;
    m_window.redraw(0, true);
    m_window.redraw(1, true);
    m_window.updateCues();
}

} // namespace tarvelint
