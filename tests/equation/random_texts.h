// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <limits>
#include <random>
#include <string>

namespace tarvelint::test {

/// Random texts: equations of the grammar, such with characters dropped or put in, and anything at all.
class RandomTexts {
public:
    explicit RandomTexts(std::uint32_t seed) : m_random(seed) {}

    std::string next()
    {
        switch (pick(8)) {
        case 0:
        case 1: return anything();
        case 2:
        case 3: return disturbed(grown(4));
        case 4: return chained(20);
        default: return grown(5);
        }
    }
    /// Operands side by side: the right operand of each operator is all the rest.
    std::string chained(std::uint32_t most)
    {
        std::string text = grown(1);
        const std::uint32_t signs = 1 + pick(5); // "*" only, or down to all five
        for (std::uint32_t count = pick(most); count > 0; --count) {
            text += "*/-^+"[pick(signs)];
            text += grown(1);
        }
        return pick(3) == 0 ? "(" + text + ")" : text;
    }
    /// Such as a reading or a baseline, or one of a few numbers that mean something.
    double number()
    {
        static const double kSpecial[] = {0, -0.0,  99999,  -1,
                                          1, 1e300, 5e-324, std::numeric_limits<double>::infinity()};
        if (pick(8) == 0) return kSpecial[pick(std::size(kSpecial))];
        return static_cast<double>(m_random() % 8001) / 1000.0 - 4;
    }
    std::uint32_t pick(std::uint32_t count) { return static_cast<std::uint32_t>(m_random()) % count; }

private:
    std::string grown(int depth)
    {
        static const char* const kLeaves[] = {"X", "B", "x", "b", "2", "0", ".5", "1E3", "", "7.25", "99999", " X"};
        if (depth == 0 || pick(3) == 0) return kLeaves[pick(std::size(kLeaves))];
        std::string inner = grown(depth - 1);
        inner += "+-*/^"[pick(5)];
        inner += grown(depth - 1);
        switch (pick(5)) {
        case 0: return inner;
        case 1: return "(" + inner;
        case 2: return inner + ")";
        default: return "(" + inner + ")";
        }
    }
    std::string disturbed(std::string text)
    {
        for (std::uint32_t i = 0; i < 3 && !text.empty(); ++i) {
            const std::size_t at = pick(static_cast<std::uint32_t>(text.size()));
            if (pick(2) == 0)
                text.erase(at, 1);
            else
                text.insert(at, 1, static_cast<char>(pick(256)));
        }
        return text;
    }
    std::string anything()
    {
        std::string text(pick(24), ' ');
        for (char& c : text) c = "()()+-*/^XxBb0123.5E \tD"[pick(23)];
        return text;
    }

    std::mt19937 m_random;
};

} // namespace tarvelint::test
