// SPDX-License-Identifier: MIT
#include "equation/evaluator.h"

#include "data/file_format.h"
#include "data/numbers.h"
#include "window/window.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

namespace tarvelint {

namespace {

/// What a character is to the split.
struct Role {
    signed char step = 0;      ///< how it changes what is left of the balance
    unsigned char binding = 0; ///< 1 for "+" and "-", 2 for "*" and "/", 3 for "^"
};

constexpr std::array<Role, 256> kRoles = [] {
    std::array<Role, 256> roles{};
    roles['('].step = -1;
    roles[')'].step = 1;
    roles['+'].binding = roles['-'].binding = 1;
    roles['*'].binding = roles['/'].binding = 2;
    roles['^'].binding = 3;
    return roles;
}();

constexpr Role roleOf(char c)
{
    return kRoles[static_cast<unsigned char>(c)];
}

constexpr std::size_t kNowhere = std::string_view::npos;

/// Where a text is split: the leftmost "+" or "-" with as many "(" as ")" after it, else so with "*" and "/", else "^".
/// Only counts are compared. One pass from the right finds all three, because what is after a place is then known.
std::size_t splitPlace(std::string_view text)
{
    std::size_t sum = kNowhere;
    std::size_t product = kNowhere;
    std::size_t power = kNowhere;
    int balance = 0;
    for (std::size_t i = text.size(); i-- > 0;) {
        const Role role = roleOf(text[i]);
        balance += role.step;
        if (role.binding == 0 || balance != 0) continue;
        if (role.binding == 1)
            sum = i;
        else if (role.binding == 2)
            product = i;
        else
            power = i;
    }
    if (sum != kNowhere) return sum;
    return product != kNowhere ? product : power;
}

std::string_view withoutOuterPair(std::string_view text)
{
    if (text.size() > 1 && text.front() == '(' && text.back() == ')') return text.substr(1, text.size() - 2);
    return text;
}

double leaf(std::string_view text, double source, double base)
{
    if (text.size() == 1) {
        if (text[0] == 'X' || text[0] == 'x') return source;
        if (text[0] == 'B' || text[0] == 'b') return base;
    }
    double value = 0;
    if (!text.empty() && scanNumber(text.data(), text.data() + text.size(), value) == text.data() + text.size())
        return value;
    return leadingNumber(text);
}

} // namespace

double Evaluator::convert(std::string_view& equation, double source, const double& base)
{
    if (m_window.stopFlag) return 0;
    const bool outside = m_window.conversionSettings.baselineIsHigh ? source > base : source < base;
    if (outside) source = base;
    // The clip comes before the missing-value test: a gap on the clipped side converts like zero flow.
    if (m_window.data.isBlank(source)) return source;
    equation = withoutOuterPair(equation);
    return evaluate(equation, source, base);
}

/// `text` has lost its outer pair. Operands wait on a stack of our own: an equation may nest as deep as its length
/// allows.
double Evaluator::evaluate(std::string_view text, double source, double base)
{
    m_pending.clear();
    for (;;) {
        for (auto place = splitPlace(text); place != kNowhere; place = splitPlace(text)) {
            m_pending.push_back({text.substr(place + 1), text[place]});
            text = withoutOuterPair(text.substr(0, place));
        }
        double value = leaf(text, source, base);
        for (;; m_pending.pop_back()) {
            if (m_pending.empty()) return value;
            Pending& node = m_pending.back();
            if (node.leftDone) {
                value = combine(node.left, value, node);
            } else if (m_window.stopFlag) {
                value = combine(value, 0, node); // after Cancel no further operand is evaluated
            } else {
                node.left = value;
                node.leftDone = true;
                text = withoutOuterPair(node.right);
                break;
            }
        }
    }
}

double Evaluator::combine(double left, double right, const Pending& node)
{
    switch (node.op) {
    case '+': return left + right;
    case '-': return left - right;
    case '*': return left * right;
    case '/':
        if (right != 0) return left / right;
        ask("Division by Zero! \r\nThis was caused by " + std::string(node.right));
        return 0;
    default:
        if (!(left < 0) || std::floor(right) == right) return std::pow(left, right);
        ask("Invalid power operation! \r\n" + generalText(left) + "^" + generalText(right));
        return 0;
    }
}

void Evaluator::ask(const std::string& what)
{
    const std::string prompt =
        what + "\r\nLine is " + plainText(m_window.conversionRow) + "\r\nOK to continue, Cancel to stop";
    const Answer answer = m_window.ui.messageBox({prompt, std::string(kTitle), Buttons::okCancel, Icon::none});
    if (answer == Answer::cancel) m_window.stopFlag = true;
}

double Evaluator::chop(std::string_view number, double source, double base)
{
    std::optional<double> product;
    const auto multiply = [&](double factor) { product = product ? *product * factor : factor; };
    std::size_t start = 0;
    for (std::size_t i = 0; i < number.size(); ++i) {
        const bool isSource = number[i] == 'X' || number[i] == 'x';
        if (!isSource && number[i] != 'B' && number[i] != 'b') continue;
        if (i > start) multiply(leadingNumber(number.substr(start, i - start)));
        multiply(isSource ? source : base);
        start = i + 1;
    }
    if (start < number.size()) multiply(leadingNumber(number.substr(start)));
    return product.value_or(0);
}

} // namespace tarvelint
