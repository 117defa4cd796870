// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>

namespace tarvelint {

/// What the program's own dialogs have in common: Enter presses the default button wherever the focus is. A push button
/// in focus is the default one meanwhile.
class ProgramDialog : public QDialog {
    Q_OBJECT

public:
    using QDialog::QDialog;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;
};

} // namespace tarvelint
