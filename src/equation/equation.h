// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tarvelint {

/// Positions in an equation are 16-bit: a longer one is refused where it is applied.
inline constexpr std::size_t kLongestEquation = 32767;

/// What decides, beside the equation, how a reading is converted.
struct ConversionRule {
    bool baselineIsHigh = true;  ///< readings above the baseline are lowered to it; if not, those below are raised
    std::int32_t blank = 99'999; ///< the number that stands for a missing value
};

enum class FaultKind {
    divisionByZero,
    power, ///< a negative number to a fraction
};

/// An operation without a value; it counts as 0.
struct Fault {
    FaultKind kind = FaultKind::divisionByZero;
    double left = 0; ///< the operands
    double right = 0;
    std::string_view divisor; ///< of a division, as it stands in the equation; lives as long as the equation does
};

enum class AfterFault { goOn, stop };

/// Whoever has to decide what follows a fault.
class FaultSink {
public:
    virtual ~FaultSink() = default;
    /// Called while the equation is being evaluated, which must not be evaluated again or replaced from here.
    [[nodiscard]] virtual AfterFault onFault(const Fault& fault) = 0;
};

/// The user's equation in the reading X and the baseline B, read once and then evaluated for as many values as there
/// are. Any text is one, malformed ones too. Chains group from the right (10-2-3 is 11), there is no unary minus (-X is
/// 0-X), and one outer pair of parentheses is taken off a text without asking whether the two belong together.
class Equation {
public:
    explicit Equation(std::string text);

    [[nodiscard]] const std::string& text() const { return m_text; }

    /// The converted value. X is first clipped to the side of B that `rule` names; only then a missing reading is
    /// recognised, and comes back as `blank`. Faults are handed to `faults` in the order of evaluation, left operands
    /// first. After `stop` no operand is evaluated any more: what has not been is 0, and the operators that wait for it
    /// are still carried out, and may be faults themselves. Remembering the stop for the next value is the caller's.
    /// Allocates nothing.
    /// @param source the reading X
    /// @param base   the baseline B
    /// @return any double, infinities included
    [[nodiscard]] double evaluate(double source, double base, const ConversionRule& rule, FaultSink& faults);

private:
    /// Part of the text: from `begin` to before `end`.
    struct Part {
        std::uint32_t begin = 0;
        std::uint32_t end = 0;
    };
    /// One operator: combines two of the values into a third. Operands are places in `m_values`.
    struct Step {
        std::uint32_t left = 0;
        std::uint32_t right = 0;
        std::uint32_t result = 0;
        char op = 0;
    };
    /// One evaluation, as far as it can come to its end early.
    struct Run {
        FaultSink& faults;
        bool isStopped = false;
    };
    class SplitPlaces;

    void read();
    [[nodiscard]] std::string_view textOf(Part part) const;
    [[nodiscard]] Part withoutOuterPair(Part part) const;
    [[nodiscard]] std::uint32_t addLeaf(std::string_view text);
    [[nodiscard]] std::uint32_t addValue(double value);
    [[nodiscard]] double combined(std::size_t step, double left, double right, Run& run) const;
    [[nodiscard]] double reported(std::size_t step, double left, double right, Run& run) const;
    [[nodiscard]] double finished(std::size_t step, Run& run) const;

    std::string m_text;
    std::vector<Step> m_steps;       ///< in the order of evaluation; every result is an operand of one later step
    std::vector<Part> m_rightParts;  ///< of each step, the text of its right operand
    std::vector<double> m_values;    ///< X, B, then the numbers of the text and room for the results
    std::uint32_t m_resultPlace = 0; ///< of the whole equation, in `m_values`
};

/// A term that is an implicit product of numbers and the letters X and B ("2X", "0.5B", "XB"). Nothing calls it.
[[nodiscard]] double chop(std::string_view number, double source, double base);

} // namespace tarvelint
