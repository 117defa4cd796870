// SPDX-License-Identifier: MIT
#pragma once

#include "dialogs/program_dialog.h"
#include "forms/column_setup.h"

#include <functional>
#include <string>
#include <vector>

class QBoxLayout;
class QCheckBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QScrollBar;

namespace tarvelint {

/// `labelForm` on the screen: shows a `ColumnSetup` and sets what the user changes; every rule is the set-up's. A file
/// may have 32,767 columns, so there are widgets for the rows in view only, and paging gives them other columns.
class ColumnSetupDialog : public ProgramDialog {
    Q_OBJECT

public:
    using Command = std::function<void(const std::function<void()>&)>;

    /// @param setup    may go before the dialog, provided that the dialog is not shown or used after it
    /// @param command  runs OK's work as a command of the window, its failures included
    ColumnSetupDialog(ColumnSetup& setup, Command command, QWidget* parent = nullptr);

    /// Shows what the set-up holds now, over its window, and returns at once. With `blocking` the window takes no
    /// input meanwhile. The set-up hides the dialog through its window's `hideColumnSetup`.
    void showFor(bool blocking);

    void accept() override;
    /// Cancel, Esc and the frame's close button.
    void reject() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    struct Row {
        QLabel* colLabel;
        QLineEdit* labelBox;
        QCheckBox* checkBox;
        int row1 = 0; ///< the column it shows now, from 1; 0 none
    };
    struct ParameterBox {
        QLineEdit* widget;
        std::string ColumnSetup::Boxes::*value;
    };

    void buildRows();
    [[nodiscard]] Row buildRow();
    [[nodiscard]] QWidget* buildChoices();
    [[nodiscard]] QGroupBox* buildParamFrame();
    void addParameterBox(QGroupBox& frame, const char* name, const char* caption,
                         std::string ColumnSetup::Boxes::*value, int line, int column);
    [[nodiscard]] QBoxLayout* buildButtons();
    void setTabOrders();

    void showBoxes();
    void setScrollBar();
    void VScroll1_Change(int value);
    void bind(Row& row, int row1);
    void placeRows();
    [[nodiscard]] int pixels(int units) const;
    [[nodiscard]] const Row* rowOf(const QObject* widget) const;
    [[nodiscard]] bool isRow(int row1) const { return row1 >= 1 && row1 <= m_setup.rows(); }
    void goTo(int row1, bool toCheckBox);
    [[nodiscard]] bool takeRowKey(const QObject* watched, int key);
    void labelEdited(const Row& row, const QString& text);

    ColumnSetup& m_setup;
    Command m_command;
    std::vector<std::string> m_originals; ///< labels as the dialog opened, which unedited text gives back
    std::vector<Row> m_rows;
    std::vector<ParameterBox> m_parameterBoxes;
    double m_pixelsPerUnit = 1;     ///< rows lie `ColumnSetup::kRowPitch` units apart, whatever the font
    QBoxLayout* m_across = nullptr; ///< rows and choices side by side, or one below the other
    QWidget* m_formPicture = nullptr;
    QScrollBar* m_VScroll1 = nullptr;
    QCheckBox* m_saveBox = nullptr;
    QCheckBox* m_turboCheck = nullptr;
    QGroupBox* m_paramFrame = nullptr;
    QPushButton* m_OKButton = nullptr;
    QPushButton* m_CancelButton = nullptr;
};

} // namespace tarvelint
