// SPDX-License-Identifier: MIT
#include "view/cues.h"

#include "data/numbers.h"

#include <algorithm>
#include <memory>
#include <vector>

namespace tarvelint {

void Cues::updateLabels()
{
    if (!m_window.haveLabelForm()) return;
    const std::int32_t rows = std::min<std::int32_t>(m_window.data.columns, m_window.labelFrm->rows());
    auto& labels = m_window.data.labels;
    if (labels.size() < static_cast<std::size_t>(rows)) labels.resize(static_cast<std::size_t>(rows));
    for (std::int32_t i = 0; i < rows; ++i) labels[static_cast<std::size_t>(i)] = m_window.labelFrm->labelBox(i + 1);
    m_window.setListTexts(labels);
}

void Cues::updateCues()
{
    const std::int32_t left = m_window.selStart;
    const std::int32_t right = m_window.selEnd;
    if (left < 0 || right > m_window.data.lines - 1 || right < left) return;
    const std::int32_t day = m_window.data.dateCol - 1;
    const std::int32_t time = m_window.data.timeCol - 1;
    m_window.setText(Control::slLabel, reading(m_window.curCol, left));
    m_window.setText(Control::ldLabel, parameter(day, left));
    m_window.setText(Control::ltLabel, parameter(time, left));
    m_window.setText(Control::srLabel, reading(m_window.curCol, right));
    m_window.setText(Control::rdLabel, parameter(day, right));
    m_window.setText(Control::rtLabel, parameter(time, right));
}

std::string Cues::reading(std::int32_t column0, std::int32_t row) const
{
    if (!m_window.data.hasColumn(column0)) return {};
    return screenText(m_window.data.values(kUnconverted, column0, row), m_window.env.style.grouping());
}

std::string Cues::parameter(std::int32_t column0, std::int32_t row) const
{
    if (!m_window.data.hasColumn(column0)) return {};
    return generalText(m_window.data.values(kUnconverted, column0, row));
}

void Cues::varList_Change(int index)
{
    const std::int32_t chosen = m_window.varList.at(static_cast<std::size_t>(index)).chosen;
    if (index == 0) {
        m_window.curCol = chosen;
        if (m_window.Turbo) {
            m_window.curSensor = sensorOf(chosen);
            m_window.markRow = m_window.grabbedPoint = m_window.dragRow = -1;
        }
    }
    if (chosen > -1) {
        m_window.setVisible(Control::HScroll1, true);
        m_window.setEnabled(element(Control::Picture1_0, index), true);
        m_window.redraw(index, true);
        if (index == 0 && m_window.haveLabelForm())
            m_window.setEnabled(Control::convButton, !m_window.isParameterColumn(chosen));
        m_window.ui.focus(Control::Picture1_0);
    }
    if (index == 0) m_window.updateCues();
}

std::int32_t Cues::sensorOf(std::int32_t column0) const
{
    const auto known = static_cast<std::int32_t>(m_window.sensorCols.size());
    for (std::int32_t s = 0; s < std::min(m_window.sensors, known); ++s)
        if (m_window.sensorColumn(s) == column0) return s;
    return -1;
}

void Cues::viewButton_Click()
{
    const bool toInput = m_window.curLayer != kUnconverted;
    m_window.curLayer = toInput ? kUnconverted : kConverted;
    m_window.setStatus(2, toInput ? "Display: viewing input data" : "Display: viewing output data");
    m_window.redraw(0, true);
    if (m_window.isEnabled(Control::Picture1_0)) m_window.ui.focus(Control::Picture1_0);
}

void Cues::scaleBox_Click(int index, bool checked)
{
    m_window.setChecked(element(Control::scaleBox0, index), checked);
    if (checked) m_window.redraw(index, true);
}

void Cues::leaveAutomaticRange(int index)
{
    m_window.setChecked(element(Control::scaleBox0, index), false);
}

void Cues::redrawIfNumeric(Control box, int index)
{
    if (isNumeric(m_window.text(element(box, index)))) m_window.redraw(index, true);
}

void Cues::refCheck_Click(bool checked)
{
    m_window.setChecked(Control::refCheck, checked);
    m_window.setEnabled(Control::refBox, checked);
    m_window.redraw(1, true);
}

void Cues::refBox_Change()
{
    m_window.redraw(1, true);
}

void Cues::labelBox_Click(bool checked)
{
    m_window.setChecked(Control::labelBox, checked);
    std::vector<std::string> texts;
    for (std::size_t i = 0; i < m_window.varList[0].entries.size(); ++i)
        texts.push_back(listEntry(static_cast<std::int32_t>(i), checked));
    m_window.setListTexts(texts);
}

std::string Cues::listEntry(std::int32_t column0, bool asLabel) const
{
    const auto& labels = m_window.data.labels;
    const auto i = static_cast<std::size_t>(column0);
    return asLabel && i < labels.size() ? labels[i] : plainText(column0 + 1);
}

void Cues::labelButton_Click()
{
    if (m_window.haveLabelForm()) {
        m_window.labelFrm->Form_Show();
    } else {
        m_window.labelFrm = std::make_unique<ColumnSetup>(m_window);
        m_window.labelFrm->Form_Load();
    }
    m_window.ui.showColumnSetup(false);
    m_window.ui.focus(Control::Picture1_0);
}

} // namespace tarvelint
