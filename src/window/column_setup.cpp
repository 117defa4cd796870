// SPDX-License-Identifier: MIT
#include "window/column_setup.h"

#include "data/numbers.h"
#include "window/window.h"

#include <algorithm>

namespace tarvelint {

void ColumnSetup::Form_Load()
{
    takeLabels();
    const PreProcessSettings settings = readPreProcessSettings(m_parentForm.env.settings);
    boxes = {.checkBox = std::vector<bool>(m_labels.size(), false),
             .saveBox = false,
             .turboCheck = false,
             .vpdBox = settings.vpd,
             .parBox = settings.par,
             .VPDlBox = settings.vpdLimit,
             .PARlBox = settings.parLimit,
             .timeBox = settings.lullTime};
    m_applied = boxes;
    m_isShown = true;
}

void ColumnSetup::Form_Show()
{
    if (m_isShown) return;
    m_isShown = true;
    takeLabels();
    boxes = m_applied;
}

void ColumnSetup::takeLabels()
{
    // The column lists may show numbers ("show" is off); taken from there, OK would replace labels by numbers.
    m_labels = m_parentForm.data.labels;
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
    const Parameters parameters = boxes.turboCheck ? readParameters() : Parameters{};
    m_applied = boxes;
    m_hasDecided = true;
    m_parentForm.updateLabels();
    m_parentForm.markChanged();
    m_parentForm.varList_Change(0);
    if (boxes.turboCheck)
        applyPreProcess(parameters);
    else
        applyManual();
    hide();
    m_parentForm.showMode();
    m_parentForm.varList_Change(0); // now with the sensor ordinal of the column on view
}

bool ColumnSetup::savesLabels() const
{
    return m_hasDecided ? m_applied.saveBox : m_parentForm.readWithLabels;
}

void ColumnSetup::CancelButton_Click()
{
    boxes = m_applied;
    hide();
}

void ColumnSetup::hide()
{
    m_isShown = false;
    m_parentForm.ui.hideColumnSetup();
}

std::int32_t ColumnSetup::sensorCount() const
{
    return static_cast<std::int32_t>(std::count(boxes.checkBox.begin(), boxes.checkBox.end(), false));
}

std::int16_t ColumnSetup::columnNumber(const std::string& text, const char* what) const
{
    const double number = leadingNumber(text) - 1;
    const auto fault = [&] {
        return CommandFailure(std::string("The ") + what + " column \"" + text + "\" does not exist: the file has " +
                              plainText(m_parentForm.data.columns) +
                              (m_parentForm.data.columns == 1 ? " column" : " columns") + ". Type a number from 1 to " +
                              plainText(m_parentForm.data.columns) + ".");
    };
    try {
        const std::int16_t column = roundToInt16(number);
        if (!m_parentForm.data.hasColumn(column)) throw fault();
        return column;
    } catch (const NumericOverflow&) {
        throw fault();
    }
}

namespace {

CommandFailure unusableNumber(const char* what, const std::string& text)
{
    return CommandFailure(std::string("The ") + what + " \"" + text +
                          "\" does not fit. Type a number of ordinary size.");
}

float limit(const std::string& text, const char* what)
{
    try {
        return toFloat32(leadingNumber(text));
    } catch (const NumericOverflow&) {
        throw unusableNumber(what, text);
    }
}

std::int32_t rowCount(const std::string& text)
{
    try {
        return roundToInt32(leadingNumber(text));
    } catch (const NumericOverflow&) {
        throw unusableNumber("number of minimum time intervals", text);
    }
}

} // namespace

ColumnSetup::Parameters ColumnSetup::readParameters() const
{
    Parameters parameters;
    parameters.vpdCol = columnNumber(boxes.vpdBox, "VPD");
    parameters.parCol = columnNumber(boxes.parBox, "PAR");
    parameters.vpdLimit = limit(boxes.VPDlBox, "VPD limit");
    parameters.parLimit = limit(boxes.PARlBox, "PAR limit");
    parameters.lullTime = rowCount(boxes.timeBox);
    if (sensorCount() == 0)
        throw CommandFailure("Every column is marked \"Do not convert\": there is no sensor column to pre-process. "
                             "Clear the mark of at least one sensor column.");
    return parameters;
}

void ColumnSetup::applyPreProcess(const Parameters& parameters)
{
    Window& window = m_parentForm;
    window.Turbo = true;
    window.lineMode = false;
    window.Sloppy = false;
    window.chainActive = false;
    window.setPointer(Pointer::hourglass);
    window.setEnabled(Control::mnuToolsMode, false);
    window.data.vpdCol = parameters.vpdCol;
    window.data.parCol = parameters.parCol;
    window.data.vpdLimit = parameters.vpdLimit;
    window.data.parLimit = parameters.parLimit;
    window.data.lullTime = parameters.lullTime;
    window.preProcess();
    window.sensors = sensorCount();
    window.getBase();
}

void ColumnSetup::applyManual()
{
    m_parentForm.Turbo = false;
    m_parentForm.lineMode = true;
    m_parentForm.Sloppy = true;
    m_parentForm.chainActive = false;
    m_parentForm.setEnabled(Control::mnuToolsMode, true);
}

} // namespace tarvelint
