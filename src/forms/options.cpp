// SPDX-License-Identifier: MIT
#include "forms/options.h"

#include "data/numbers.h"
#include "equation/equation.h"
#include "equation/validator.h"
#include "window/command_failure.h"
#include "window/window.h"

#include <optional>

namespace tarvelint {

namespace {

/// The width that a box's number has to fit.
template <class Number>
struct Width {
    std::optional<Number> (*rounded)(double);
    std::string (*overflow)(double);
};
constexpr Width<std::int16_t> kInt16{roundedToInt16, int16Overflow};
constexpr Width<std::int32_t> kInt32{roundedToInt32, int32Overflow};
constexpr Width<float> kFloat32{roundedToFloat32, float32Overflow};

template <class Number>
Number numberIn(const std::string& text, const char* label, const Width<Number>& width)
{
    const double value = leadingNumber(text);
    if (const auto number = width.rounded(value)) return *number;
    throw CommandFailure(std::string(label) + ", \"" + text + "\": " + width.overflow(value) + " Nothing was changed.");
}

} // namespace

Options::Options(SettingsStore& store) : m_store(store)
{
    eqBox = readSetting(store, Setting::Equation);
    dateBox = readSetting(store, Setting::Date);
    timeBox = readSetting(store, Setting::Time);
    parBox = readSetting(store, Setting::PAR);
    vpdBox = readSetting(store, Setting::VPD);
    timiBox = readSetting(store, Setting::lullTime);
    VPDlBox = readSetting(store, Setting::VPDlimit);
    PARlBox = readSetting(store, Setting::PARlimit);
    blankBox = readSetting(store, Setting::Blank);
    zeroBox = readZeroSetting(store);
}

bool Options::cmdApplyCur_Click()
{
    if (!blankIsNumeric()) return false;
    const Numbers numbers = readNumbers();
    applyEquation();
    View& view = parentForm->view;
    view.dateCol = numbers.date;
    view.timeCol = numbers.time;
    // As typed, whereas the column setup dialog takes one off what it shows: the two differ, and both stay.
    parentForm->conversionSettings.zeroFlow = numbers.zeroFlow;
    parentForm->record.zeroOut = zeroBox;
    parentForm->fixblanks();
    return true;
}

bool Options::cmdApplyAll_Click(std::span<Window* const> windows)
{
    if (!blankIsNumeric()) return false;
    const Numbers numbers = readNumbers();
    applyEquation();
    store();
    for (Window* window : windows) {
        window->setText(Control::FormulaBox, eqBox);
        // The parent's, whichever window is visited: the other numbers reach windows through the store only.
        parentForm->view.dateCol = numbers.date;
        parentForm->view.timeCol = numbers.time;
        window->fixblanks();
    }
    return true;
}

bool Options::blankIsNumeric() const
{
    if (isNumeric(blankBox)) return true;
    parentForm->ui.messageBox(
        {"You must use a number for the blank value.", "Improper setting:", Buttons::ok, Icon::critical});
    return false;
}

Options::Numbers Options::readNumbers() const
{
    Numbers numbers;
    numbers.date = numberIn(dateBox, "Date column", kInt16);
    numbers.time = numberIn(timeBox, "Time column", kInt16);
    ZeroFlowSettings& zeroFlow = numbers.zeroFlow;
    zeroFlow.vpdCol = numberIn(vpdBox, "VPD column", kInt16);
    zeroFlow.parCol = numberIn(parBox, "PAR column", kInt16);
    zeroFlow.lullTime = numberIn(timiBox, "Minimum time intervals", kInt32);
    zeroFlow.vpdLimit = numberIn(VPDlBox, "VPD limit", kFloat32);
    zeroFlow.parLimit = numberIn(PARlBox, "PAR limit", kFloat32);
    static_cast<void>(numberIn(blankBox, "Number for missing values", kInt32));
    return numbers;
}

void Options::applyEquation()
{
    std::string repaired = eqBox;
    evaluate(repaired);
    if (repaired.size() > kLongestEquation)
        throw CommandFailure("The equation is " + std::to_string(repaired.size()) + " characters long, and " +
                             std::to_string(kLongestEquation) + " is the most. Nothing was changed.");
    eqBox = std::move(repaired);
    parentForm->setText(Control::FormulaBox, eqBox);
}

void Options::store() const
{
    writeSetting(m_store, Setting::Equation, eqBox);
    writeSetting(m_store, Setting::Date, dateBox);
    writeSetting(m_store, Setting::Time, timeBox);
    writeSetting(m_store, Setting::VPD, vpdBox);
    writeSetting(m_store, Setting::PAR, parBox);
    writeSetting(m_store, Setting::lullTime, timiBox);
    writeSetting(m_store, Setting::VPDlimit, VPDlBox);
    writeSetting(m_store, Setting::PARlimit, PARlBox);
    writeSetting(m_store, Setting::Blank, blankBox);
    writeSetting(m_store, Setting::Zero, zeroBox ? "1" : "0");
}

} // namespace tarvelint
