// SPDX-License-Identifier: MIT
#include "forms/column_setup.h"

#include "baseline/zero_flow_faults.h"
#include "data/numbers.h"
#include "data/settings_store.h"
#include "view/column_lists.h"
#include "window/command_failure.h"
#include "window/window.h"

#include <algorithm>

namespace tarvelint {

void ColumnSetup::Form_Load()
{
    const PreProcessSettings settings = readPreProcessSettings(m_parentForm.env.settings);
    m_applied = {.checkBox = {},
                 .saveBox = false,
                 .turboCheck = false,
                 .vpdBox = settings.vpd,
                 .parBox = settings.par,
                 .VPDlBox = settings.vpdLimit,
                 .PARlBox = settings.parLimit,
                 .timeBox = settings.lullTime};
    takeRecord();
    m_isShown = true;
}

void ColumnSetup::Form_Show()
{
    if (m_isShown) return;
    takeRecord();
    m_isShown = true;
}

void ColumnSetup::takeRecord()
{
    const Record& record = m_parentForm.record;
    // The column lists may show numbers ("show" is off); taken from there, OK would replace labels by numbers.
    m_labels = record.labels;
    boxes = m_applied;
    boxes.checkBox = record.parameters;
    boxes.checkBox.resize(m_labels.size(), false);
}

int ColumnSetup::scrollValueShowing(int row1, int scrollValue) const
{
    const int atTop = row1 - 1;
    const int atBottom = row1 - kVisibleRows;
    return std::clamp(std::clamp(scrollValue, atBottom, atTop), 0, scrollBarMax());
}

const std::string& ColumnSetup::tipLabel()
{
    static const std::string text =
        "Check the columns that contain parameters, such as day, time, VPD, temperature, etc. These columns will be "
        "included in the output file unchanged, and cannot be converted or interpolated.\r\n\r\n"
        "Any unchecked columns can be converted and interpolated, and are filled with the designated blank number "
        "(such as 99999) initially.\r\n\r\n"
        "Check 'Save labels in iutput file' to save the labels as the first line in the output file (recommended if "
        "you have custom labels). If you do not have custom labels, uncheck this box, or the first line of the output "
        "file will be the same as the first line of the input file.\r\n\r\n"
        "Check 'VPD pre-process' to enable automatic detection of zero-flow conditions and automatic baseline "
        "calculation and data conversion.";
    return text;
}

void ColumnSetup::OKButton_Click()
{
    // Everything that can fail is read first: a number that cannot be used leaves the window as it was.
    ColumnChoices choices{m_labels, boxes.checkBox, boxes.saveBox, std::nullopt};
    if (boxes.turboCheck) choices.zeroFlow = readParameters();
    if (choices.zeroFlow && !mayReplacePoints()) return;
    m_applied = boxes;
    applyColumnSetup(m_parentForm, choices);
    hide();
    m_parentForm.showMode();
    ColumnLists(m_parentForm).varList_Change(0); // now with the sensor ordinal of the column on view
}

bool ColumnSetup::mayReplacePoints() const
{
    if (!m_parentForm.sensors.areEdited()) return true;
    return m_parentForm.ui.messageBox(
               {"Baseline points were changed by hand since the last pre-process. Running it again "
                "replaces all of them.",
                "VPD pre-process", Buttons::okCancel, Icon::warning}) == Answer::ok;
}

void ColumnSetup::CancelButton_Click()
{
    takeRecord();
    hide();
}

void ColumnSetup::hide()
{
    m_isShown = false;
    m_parentForm.dialogs.hideColumnSetup();
}

namespace {

CommandFailure unusableNumber(const char* what, const std::string& text)
{
    return CommandFailure(std::string("The ") + what + " \"" + text +
                          "\" does not fit. Type a number of ordinary size.");
}

/// The 0-based column that a typed number names: its leading number less one, rounded half to even.
std::int16_t columnIn(const std::string& text, const char* what, const Record& record)
{
    const auto column = roundedToInt16(leadingNumber(text) - 1);
    return column && record.hasColumn(*column) ? *column : throw noSuchColumn(what, text, record);
}

float limit(const std::string& text, const char* what)
{
    const auto number = roundedToFloat32(leadingNumber(text));
    return number ? *number : throw unusableNumber(what, text);
}

std::int32_t rowCount(const std::string& text)
{
    const auto number = roundedToInt32(leadingNumber(text));
    return number ? *number : throw unusableNumber("number of minimum time intervals", text);
}

} // namespace

ZeroFlowSettings ColumnSetup::readParameters() const
{
    ZeroFlowSettings parameters;
    parameters.vpdCol = columnIn(boxes.vpdBox, "VPD", m_parentForm.record);
    parameters.parCol = columnIn(boxes.parBox, "PAR", m_parentForm.record);
    parameters.vpdLimit = limit(boxes.VPDlBox, "VPD limit");
    parameters.parLimit = limit(boxes.PARlBox, "PAR limit");
    parameters.lullTime = rowCount(boxes.timeBox);
    if (std::find(boxes.checkBox.begin(), boxes.checkBox.end(), false) == boxes.checkBox.end()) throw noSensorColumn();
    return parameters;
}

} // namespace tarvelint
