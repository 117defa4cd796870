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
    m_window.view.curLayer = kUnconverted;
    m_window.data.saveCheck = true;
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
    const WindowSettings settings = readWindowSettings(m_window.env.settings);
    View& view = m_window.view;
    view.zoomFactor = settings.zoomFactor;
    m_window.ui.setGeometry(settings.geometry);
    view.dateCol = settings.date;
    view.timeCol = settings.time;
    m_window.setText(Control::FormulaBox, settings.equation);
    m_window.data.blank = settings.blank;
    m_window.setText(Control::refBox, settings.ref);
    m_window.setChecked(Control::highBox, settings.high);
    m_window.data.zeroOut = settings.zero;
}

void Lifecycle::mnuFileNew_Click()
{
    const Geometry screen = m_window.ui.screen();
    writeNewWindowGeometry(m_window.env.settings, m_window.ui.geometry(), screen.width, screen.height);
    m_application.newWindow();
}

void Lifecycle::mnuFileClose_Click()
{
    if (!m_window.data.saveCheck && !m_files.savedialog("Close window:")) return;
    unloadDialogs();
    m_asked = true; // the answer holds: the close handling does not ask again
    m_window.ui.unload();
}

void Lifecycle::Form_QueryUnload(bool& cancel)
{
    const bool wasMinimised = m_window.ui.isMinimised(); // before the question raises the window
    cancel = !m_asked && !m_window.data.saveCheck && !m_files.savedialog("Close window:");
    m_asked = false;
    unloadDialogs();
    m_application.unloadOptions();
    const View& view = m_window.view;
    const ClosingSettings settings{m_window.text(Control::refBox), m_window.conversionSettings.baselineIsHigh,
                                   view.dateCol, view.timeCol, view.zoomFactor};
    const Geometry geometry = m_window.ui.geometry();
    writeClosingSettings(m_window.env.settings, settings, wasMinimised ? nullptr : &geometry);
}

void Lifecycle::unloadDialogs()
{
    m_forms.unloadColumnSetup();
    m_forms.unloadSaveContents();
}

void Lifecycle::toggleBar(Control entry, Control bar)
{
    const bool show = !m_window.isChecked(entry);
    m_window.setChecked(entry, show);
    m_window.setVisible(bar, show);
}

} // namespace tarvelint
