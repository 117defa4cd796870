// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tarvelint {

class Window;

/// Evaluates the user's equation in the reading X and the baseline B, straight from its text: each step splits the text
/// at one operator and evaluates both sides. Chains group from the right (10-2-3 is 11), there is no unary minus (-X is
/// 0-X), and one outer pair of parentheses is taken off a text without asking whether the two belong together.
class Evaluator {
public:
    /// Positions in an equation are 16-bit: a longer one is refused where it is applied.
    static constexpr std::size_t kLongestEquation = 32767;

    explicit Evaluator(Window& window) : m_window(window) {}

    /// The converted value. X is first clipped to the side of B that "Baseline is high" selects; only then a missing
    /// reading is recognised, and comes back as `blank`. Divisions by zero and powers of negative numbers to a fraction
    /// ask OK or Cancel and count as 0; Cancel sets the window's `stopFlag`, and every further call is 0 until a
    /// command clears it.
    /// @param equation may come back without its outer parentheses
    /// @param source   the reading X
    /// @param base     the baseline B
    /// @return any double, infinities included
    [[nodiscard]] double convert(std::string_view& equation, double source, const double& base);

    /// A term that is an implicit product of numbers and the letters X and B ("2X", "0.5B", "XB"). Nothing calls it.
    [[nodiscard]] static double chop(std::string_view number, double source, double base);

private:
    /// An operator whose operands are being evaluated.
    struct Pending {
        std::string_view right;
        char op = 0;
        bool leftDone = false;
        double left = 0;
    };

    [[nodiscard]] double evaluate(std::string_view text, double source, double base);
    [[nodiscard]] double combine(double left, double right, const Pending& node);
    void ask(const std::string& what);

    Window& m_window;
    std::vector<Pending> m_pending; ///< kept between calls: a value costs no allocation
};

} // namespace tarvelint
