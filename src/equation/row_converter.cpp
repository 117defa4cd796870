// SPDX-License-Identifier: MIT
#include "equation/row_converter.h"

#include "data/file_format.h"
#include "equation/convert_cell.h"
#include "equation/fault_text.h"
#include "window/window.h"

namespace tarvelint {

RowConverter::RowConverter(Window& window) : m_window(window), m_breather(window.ui, window.env.clock) {}

bool RowConverter::convertRow(std::int32_t column, std::int32_t row)
{
    Record& record = m_window.record;
    if (record.saveCheck) m_window.markChanged(); // at once: a loop that is given up half-way has changed data too
    m_row = row;
    convertCell(record, column, row, [this](double reading, double baseline) {
        return convert(m_window.conversionSettings.equation, reading, baseline);
    });
    if (m_breather.isDue()) m_breather.breathe();
    return !m_isStopped;
}

double RowConverter::convert(const std::string& equation, double source, double base)
{
    if (m_isStopped) return 0;
    if (equation != m_equation.text()) m_equation = Equation(equation);
    return m_equation.evaluate(source, base, {m_window.conversionSettings.baselineIsHigh, m_window.record.blank},
                               *this);
}

AfterFault RowConverter::onFault(const Fault& fault)
{
    const Message question{faultPrompt(fault, m_row), std::string(kTitle), Buttons::okCancel, Icon::none};
    // Operators that wait for a value left out after Cancel may ask too: their OK does not take the Cancel back.
    if (m_window.ui.messageBox(question) == Answer::cancel) m_isStopped = true;
    return m_isStopped ? AfterFault::stop : AfterFault::goOn;
}

} // namespace tarvelint
