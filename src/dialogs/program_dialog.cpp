// SPDX-License-Identifier: MIT
#include "dialogs/program_dialog.h"

#include "dialogs/contents_area.h"

#include <QKeyEvent>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QVBoxLayout>

namespace tarvelint {

QVBoxLayout& ProgramDialog::setParts(QWidget* contents, QBoxLayout* buttons)
{
    m_contents = new ContentsArea(contents);
    auto* column = new QVBoxLayout(this);
    column->addWidget(m_contents, 1);
    column->addLayout(buttons);
    return *column;
}

QSize ProgramDialog::freeSize() const
{
    constexpr QSize kFrame{12, 40}; // what window managers take at most; known only once it is on the screen
    const QWidget* over = parentWidget() != nullptr ? parentWidget() : this;
    return over->screen()->availableSize() - kFrame;
}

void ProgramDialog::fitToScreen()
{
    if (m_contents == nullptr) return;
    m_contents->setRoom({QWIDGETSIZE_MAX, QWIDGETSIZE_MAX});
    const QMargins margins = layout()->contentsMargins();
    const QSize rest(margins.left() + margins.right(),
                     layout()->totalSizeHint().height() - m_contents->sizeHint().height());
    m_contents->setRoom(freeSize() - rest);
    layout()->activate();
    resize(layout()->totalSizeHint()); // adjustSize() would stop at two thirds of the screen
}

int ProgramDialog::numberWidth() const
{
    constexpr int kLetters = 12;
    return kLetters * fontMetrics().averageCharWidth();
}

void ProgramDialog::showEvent(QShowEvent* event)
{
    const auto children = findChildren<QWidget*>();
    for (QWidget* child : children) child->installEventFilter(this);
    if (!event->spontaneous()) fitToScreen();
    QDialog::showEvent(event);
}

void ProgramDialog::keyPressEvent(QKeyEvent* event)
{
    const int key = event->key();
    if (m_contents != nullptr && (key == Qt::Key_PageUp || key == Qt::Key_PageDown))
        return m_contents->verticalScrollBar()->triggerAction(
            key == Qt::Key_PageUp ? QAbstractSlider::SliderPageStepSub : QAbstractSlider::SliderPageStepAdd);
    QDialog::keyPressEvent(event);
}

bool ProgramDialog::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusIn && m_contents != nullptr && watched->isWidgetType())
        m_contents->bringIntoView(static_cast<QWidget*>(watched));
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
