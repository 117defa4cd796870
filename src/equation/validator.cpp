// SPDX-License-Identifier: MIT
#include "equation/validator.h"

#include <utility>

namespace tarvelint {

namespace {

/// The text kept so far, and what its end is.
class Repair {
public:
    /// False when a ")" has come to stand first: there is nothing before it to delete.
    [[nodiscard]] bool take(char c)
    {
        switch (c) {
        case 'X':
        case 'x':
        case 'B':
        case 'b': takeVariable(c); return true;
        case '(': takeOpen(); return true;
        case ')': return takeClose();
        case '+':
        case '-':
        case '*':
        case '/':
        case '^': takeOperator(c); return true;
        default:
            if ((c >= '0' && c <= '9') || c == '.') takeDigit(c);
            return true;
        }
    }
    [[nodiscard]] std::string& kept() { return m_kept; }

private:
    void takeDigit(char c)
    {
        if (std::exchange(m_afterOperand, false)) m_kept += '*';
        m_inNumber = true;
        m_kept += c;
    }
    void takeVariable(char c)
    {
        if (m_afterOperand || m_inNumber) m_kept += '*';
        m_afterOperand = true;
        m_inNumber = false;
        m_kept += c;
    }
    void takeOpen()
    {
        if (m_afterOperand || m_inNumber) m_kept += '*';
        takeOperator('(');
    }
    bool takeClose()
    {
        if (!m_afterOperand && !m_inNumber) {
            if (m_kept.size() < 2) return false;
            m_kept.pop_back(); // one character only: "(X+-)" becomes "(X+)"
        }
        m_afterOperand = true;
        m_inNumber = false;
        m_kept += ')';
        return true;
    }
    void takeOperator(char c)
    {
        m_afterOperand = m_inNumber = false;
        m_kept += c;
    }

    std::string m_kept;
    bool m_afterOperand = false; ///< a variable or ")" was kept last
    bool m_inNumber = false;     ///< a digit or "." was kept last
};

} // namespace

std::optional<std::string> repairedEquation(std::string_view equation)
{
    Repair repair;
    for (const char c : equation)
        if (!repair.take(c)) return {};
    return std::move(repair.kept());
}

std::string evaluate(std::string& equation)
{
    if (auto repaired = repairedEquation(equation)) equation = *std::move(repaired);
    return equation;
}

} // namespace tarvelint
