// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>
#include <QFileDialog>
#include <QHelpEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <functional>
#include <utility>

namespace tarvelint::test {

/// Plays the user once a child of `parent` is on the screen.
template <class Widget>
void whenShown(QWidget& parent, const char* name, std::function<void(Widget&)> play)
{
    auto* timer = new QTimer(&parent);
    timer->setInterval(5);
    QObject::connect(timer, &QTimer::timeout, timer, [&parent, timer, name, play = std::move(play)] {
        auto* widget = parent.findChild<Widget*>(QString::fromLatin1(name));
        if (widget == nullptr || !widget->isVisible()) return;
        timer->stop();
        play(*widget);
    });
    timer->start();
}

/// What the toolkit does before it shows a tip.
inline void askForTip(QWidget& widget)
{
    QHelpEvent help(QEvent::ToolTip, {}, {});
    QApplication::sendEvent(&widget, &help);
}

inline void click(QWidget& dialog, const char* button)
{
    QTest::mouseClick(dialog.findChild<QPushButton*>(QString::fromLatin1(button)), Qt::LeftButton);
}

/// Types a name into the toolkit's own file dialog and leaves it by OK.
inline void typeName(QFileDialog& dialog, const QString& name)
{
    dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(name);
    QMetaObject::invokeMethod(&dialog, "accept", Qt::QueuedConnection);
}

} // namespace tarvelint::test
