// SPDX-License-Identifier: MIT
#include "app/qt/column_list_model.h"

#include "dialogs/label_text.h"

namespace tarvelint {

void ColumnListModel::show(const std::vector<std::string>& labels, bool asLabels)
{
    beginResetModel();
    m_labels = &labels;
    m_asLabels = asLabels;
    m_rows = static_cast<int>(labels.size());
    endResetModel();
}

QVariant ColumnListModel::data(const QModelIndex& index, int role) const
{
    const auto column = static_cast<std::size_t>(index.row());
    const bool isText = role == Qt::DisplayRole || role == Qt::EditRole;
    if (!isText || m_labels == nullptr || !index.isValid() || column >= m_labels->size()) return {};
    return m_asLabels ? labelForScreen((*m_labels)[column]) : QString::number(index.row() + 1);
}

} // namespace tarvelint
