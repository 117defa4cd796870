// SPDX-License-Identifier: MIT
#pragma once

#include <QFrame>

#include <string>
#include <vector>

class QCheckBox;
class QKeyEvent;
class QLabel;
class QLineEdit;
class QScrollBar;

namespace tarvelint {

class ColumnSetup;

/// `formPicture` of the column setup: a row to each column, with its label and its mark. A file may have 32,767
/// columns, so there are widgets for the rows in view only, and paging gives them other columns.
class ColumnRows : public QFrame {
    Q_OBJECT

public:
    /// @param setup  takes the labels and marks as the user changes them; may go before the rows, provided that they
    ///               are not shown or used after it
    explicit ColumnRows(ColumnSetup& setup);

    /// `VScroll1`, which pages the rows. It belongs beside them, in the same layout.
    [[nodiscard]] QScrollBar* bar() const { return m_VScroll1; }
    /// The boxes of the rows in view, in the order of Tab.
    [[nodiscard]] QList<QWidget*> tabChain() const;

    /// From now on, unedited text gives back the labels that the set-up holds now.
    void takeOriginals();
    /// Shows what the set-up holds now, row 1 on top.
    void showFromFirst();
    /// Pages to row `row1`, which must be one, and gives the focus to its mark or else to its label.
    void goTo(int row1, bool toCheckBox);
    /// Tab and Shift+Tab from row to row: rows out of view have no widgets to tab to, they page into view one by one.
    /// @return whether it was taken: `focused` is in a row, and what comes next is in another one
    [[nodiscard]] bool takeTab(const QWidget* focused, bool next);
    /// Arrow up and down, Page Up and Page Down: from row to row where `watched` is in a row, else the rows page.
    /// @return whether it was taken: it is one of these keys and comes alone
    [[nodiscard]] bool takeRowKey(const QObject* watched, const QKeyEvent& event);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    struct Row {
        QLabel* colLabel;
        QLineEdit* labelBox;
        QCheckBox* checkBox;
        int row1 = 0; ///< the column it shows now, from 1; 0 none
    };

    [[nodiscard]] Row buildRow();
    void fitRows();
    void VScroll1_Change(int value);
    void bind(Row& row, int row1);
    void placeRows();
    [[nodiscard]] int pixels(int units) const;
    [[nodiscard]] const Row* rowOf(const QObject* widget) const;
    [[nodiscard]] bool isRow(int row1) const;
    void labelEdited(const Row& row, const QString& text);

    ColumnSetup& m_setup;
    std::vector<std::string> m_originals; ///< labels as `takeOriginals` found them, which unedited text gives back
    std::vector<Row> m_rows;
    double m_pixelsPerUnit = 1; ///< rows lie `ColumnSetup::kRowPitch` units apart, whatever the font
    QScrollBar* m_VScroll1 = nullptr;
};

} // namespace tarvelint
