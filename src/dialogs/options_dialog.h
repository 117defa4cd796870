// SPDX-License-Identifier: MIT
#pragma once

#include "dialogs/program_dialog.h"
#include "forms/options.h"

#include <functional>
#include <string>
#include <vector>

class QBoxLayout;
class QCheckBox;
class QGridLayout;
class QLineEdit;
class QPushButton;

namespace tarvelint {

/// `frmOptions` on the screen: shows an `Options` and sets what the user changes. Both apply buttons close it unless a
/// message has refused what they would apply.
class OptionsDialog : public ProgramDialog {
    Q_OBJECT

public:
    /// Runs an apply button's work as a command of the window the dialog was opened for.
    using Command = std::function<void(Window& parentForm, const std::function<void()>& work)>;

    /// @param windows  the open main windows at the time of asking, for "Change all"
    OptionsDialog(SettingsStore& store, Command command, std::function<std::vector<Window*>()> windows);

    /// Shows the dialog for `parent` without waiting.
    void showFor(Window& parent);
    /// Gives the equation the focus, all of it selected, so that it can be typed over.
    void selectEquation();

private:
    [[nodiscard]] QGridLayout* buildBoxes();
    [[nodiscard]] QBoxLayout* buildButtons();
    QLineEdit* addBox(QGridLayout& grid, int line, const char* name, const char* caption, std::string Options::*text);
    QPushButton* addButton(QBoxLayout& row, const char* name, const char* caption, const char* tip,
                           const std::function<bool()>& work);
    void comeForward();
    void apply(const std::function<bool()>& work);

    Options m_options;
    Command m_command;
    std::function<std::vector<Window*>()> m_windows;
    QLineEdit* m_eqBox = nullptr;
    QPushButton* m_cmdApplyCur = nullptr;
};

} // namespace tarvelint
