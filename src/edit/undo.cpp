// SPDX-License-Identifier: MIT
#include "edit/undo.h"

#include "window/window.h"

#include <algorithm>

namespace tarvelint {

void Undo::undoSave(std::int32_t column)
{
    const DataSet& data = m_window.data;
    if (!data.hasColumn(column) || m_window.selEnd < m_window.selStart) return;
    const std::int32_t first = std::max(m_window.selStart, 0);
    const std::int32_t last = std::min(m_window.selEnd, data.lines - 1);

    std::vector<Cells> copy;
    if (first <= last) copy.reserve(static_cast<std::size_t>(last - first) + 1);
    for (std::int32_t r = first; r <= last; ++r)
        copy.push_back({data.values(kUnconverted, column, r), data.values(kBaseline, column, r),
                        data.values(kConverted, column, r)});
    undoBuf = std::move(copy);
    m_firstRow = first;
    undoCol = column;
    showAvailable(true);
}

void Undo::mnuEditUndo_Click()
{
    if (!m_available) return;
    if (fitsTheData()) {
        restore();
        m_window.markChanged();
        m_window.redraw(0, true);
        m_window.redraw(1, true);
        m_window.updateCues(); // the selection has moved
    }
    showAvailable(false);
}

bool Undo::fitsTheData() const
{
    // A copy of rows that are all outside the data has no cells: undoing it changes nothing.
    if (undoBuf.empty()) return false;
    const DataSet& data = m_window.data;
    return data.hasColumn(undoCol) && static_cast<std::int64_t>(undoBuf.size()) <= data.lines - m_firstRow;
}

void Undo::restore()
{
    m_window.selStart = m_firstRow;
    m_window.selEnd = m_firstRow + static_cast<std::int32_t>(undoBuf.size()) - 1;
    Values& values = m_window.data.values;
    std::int32_t r = m_firstRow;
    for (const Cells& cells : undoBuf) {
        values(kUnconverted, undoCol, r) = cells.unconverted;
        values(kBaseline, undoCol, r) = cells.baseline;
        values(kConverted, undoCol, r) = cells.converted;
        ++r;
    }
}

void Undo::forget()
{
    undoBuf = {};
    undoCol = -1;
    showAvailable(false);
}

void Undo::showAvailable(bool available)
{
    m_available = available;
    m_window.setText(Control::mnuEditUndo, available ? "&Undo" : "Can't Undo");
    m_window.setEnabled(Control::mnuEditUndo, available);
}

} // namespace tarvelint
