// SPDX-License-Identifier: MIT
#include "view/display_controls.h"

#include "data/numbers.h"

namespace tarvelint {

bool countsAsTyping(BoxKey key)
{
    return key == BoxKey::enter || key == BoxKey::backspace || key == BoxKey::deleteKey;
}

void DisplayControls::viewButton_Click()
{
    const bool toInput = m_view.curLayer != kUnconverted;
    m_view.curLayer = toInput ? kUnconverted : kConverted;
    m_view.grabbedPoint = m_view.dragRow = -1; // points are seen and moved in the input view only
    m_window.setStatus(2, toInput ? "Display: viewing input data" : "Display: viewing output data");
    m_window.redraw(0, true);
    if (m_window.isEnabled(Control::Picture1_0)) m_ui.focus(Control::Picture1_0);
}

void DisplayControls::scaleBox_Click(int index, bool checked)
{
    m_window.setChecked(element(Control::scaleBox0, index), checked);
    if (checked) m_window.redraw(index, true);
}

void DisplayControls::leaveAutomaticRange(int index)
{
    m_window.setChecked(element(Control::scaleBox0, index), false);
}

void DisplayControls::redrawIfNumeric(Control box, int index)
{
    if (isNumeric(m_window.text(element(box, index)))) m_window.redraw(index, true);
}

void DisplayControls::refCheck_Click(bool checked)
{
    m_window.setChecked(Control::refCheck, checked);
    m_window.setEnabled(Control::refBox, checked);
    m_window.redraw(1, true);
}

void DisplayControls::refBox_Change()
{
    m_window.redraw(1, true);
}

} // namespace tarvelint
