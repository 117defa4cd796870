// SPDX-License-Identifier: MIT
#pragma once

#include "app/application.h"
#include "app/file_commands.h"
#include "forms/window_forms.h"
#include "window/window.h"

namespace tarvelint {

/// A main window's coming and going: creation from the settings, New, Close, Exit, and what runs however it closes.
class Lifecycle {
public:
    Lifecycle(Window& window, Application& application, FileCommands& files, WindowForms& forms)
        : m_window(window), m_view(window.view), m_record(window.record), m_ui(window.ui), m_env(window.env),
          m_application(application), m_files(files), m_forms(forms)
    {
    }

    /// Fills a new window from the settings store; data commands stay disabled until a record is loaded.
    void Form_Load();
    /// Every way a window closes comes here. `cancel` comes back True when the window is to stay; its dialogs are
    /// gone and its settings are written even then.
    void Form_QueryUnload(bool& cancel);

    /// A further window, placed where this one stands and cut to the screen.
    void mnuFileNew_Click();
    /// Asks about unsaved data, once, and closes this window.
    void mnuFileClose_Click();
    /// Opens the options dialog for this window; `eqButton` selects its whole equation, to be typed over.
    void mnuToolsOptions_Click() { m_application.showOptions(m_window, false); }
    void eqButton_Click() { m_application.showOptions(m_window, true); }
    /// Closes every window, this one last; each asks for itself.
    void mnuFileExit_Click() { m_application.exitFrom(m_window); }
    /// Both show or hide a bar and check or clear their entry.
    void mnuViewToolbar_Click() { m_window.setChecked(Control::mnuViewToolbar, !m_view.showsToolBar); }
    void mnuViewStatusBar_Click() { m_window.setChecked(Control::mnuViewStatusBar, !m_view.showsStatusBar); }

private:
    void applySettings();
    void unloadDialogs();

    Window& m_window;
    View& m_view;
    Record& m_record;
    Ui& m_ui;
    Environment& m_env;
    Application& m_application;
    FileCommands& m_files;
    WindowForms& m_forms;
    bool m_asked = false; ///< File > Close has asked already
};

} // namespace tarvelint
