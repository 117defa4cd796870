// SPDX-License-Identifier: MIT
#include "equation/by_the_rules.h"
#include "equation/evaluator.h"
#include "equation/validator.h"
#include "support/allocations.h"
#include "support/test_window.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <random>

namespace tarvelint::test {
namespace {

/// Random texts: equations of the grammar, such with characters dropped or put in, and anything at all.
class Texts {
public:
    std::string next()
    {
        switch (pick(4)) {
        case 0: return anything();
        case 1: return disturbed(grown(4));
        default: return grown(5);
        }
    }
    double number() { return static_cast<double>(m_random() % 8001) / 1000.0 - 4; }
    std::uint32_t pick(std::uint32_t count) { return static_cast<std::uint32_t>(m_random()) % count; }

private:
    std::string grown(int depth)
    {
        static const char* const kLeaves[] = {"X", "B", "x", "b", "2", "0", ".5", "1E3", "", "7.25", "99999", " X"};
        if (depth == 0 || pick(3) == 0) return kLeaves[pick(std::size(kLeaves))];
        const std::string left = grown(depth - 1);
        const std::string inner = left + "+-*/^"[pick(5)] + grown(depth - 1);
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

    std::mt19937 m_random{20261120};
};

bool same(double a, double b)
{
    return a == b || (std::isnan(a) && std::isnan(b));
}

TEST(EvaluatorProperty, anyTextGivesWhatTheRulesGiveBoxForBoxWhateverIsAnswered)
{
    Texts texts;
    int boxes = 0;
    int cancels = 0;
    for (int i = 0; i < 30000; ++i) {
        const std::string text = texts.next();
        const double x = texts.pick(20) == 0 ? 99999 : texts.number();
        const double b = texts.number();
        const std::vector<Answer> answers = [&] {
            std::vector<Answer> list(64);
            for (Answer& answer : list) answer = texts.pick(6) == 0 ? Answer::cancel : Answer::ok;
            return list;
        }();

        ByTheRules rules;
        rules.baselineIsHigh = i % 2 == 0;
        rules.row = i;
        std::vector<std::string> prompts;
        rules.ask = [&](const std::string& prompt) {
            prompts.push_back(prompt);
            return answers.at(prompts.size() - 1) == Answer::ok;
        };
        const double expected = rules.convert(text, x, b);

        TestWindow window;
        window.setChecked(Control::highBox, rules.baselineIsHigh);
        window.conversionRow = i;
        window.fakeUi.answers.assign(answers.begin(), answers.end());
        std::string_view equation = text;
        const double value = Evaluator(window).convert(equation, x, b);

        ASSERT_TRUE(same(value, expected)) << text << " gives " << value << " instead of " << expected;
        ASSERT_EQ(window.stopFlag, rules.stopped) << text;
        ASSERT_EQ(window.fakeUi.messages.size(), prompts.size()) << text;
        for (std::size_t k = 0; k < prompts.size(); ++k) ASSERT_EQ(window.fakeUi.messages[k].text, prompts[k]);
        boxes += static_cast<int>(prompts.size());
        cancels += rules.stopped ? 1 : 0;
    }
    EXPECT_GT(boxes, 1000); // the texts were worth the trouble
    EXPECT_GT(cancels, 100);
}

TEST(EvaluatorProperty, aValueCostsNoAllocation)
{
    TestWindow window;
    window.setChecked(Control::highBox, true);
    Evaluator evaluator(window);
    const std::string text = "119*((B/X)-1)^1.23+1.5*(X+(B-2.25)*(X-12.123456789)/B)";
    std::string_view equation = text;
    double sum = evaluator.convert(equation, 2, 3); // the stack of operands grows to its depth once
    const std::size_t before = allocationsSoFar();
    for (int row = 0; row < 1000; ++row) {
        equation = text;
        sum += evaluator.convert(equation, 2 + row * 0.001, 3);
    }
    EXPECT_EQ(allocationsSoFar(), before);
    EXPECT_TRUE(std::isfinite(sum));
    EXPECT_GT(before, 0U); // the counter counts
}

TEST(ValidatorProperty, anyTextIsRepairedAsTheRulesRepairItOrStaysAsTyped)
{
    Texts texts;
    int repaired = 0;
    for (int i = 0; i < 30000; ++i) {
        const std::string typed = texts.next();
        std::string text = typed;
        const std::string returned = evaluate(text);
        ASSERT_EQ(returned, text);
        ASSERT_EQ(text, repairedByTheRules(typed).value_or(typed));
        repaired += text != typed ? 1 : 0;
    }
    EXPECT_GT(repaired, 1000);
}

} // namespace
} // namespace tarvelint::test
