// SPDX-License-Identifier: MIT
#include "edit/undo.h"

#include "window/entry_texts.h"
#include "window/window.h"

#include <algorithm>
#include <utility>

namespace tarvelint {

void Undo::undoSave(std::int32_t column)
{
    if (!m_record.hasColumn(column) || m_view.selEnd < m_view.selStart) return;
    Copy copy{column, std::max(m_view.selStart, 0), {}};
    const std::int32_t last = std::min(m_view.selEnd, m_record.lines - 1);
    if (copy.firstRow <= last) copy.undoBuf.reserve(static_cast<std::size_t>(last - copy.firstRow) + 1);
    for (std::int32_t r = copy.firstRow; r <= last; ++r)
        copy.undoBuf.push_back({m_record.values(kUnconverted, column, r), m_record.values(kBaseline, column, r),
                                m_record.values(kConverted, column, r)});
    m_copy = std::move(copy);
    showAvailability();
}

void Undo::mnuEditUndo_Click()
{
    if (!m_copy) return;
    if (fitsTheData()) {
        restore();
        m_window.markChanged();
        m_window.showAll(); // the selection has moved
    }
    forget();
}

bool Undo::fitsTheData() const
{
    // A copy of rows that are all outside the data has no cells: undoing it changes nothing.
    if (m_copy->undoBuf.empty()) return false;
    const auto rows = static_cast<std::int64_t>(m_copy->undoBuf.size());
    return m_record.hasColumn(m_copy->undoCol) && rows <= m_record.lines - m_copy->firstRow;
}

void Undo::restore()
{
    const auto& [undoCol, firstRow, undoBuf] = *m_copy;
    m_view.selStart = firstRow;
    m_view.selEnd = firstRow + static_cast<std::int32_t>(undoBuf.size()) - 1;
    Values& values = m_record.values;
    std::int32_t r = firstRow;
    for (const Cells& cells : undoBuf) {
        values(kUnconverted, undoCol, r) = cells.unconverted;
        values(kBaseline, undoCol, r) = cells.baseline;
        values(kConverted, undoCol, r) = cells.converted;
        ++r;
    }
}

void Undo::forget()
{
    m_copy.reset();
    showAvailability();
}

void Undo::showAvailability()
{
    m_window.setText(Control::mnuEditUndo, m_copy ? entry_texts::kUndo : entry_texts::kCannotUndo);
    m_window.setEnabled(Control::mnuEditUndo, m_copy.has_value());
}

} // namespace tarvelint
