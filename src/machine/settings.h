// SPDX-License-Identifier: MIT
#pragma once

#include "data/settings_store.h"

#include <QSettings>

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

} // namespace tarvelint
