// SPDX-License-Identifier: MIT
#pragma once

#include "dialogs/program_dialog.h"
#include "forms/column_setup.h"

#include <string>
#include <vector>

class QBoxLayout;
class QCheckBox;
class QGroupBox;
class QLineEdit;
class QPushButton;

namespace tarvelint {

class ColumnRows;

/// `labelForm` on the screen: shows a `ColumnSetup` and sets what the user changes; every rule is the set-up's.
class ColumnSetupDialog : public ProgramDialog {
    Q_OBJECT

public:
    /// @param setup    may go before the dialog, provided that the dialog is not shown or used after it
    /// @param command  runs OK's work, as a command
    /// @param answer   runs Cancel's work, also in the middle of a command
    ColumnSetupDialog(ColumnSetup& setup, Entry command, Entry answer, QWidget* parent = nullptr);

    /// Shows what the set-up holds now, beside its window, and returns at once. With `blocking` the window takes no
    /// input meanwhile. The set-up hides the dialog through its window's `hideColumnSetup`.
    void showFor(bool blocking);

    void accept() override;
    /// Cancel, Esc and the frame's close button.
    void reject() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    struct ParameterBox {
        QLineEdit* widget;
        std::string ColumnSetup::Boxes::*value;
    };

    [[nodiscard]] QWidget* buildChoices();
    [[nodiscard]] QGroupBox* buildParamFrame();
    void addParameterBox(QGroupBox& frame, const char* name, const char* caption,
                         std::string ColumnSetup::Boxes::*value, int line, int column);
    [[nodiscard]] QBoxLayout* buildButtons();
    void setTabOrders();

    void standBesideWindow();
    void showBoxes();

    ColumnSetup& m_setup;
    Entry m_command;
    Entry m_answer;
    std::vector<ParameterBox> m_parameterBoxes;
    ColumnRows* m_rows = nullptr;
    QBoxLayout* m_across = nullptr; ///< rows and choices side by side, or one below the other
    QCheckBox* m_saveBox = nullptr;
    QCheckBox* m_turboCheck = nullptr;
    QGroupBox* m_paramFrame = nullptr;
    QPushButton* m_OKButton = nullptr;
    QPushButton* m_CancelButton = nullptr;
};

} // namespace tarvelint
