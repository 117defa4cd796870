// SPDX-License-Identifier: MIT
#include "equation/row_converter.h"

#include "window/window.h"

namespace tarvelint {

RowConverter::RowConverter(Window& window) : m_window(window), m_evaluator(window), m_breather(window.ui, window.env.clock)
{
    window.stopFlag = false;
}

bool RowConverter::convertRow(std::int32_t column, std::int32_t row)
{
    DataSet& data = m_window.data;
    m_window.markChanged(); // at once: a loop that is given up half-way has changed data too
    m_window.conversionRow = row;
    m_equation = m_window.conversionSettings.equation;
    std::string_view equation = m_equation;
    const double converted =
        m_evaluator.convert(equation, data.values(kUnconverted, column, row), data.values(kBaseline, column, row));
    data.values(kConverted, column, row) = data.storable(converted);
    if (m_breather.isDue()) m_breather.breathe();
    return !m_window.stopFlag;
}

} // namespace tarvelint
