// SPDX-License-Identifier: MIT
#include "equation/evaluator.h"

#include "data/file_format.h"
#include "data/numbers.h"
#include "window/window.h"

#include <array>
#include <cmath>
#include <optional>

namespace tarvelint {

namespace {

enum class Kind : unsigned char { other, open, close, sum, product, power };

constexpr std::array<Kind, 256> kKinds = [] {
    std::array<Kind, 256> kinds{};
    kinds['('] = Kind::open;
    kinds[')'] = Kind::close;
    kinds['+'] = kinds['-'] = Kind::sum;
    kinds['*'] = kinds['/'] = Kind::product;
    kinds['^'] = Kind::power;
    return kinds;
}();

constexpr std::size_t kNowhere = std::string_view::npos;

/// Where a text is split: the leftmost "+" or "-" with as many "(" as ")" after it, else so with "*" and "/", else "^".
/// Only counts are compared. One pass from the right finds all three, because what is after a place is then known.
std::size_t splitPlace(std::string_view text)
{
    std::array<std::size_t, 3> found{kNowhere, kNowhere, kNowhere};
    int balance = 0;
    for (std::size_t i = text.size(); i-- > 0;) {
        const Kind kind = kKinds[static_cast<unsigned char>(text[i])];
        switch (kind) {
        case Kind::other: break;
        case Kind::open: ++balance; break;
        case Kind::close: --balance; break;
        default:
            if (balance == 0) found[static_cast<std::size_t>(kind) - static_cast<std::size_t>(Kind::sum)] = i;
        }
    }
    for (const std::size_t place : found)
        if (place != kNowhere) return place;
    return kNowhere;
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
    const bool outside = m_window.isChecked(Control::highBox) ? source > base : source < base;
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
        for (std::size_t place = splitPlace(text); place != kNowhere; place = splitPlace(text)) {
            m_pending.push_back({text.substr(place + 1), text[place]});
            text = withoutOuterPair(text.substr(0, place));
        }
        double value = leaf(text, source, base);
        if (!climb(value, text)) return value;
    }
}

/// Gives `value` to the operators that wait for it. True when one of them needs its right operand next, which `text`
/// then is; False when `value` has become the value of the whole.
bool Evaluator::climb(double& value, std::string_view& text)
{
    while (!m_pending.empty()) {
        Pending& node = m_pending.back();
        if (!node.leftDone) {
            node.leftDone = true;
            node.left = value;
            if (!m_window.stopFlag) {
                text = withoutOuterPair(node.right);
                return true;
            }
            value = 0; // after Cancel no further operand is evaluated
        }
        const Pending done = node;
        m_pending.pop_back();
        value = combine(done, value);
    }
    return false;
}

double Evaluator::combine(const Pending& node, double right)
{
    switch (node.op) {
    case '+': return node.left + right;
    case '-': return node.left - right;
    case '*': return node.left * right;
    case '/':
        if (right != 0) return node.left / right;
        ask("Division by Zero! \r\nThis was caused by " + std::string(node.right));
        return 0;
    default:
        if (!(node.left < 0) || std::floor(right) == right) return std::pow(node.left, right);
        ask("Invalid power operation! \r\n" + generalText(node.left) + "^" + generalText(right));
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
