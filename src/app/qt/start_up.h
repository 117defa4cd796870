// SPDX-License-Identifier: MIT
#pragma once

#include "app/qt/window_list.h"
#include "app/string_table.h"
#include "machine/clock.h"
#include "machine/files.h"
#include "machine/settings.h"
#include "machine/system_style.h"

#include <QObject>
#include <QPointer>

namespace tarvelint {

class FrmSplash;

/// `Module1`: what the program stands on, and its first minute: the splash over a first data window that waits behind
/// it.
class StartUp : public QObject {
    Q_OBJECT
public:
    StartUp();

    /// Shows the splash without waiting, then loads the first data window, still hidden.
    void Main();
    /// The splash goes and the first data window comes; a settings store that cannot be used is told about once.
    void showMainForm();

    [[nodiscard]] WindowList& windows() { return m_windows; }

private:
    StringTable m_table;
    UserSettings m_settings;
    LocaleStyle m_style;
    DiskFiles m_files;
    SteadyClock m_clock;
    WindowList m_windows;
    QPointer<FrmSplash> m_splash;
    QPointer<FrmMain> m_fMainForm;
};

} // namespace tarvelint
