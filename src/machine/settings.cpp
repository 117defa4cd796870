// SPDX-License-Identifier: MIT
#include "machine/settings.h"

#include "data/file_format.h"

#include <QFileInfo>
#include <QStringList>

namespace tarvelint {

namespace {

QString qt(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QString settingKey(std::string_view key)
{
    return QStringLiteral("Settings/") + qt(key);
}

} // namespace

UserSettings::UserSettings() : m_store(QSettings::IniFormat, QSettings::UserScope, qt(kTitle), qt(kTitle)) {}

std::string UserSettings::readSetting(std::string_view key, std::string_view defaultText)
{
    const QVariant value = m_store.value(settingKey(key));
    if (!value.isValid()) return std::string(defaultText);
    // A text with a comma that somebody wrote into the file without quotes comes back as a list.
    if (value.typeId() == QMetaType::QStringList) return value.toStringList().join(u',').toStdString();
    return value.toString().toStdString();
}

void UserSettings::writeSetting(std::string_view key, std::string_view text)
{
    m_store.setValue(settingKey(key), qt(text));
}

std::string UserSettings::trouble()
{
    m_store.sync();
    static_cast<void>(m_store.allKeys()); // a section is parsed, and found faulty, only when it is asked for
    const QFileInfo file(m_store.fileName());
    const bool unreadable = file.exists() && (!file.isFile() || !file.isReadable());
    if (m_store.status() == QSettings::NoError && !unreadable) return {};
    return "The settings in " + m_store.fileName().toStdString() +
           " cannot be read; the defaults are used. Check the file's permissions, or delete it to start afresh.";
}

} // namespace tarvelint
