// SPDX-License-Identifier: MIT
#include "app/qt/message_box.h"

#include <QMessageBox>

namespace tarvelint {

namespace {

QMessageBox::StandardButtons standardButtons(Buttons buttons)
{
    switch (buttons) {
    case Buttons::okCancel: return QMessageBox::Ok | QMessageBox::Cancel;
    case Buttons::yesNo: return QMessageBox::Yes | QMessageBox::No;
    case Buttons::yesNoCancel: return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    case Buttons::ok: break;
    }
    return QMessageBox::Ok;
}

QMessageBox::Icon standardIcon(Icon icon)
{
    switch (icon) {
    case Icon::information: return QMessageBox::Information;
    case Icon::warning: return QMessageBox::Warning;
    case Icon::critical: return QMessageBox::Critical;
    case Icon::none: break;
    }
    return QMessageBox::NoIcon;
}

Answer answerOf(int button, Buttons buttons)
{
    switch (button) {
    case QMessageBox::Ok: return Answer::ok;
    case QMessageBox::Yes: return Answer::yes;
    case QMessageBox::No: return Answer::no;
    default: break; // Esc, or the window was closed meanwhile
    }
    if (buttons == Buttons::ok) return Answer::ok;
    return buttons == Buttons::yesNo ? Answer::no : Answer::cancel;
}

/// A message quotes what the user wrote, and an equation may be longer than the screen is high: then the middle stands
/// in the box's details.
void setWords(QMessageBox& box, const QString& text)
{
    constexpr int kMost = 1200;
    constexpr int kTail = 200;
    const bool fits = text.size() <= kMost;
    box.setText(fits ? text : text.left(kMost - kTail) + QStringLiteral(" ... ") + text.right(kTail));
    if (!fits) box.setDetailedText(text);
}

} // namespace

Answer askInBox(QWidget& over, const Message& message)
{
    QMessageBox box(&over);
    box.setObjectName(QStringLiteral("messageBox"));
    box.setWindowModality(Qt::WindowModal);
    box.setTextFormat(Qt::PlainText);
    box.setIcon(standardIcon(message.icon));
    box.setWindowTitle(QString::fromStdString(message.title));
    setWords(box, QString::fromStdString(message.text));
    box.setStandardButtons(standardButtons(message.buttons));
    // Left to itself the box would take its leftmost button, which is not the one that most people mean.
    box.setDefaultButton(box.button(QMessageBox::Yes) != nullptr ? QMessageBox::Yes : QMessageBox::Ok);
    if (message.buttons == Buttons::yesNo) box.setEscapeButton(QMessageBox::No);
    return answerOf(box.exec(), message.buttons);
}

} // namespace tarvelint
