// SPDX-License-Identifier: MIT
#include "app/qt/column_list_model.h"

#include "dialogs/label_text.h"

namespace tarvelint {

void ColumnListModel::show(const ColumnList& list)
{
    beginResetModel();
    m_list = &list;
    m_rows = static_cast<int>(list.entries.size());
    endResetModel();
}

QVariant ColumnListModel::data(const QModelIndex& index, int role) const
{
    const auto entry = static_cast<std::size_t>(index.row());
    if ((role != Qt::DisplayRole && role != Qt::EditRole) || !index.isValid() || entry >= m_list->entries.size())
        return {};
    return labelForScreen(m_list->entries[entry]);
}

} // namespace tarvelint
