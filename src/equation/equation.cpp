// SPDX-License-Identifier: MIT
#include "equation/equation.h"

#include "data/numbers.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

namespace tarvelint {

namespace {

constexpr std::uint32_t kSource = 0; // places in the list of values
constexpr std::uint32_t kBase = 1;

constexpr std::size_t kBindings = 3;

/// 0 for "+" and "-", which bind loosest, 1 for "*" and "/", 2 for "^"; `kBindings` for any other character.
constexpr std::size_t bindingOf(char c)
{
    switch (c) {
    case '+':
    case '-': return 0;
    case '*':
    case '/': return 1;
    case '^': return 2;
    default: return kBindings;
    }
}

constexpr int levelStep(char c)
{
    return c == '(' ? 1 : c == ')' ? -1 : 0;
}

} // namespace

/// The operators of a text by the level of parentheses they stand on. As many "(" as ")" come after a place exactly if
/// it is on the level of the end, so where a part is split is found among the operators of one level, and no part is
/// read twice, however they nest. Only counts are compared.
class Equation::SplitPlaces {
public:
    explicit SplitPlaces(std::string_view text)
    {
        int level = 0;
        int lowest = 0;
        int highest = 0;
        for (const char c : text) {
            level += levelStep(c);
            lowest = std::min(lowest, level);
            highest = std::max(highest, level);
        }
        m_levels.reserve(text.size() + 1);
        m_levels.push_back(static_cast<std::uint32_t>(-lowest));
        for (const char c : text) m_levels.push_back(m_levels.back() + static_cast<std::uint32_t>(levelStep(c)));
        m_starts.resize((static_cast<std::size_t>(highest - lowest) + 1) * kBindings + 1);
        sortPlaces(text);
    }

    /// The leftmost operator of those in `part` that bind loosest and have as many "(" as ")" after them.
    [[nodiscard]] std::optional<std::uint32_t> in(Part part) const
    {
        for (std::size_t binding = 0; binding < kBindings; ++binding) {
            const std::size_t group = groupOf(part.end, binding);
            const auto end = m_places.begin() + m_starts[group + 1];
            const auto place = std::lower_bound(m_places.begin() + m_starts[group], end, part.begin);
            if (place != end && *place < part.end) return *place;
        }
        return {};
    }

private:
    [[nodiscard]] std::size_t groupOf(std::uint32_t place, std::size_t binding) const
    {
        return m_levels[place] * kBindings + binding;
    }

    /// Counting sort: the operators of one group side by side, from left to right.
    void sortPlaces(std::string_view text)
    {
        const auto forEachOperator = [&](auto&& take) {
            for (std::uint32_t i = 0; i < text.size(); ++i)
                if (const std::size_t binding = bindingOf(text[i]); binding != kBindings) take(i, groupOf(i, binding));
        };
        forEachOperator([&](std::uint32_t, std::size_t group) { ++m_starts[group + 1]; });
        for (std::size_t group = 1; group < m_starts.size(); ++group) m_starts[group] += m_starts[group - 1];
        m_places.resize(m_starts.back());
        std::vector<std::uint32_t> next = m_starts;
        forEachOperator([&](std::uint32_t place, std::size_t group) { m_places[next[group]++] = place; });
    }

    std::vector<std::uint32_t> m_levels; ///< before each character, and at the end
    std::vector<std::uint32_t> m_places; ///< of the operators, group by group
    std::vector<std::uint32_t> m_starts; ///< of the groups, in `m_places`; the last is its end
};

Equation::Equation(std::string text) : m_text(std::move(text)), m_values{0, 0}
{
    read();
}

/// Operands that wait to be read lie on a stack of our own: an equation may nest as deep as its length allows.
void Equation::read()
{
    struct Pending {
        Part right;
        char op = 0;
        std::optional<std::uint32_t> left; ///< once it has been read
    };
    const SplitPlaces places(m_text);
    std::vector<Pending> pending;
    Part part = withoutOuterPair({0, static_cast<std::uint32_t>(m_text.size())});
    for (;;) {
        while (const auto place = places.in(part)) {
            pending.push_back({{*place + 1, part.end}, m_text[*place], {}});
            part = withoutOuterPair({part.begin, *place});
        }
        m_resultPlace = addLeaf(textOf(part));
        for (; !pending.empty() && pending.back().left; pending.pop_back()) {
            const Pending& node = pending.back();
            m_steps.push_back({*node.left, m_resultPlace, addValue(0), node.op});
            m_rightParts.push_back(node.right);
            m_resultPlace = m_steps.back().result;
        }
        if (pending.empty()) return;
        pending.back().left = m_resultPlace;
        part = withoutOuterPair(pending.back().right);
    }
}

std::string_view Equation::textOf(Part part) const
{
    return std::string_view(m_text).substr(part.begin, part.end - part.begin);
}

Equation::Part Equation::withoutOuterPair(Part part) const
{
    const bool hasPair = part.end - part.begin > 1 && m_text[part.begin] == '(' && m_text[part.end - 1] == ')';
    return hasPair ? Part{part.begin + 1, part.end - 1} : part;
}

std::uint32_t Equation::addLeaf(std::string_view text)
{
    if (text == "X" || text == "x") return kSource;
    if (text == "B" || text == "b") return kBase;
    return addValue(leadingNumber(text));
}

std::uint32_t Equation::addValue(double value)
{
    m_values.push_back(value);
    return static_cast<std::uint32_t>(m_values.size() - 1);
}

double Equation::evaluate(double source, double base, const ConversionRule& rule, FaultSink& faults)
{
    const bool outside = rule.baselineIsHigh ? source > base : source < base;
    if (outside) source = base;
    // The clip comes before the missing-value test: a gap on the clipped side converts like zero flow.
    if (source == rule.blank) return rule.blank;
    m_values[kSource] = source;
    m_values[kBase] = base;
    Run run{faults};
    for (std::size_t i = 0; i < m_steps.size(); ++i) {
        const Step& step = m_steps[i];
        m_values[step.result] = combined(i, m_values[step.left], m_values[step.right], run);
        if (run.isStopped) return finished(i, run);
    }
    return m_values[m_resultPlace];
}

inline double Equation::combined(std::size_t step, double left, double right, Run& run) const
{
    switch (m_steps[step].op) {
    case '+': return left + right;
    case '-': return left - right;
    case '*': return left * right;
    case '/':
        if (right != 0) return left / right;
        break;
    default:
        if (!(left < 0) || std::floor(right) == right) return std::pow(left, right);
    }
    return reported(step, left, right, run);
}

double Equation::reported(std::size_t step, double left, double right, Run& run) const
{
    Fault fault{FaultKind::power, left, right, {}};
    if (m_steps[step].op == '/') {
        fault.kind = FaultKind::divisionByZero;
        fault.divisor = textOf(m_rightParts[step]);
    }
    if (run.faults.onFault(fault) == AfterFault::stop) run.isStopped = true;
    return 0;
}

/// What the whole comes to when nothing is evaluated any more after `step`: only the operators that wait for its
/// result, and for theirs in turn, are carried out.
double Equation::finished(std::size_t step, Run& run) const
{
    double value = m_values[m_steps[step].result];
    std::uint32_t awaited = m_steps[step].result;
    for (std::size_t i = step + 1; i < m_steps.size(); ++i) {
        const Step& next = m_steps[i];
        if (next.left == awaited)
            value = combined(i, value, 0, run);
        else if (next.right == awaited)
            value = combined(i, m_values[next.left], value, run);
        else
            continue;
        awaited = next.result;
    }
    return value;
}

double chop(std::string_view number, double source, double base)
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
