// SPDX-License-Identifier: MIT
#include "forms/window_forms.h"

#include "window/window.h"

namespace tarvelint {

void WindowForms::labelButton_Click()
{
    haveLabelForm() ? labelFrm->Form_Show() : loadColumnSetup();
    m_window.dialogs.showColumnSetup(false);
    m_window.ui.focus(Control::Picture1_0);
}

void WindowForms::showNewColumnSetup()
{
    loadColumnSetup();
    m_window.dialogs.showColumnSetup(true);
}

void WindowForms::loadColumnSetup()
{
    labelFrm = std::make_unique<ColumnSetup>(m_window);
    labelFrm->Form_Load();
}

bool WindowForms::askContents()
{
    if (!typeFrm) typeFrm = std::make_unique<SaveContents>(m_window.file.choices);
    typeFrm->open();
    m_window.dialogs.showSaveContents();
    return typeFrm && typeFrm->confirmed; // it goes when its window is closed meanwhile
}

void WindowForms::unloadColumnSetup()
{
    if (!haveLabelForm()) return;
    m_window.dialogs.unloadColumnSetup();
    labelFrm.reset();
}

void WindowForms::unloadSaveContents()
{
    if (!haveTypeForm()) return;
    m_window.dialogs.unloadSaveContents();
    typeFrm.reset();
}

} // namespace tarvelint
