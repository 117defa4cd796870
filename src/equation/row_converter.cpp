// SPDX-License-Identifier: MIT
#include "equation/row_converter.h"

#include "data/file_format.h"

namespace tarvelint {

RowConverter::RowConverter(Window& window) : m_window(window), m_breather(window)
{
    window.stopFlag = false;
    window.markChanged(); // at once: a loop that is given up half-way has changed data too
}

bool RowConverter::convertRow(std::int32_t column, std::int32_t row)
{
    DataSet& data = m_window.data;
    m_window.conversionRow = row;
    const double converted = convert(m_window.text(Control::FormulaBox), data.values(kUnconverted, column, row),
                                     data.values(kBaseline, column, row));
    data.values(kConverted, column, row) = data.storable(converted);
    if (m_breather.isDue()) m_breather.breathe();
    return !m_window.stopFlag;
}

double RowConverter::convert(const std::string& equation, double source, double base)
{
    if (m_window.stopFlag) return 0;
    if (equation != m_equation.text()) m_equation = Equation(equation);
    return m_equation.evaluate(source, base, {m_window.isChecked(Control::highBox), m_window.data.blank}, *this);
}

AfterFault RowConverter::onFault(const Fault& fault)
{
    const Message question{faultPrompt(fault, m_window.conversionRow), std::string(kTitle), Buttons::okCancel,
                           Icon::none};
    if (m_window.ui.messageBox(question) != Answer::cancel) return AfterFault::goOn;
    m_window.stopFlag = true;
    return AfterFault::stop;
}

} // namespace tarvelint
