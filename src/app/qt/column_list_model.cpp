// SPDX-License-Identifier: MIT
#include "app/qt/column_list_model.h"

#include "dialogs/label_text.h"

namespace tarvelint {

void ColumnListModel::show(const std::vector<std::string>& entries)
{
    beginResetModel();
    m_entries = &entries;
    m_rows = static_cast<int>(entries.size());
    endResetModel();
}

QVariant ColumnListModel::data(const QModelIndex& index, int role) const
{
    if (m_entries == nullptr) return {};
    const auto entry = static_cast<std::size_t>(index.row());
    if ((role != Qt::DisplayRole && role != Qt::EditRole) || !index.isValid() || entry >= m_entries->size()) return {};
    return labelForScreen((*m_entries)[entry]);
}

} // namespace tarvelint
