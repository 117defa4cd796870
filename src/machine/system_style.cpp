// SPDX-License-Identifier: MIT
#include "machine/system_style.h"

#include <QDate>
#include <QLocale>

namespace tarvelint {

std::string LocaleStyle::longDate() const
{
    return QLocale::system().toString(QDate::currentDate(), QLocale::LongFormat).toStdString();
}

std::string LocaleStyle::grouping() const
{
    const QLocale locale = QLocale::system();
    if (locale.numberOptions() & QLocale::OmitGroupSeparator || locale.language() == QLocale::C) return {};
    return locale.groupSeparator().toStdString();
}

} // namespace tarvelint
