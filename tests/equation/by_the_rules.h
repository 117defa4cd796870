// SPDX-License-Identifier: MIT
#pragma once

#include "data/numbers.h"
#include "equation/equation.h"

#include <cmath>
#include <functional>
#include <optional>
#include <string>

namespace tarvelint::test {

/// A fault that outlives the equation.
struct KeptFault {
    FaultKind kind = FaultKind::divisionByZero;
    double left = 0;
    double right = 0;
    std::string divisor;
};

/// The equation's rules once more, one after the other as a person would tell them: recursive, on copies of the text
/// that are split anew for every value, with no thought of time. What the program gives is held against it.
class ByTheRules {
public:
    double blank = 99999;
    bool baselineIsHigh = true;
    bool stopped = false;
    /// Says what could not be computed; False for Cancel.
    std::function<bool(const KeptFault& fault)> ask;

    double convert(std::string text, double source, const double base)
    {
        if (stopped) return 0;
        if (!baselineIsHigh && source < base) source = base;
        if (baselineIsHigh && source > base) source = base;
        if (source == blank) return blank;
        if (text.length() > 1 && text.front() == '(' && text.back() == ')') text = text.substr(1, text.length() - 2);
        for (const char* const pass : {"+-", "*/", "^"})
            for (std::size_t i = 0; i < text.length(); ++i)
                if (isOneOf(text[i], pass) && isEven(text.substr(i + 1))) return split(text, i, source, base);
        if (text == "X" || text == "x") return source;
        if (text == "B" || text == "b") return base;
        return leadingNumber(text);
    }

private:
    static bool isOneOf(char c, const std::string& characters) { return characters.find(c) != std::string::npos; }

    static bool isEven(const std::string& rest)
    {
        int open = 0;
        int close = 0;
        for (const char c : rest) {
            if (c == '(') ++open;
            if (c == ')') ++close;
        }
        return open == close;
    }

    double split(const std::string& text, std::size_t i, double source, double base)
    {
        const std::string divisor = text.substr(i + 1);
        const double left = convert(text.substr(0, i), source, base);
        const double right = convert(divisor, source, base);
        if (text[i] == '+') return left + right;
        if (text[i] == '-') return left - right;
        if (text[i] == '*') return left * right;
        if (text[i] == '/') {
            if (right != 0) return left / right;
            return fail({FaultKind::divisionByZero, left, right, divisor});
        }
        if (left < 0 && std::floor(right) != right) return fail({FaultKind::power, left, right, ""});
        return std::pow(left, right);
    }

    double fail(const KeptFault& fault)
    {
        if (!ask(fault)) stopped = true;
        return 0;
    }
};

/// The repair's rules, on the text itself, with a 1-based place that steps over it. Nothing when a ")" comes to stand
/// first.
inline std::optional<std::string> repairedByTheRules(std::string text)
{
    bool afterOperand = false;
    bool inNumber = false;
    const std::string digits = "0123456789.";
    for (int i = 1; i <= static_cast<int>(text.length()); ++i) {
        const auto at = static_cast<std::size_t>(i - 1);
        const char c = text[at];
        const bool isDigit = digits.find(c) != std::string::npos;
        const bool isVariable = std::string("XxBb").find(c) != std::string::npos;
        if (afterOperand ? isDigit || isVariable || c == '(' : inNumber && (isVariable || c == '(')) {
            text.insert(at, "*");
            ++i;
        }
        if (isDigit) {
            afterOperand = false;
            inNumber = true;
        } else if (isVariable) {
            afterOperand = true;
            inNumber = false;
        } else if (c == ')') {
            if (!afterOperand && !inNumber) {
                if (i < 3) return {};
                text.erase(at - 1, 1);
                --i;
            }
            afterOperand = true;
            inNumber = false;
        } else if (std::string("(+-*/^").find(c) != std::string::npos) {
            afterOperand = inNumber = false;
        } else {
            text.erase(at, 1);
            --i;
        }
    }
    return text;
}

} // namespace tarvelint::test
