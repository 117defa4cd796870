// SPDX-License-Identifier: MIT
#include "app/qt/column_list_model.h"

#include "app/qt/form_parts.h"
#include "dialogs/label_text.h"
#include "view/column_lists.h"

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
    const bool isTip = role == Qt::ToolTipRole;
    if (!(isText || isTip) || m_labels == nullptr || !index.isValid() || column >= m_labels->size()) return {};
    const QString entry = labelForScreen(columnEntry(*m_labels, m_asLabels || isTip, index.row()));
    return isTip ? wholeTextTip(entry) : entry;
}

} // namespace tarvelint
