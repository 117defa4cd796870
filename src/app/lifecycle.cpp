// SPDX-License-Identifier: MIT
#include "app/lifecycle.h"

#include "app/captions.h"
#include "app/command_table.h"
#include "data/file_format.h"
#include "data/settings_store.h"

namespace tarvelint {

void Lifecycle::Form_Load()
{
    applySettings();
    m_view.curLayer = kUnconverted;
    m_record.saveCheck = true;
    for (const Needs needs : {Needs::record, Needs::more})
        for (const Control control : controlsThatNeed(needs)) m_window.setEnabled(control, false);
    for (const Control box : {Control::scaleBox0, Control::scaleBox1, Control::labelBox, Control::mnuViewToolbar,
                              Control::mnuViewStatusBar})
        m_window.setChecked(box, true);
    m_window.setVisible(Control::mnuFileMRU, false);
    m_window.setVisible(Control::HScroll1, false);
    std::string caption(kTitle);
    setcaption(m_window, m_application, caption);
}

void Lifecycle::applySettings()
{
    const WindowSettings settings = readWindowSettings(m_env.settings);
    m_view.zoomFactor = settings.zoomFactor;
    m_ui.setGeometry(settings.geometry);
    m_view.dateCol = settings.date;
    m_view.timeCol = settings.time;
    m_window.setText(Control::FormulaBox, settings.equation);
    m_record.blank = settings.blank;
    m_window.setText(Control::refBox, settings.ref);
    m_window.setChecked(Control::highBox, settings.high);
    m_record.zeroOut = settings.zero;
}

void Lifecycle::mnuFileNew_Click()
{
    const Geometry screen = m_ui.screen();
    writeNewWindowGeometry(m_env.settings, m_ui.geometry(), screen.width, screen.height);
    m_application.newWindow();
}

void Lifecycle::mnuFileClose_Click()
{
    if (!m_record.saveCheck && !m_files.savedialog("Close window:")) return;
    unloadDialogs();
    m_asked = true; // the answer holds: the close handling does not ask again
    m_ui.unload();
}

void Lifecycle::Form_QueryUnload(bool& cancel)
{
    const bool wasMinimised = m_ui.isMinimised(); // before the question raises the window
    cancel = !m_asked && !m_record.saveCheck && !m_files.savedialog("Close window:");
    m_asked = false;
    unloadDialogs();
    m_application.unloadOptions();
    const ClosingSettings settings{m_window.text(Control::refBox), m_window.conversionSettings.baselineIsHigh,
                                   m_view.dateCol, m_view.timeCol, m_view.zoomFactor};
    const Geometry geometry = m_ui.geometry();
    writeClosingSettings(m_env.settings, settings, wasMinimised ? nullptr : &geometry);
}

void Lifecycle::unloadDialogs()
{
    m_forms.unloadColumnSetup();
    m_forms.unloadSaveContents();
}

} // namespace tarvelint
