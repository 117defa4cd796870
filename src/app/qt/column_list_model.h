// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractListModel>

#include <string>
#include <vector>

namespace tarvelint {

/// The entries of one column list, read where they are kept: no second copy of 32,767 labels.
class ColumnListModel : public QAbstractListModel {
    Q_OBJECT
public:
    using QAbstractListModel::QAbstractListModel;

    /// Shows these labels, or their columns' numbers, as they are now; they outlive the model. Changed ones, be it one
    /// or all, are shown anew.
    /// The tip of an entry is its whole label, also where the entry is a number or the list cuts it short.
    void show(const std::vector<std::string>& labels, bool asLabels);
    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : m_rows; }
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

private:
    const std::vector<std::string>* m_labels = nullptr;
    bool m_asLabels = false;
    int m_rows = 0;
};

} // namespace tarvelint
