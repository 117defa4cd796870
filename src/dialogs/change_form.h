// SPDX-License-Identifier: MIT
#pragma once

#include "dialogs/program_dialog.h"

#include <optional>
#include <string>

class QLabel;
class QLineEdit;

namespace tarvelint {

/// `changeForm`: asks for a new value in place of an old one. All windows share it.
class ChangeForm : public ProgramDialog {
    Q_OBJECT
public:
    ChangeForm();

    /// Shows the dialog centred over a window and waits for its end; every window goes on answering.
    /// @return what was typed; none after Cancel or closing
    [[nodiscard]] std::optional<std::string> ask(QWidget& over, const std::string& old);
    /// Somebody waits for it; also for this window's sake.
    [[nodiscard]] bool isWaitedFor() const { return m_over != nullptr; }
    [[nodiscard]] bool isFor(const QWidget& window) const { return m_over == &window; }
    void comeForward();

private:
    QLabel* m_oldValue = nullptr;
    QLineEdit* m_newValue = nullptr;
    const QWidget* m_over = nullptr;
};

} // namespace tarvelint
