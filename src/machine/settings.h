// SPDX-License-Identifier: MIT
#pragma once

#include "data/settings_store.h"

#include <QSettings>

#include <map>

namespace tarvelint {

/// The user's settings in the platform's per-user place, as texts.
class UserSettings : public SettingsStore {
public:
    /// Opens nothing yet: a store that cannot be used shows at `trouble`.
    UserSettings();
    [[nodiscard]] std::string readSetting(std::string_view key, std::string_view defaultText) override;
    void writeSetting(std::string_view key, std::string_view text) override;

    /// Empty when the store can be used; else one sentence that names its file and what to do.
    [[nodiscard]] std::string trouble();

private:
    QSettings m_store;
};

/// Settings of one run, empty at first: every reader gets its default, whoever runs the program.
class RunSettings : public SettingsStore {
public:
    [[nodiscard]] std::string readSetting(std::string_view key, std::string_view defaultText) override;
    void writeSetting(std::string_view key, std::string_view text) override;

private:
    std::map<std::string, std::string, std::less<>> m_values;
};

} // namespace tarvelint
