// SPDX-License-Identifier: MIT
#include "dialogs/program_dialog.h"

#include <QKeyEvent>
#include <QPushButton>

namespace tarvelint {

void ProgramDialog::showEvent(QShowEvent* event)
{
    const auto children = findChildren<QWidget*>();
    for (QWidget* child : children) child->installEventFilter(this);
    QDialog::showEvent(event);
}

bool ProgramDialog::eventFilter(QObject* watched, QEvent* event)
{
    // On some desktops Enter works the check box in focus, and group boxes swallow it.
    if (event->type() == QEvent::KeyPress && qobject_cast<QPushButton*>(watched) == nullptr) {
        auto* key = static_cast<QKeyEvent*>(event);
        if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) {
            keyPressEvent(key);
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

} // namespace tarvelint
