// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace tarvelint {

/// Gives `widget` the name that code finds it by and the name that a screen reader says, and returns it.
template <class Widget>
Widget* named(Widget* widget, const char* objectName, const QString& accessibleName)
{
    widget->setObjectName(QString::fromLatin1(objectName));
    widget->setAccessibleName(accessibleName);
    return widget;
}

} // namespace tarvelint
