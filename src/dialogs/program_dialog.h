// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>

#include <functional>

class QBoxLayout;
class QVBoxLayout;

namespace tarvelint {

class ContentsArea;

/// A way into the window of a dialog: runs what a button does there, its failures included.
using Entry = std::function<void(const std::function<void()>& body)>;

/// What the program's own dialogs have in common: Enter presses the default button wherever the focus is, and what a
/// small screen has no room for scrolls, the buttons below it always in view. A push button in focus is the default one
/// meanwhile.
class ProgramDialog : public QDialog {
    Q_OBJECT

public:
    using QDialog::QDialog;

protected:
    /// Puts `contents`, which has a layout, above `buttons`; to be called once.
    QVBoxLayout& setParts(QWidget* contents, QBoxLayout* buttons);
    /// The largest size that leaves the window's frame on the screen.
    [[nodiscard]] QSize freeSize() const;

    /// Takes the size that the contents want, or what the screen has room for; so does every showing.
    void fitToScreen();
    /// The width of a box for one number.
    [[nodiscard]] int numberWidth() const;

    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    ContentsArea* m_contents = nullptr;
};

} // namespace tarvelint
