// SPDX-License-Identifier: MIT
#include "equation/answering_sink.h"
#include "equation/by_the_rules.h"
#include "equation/equation.h"
#include "equation/random_texts.h"
#include "equation/validator.h"
#include "support/allocations.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

namespace tarvelint::test {
namespace {

/// A count that the surroundings may set.
std::uint32_t setting(const char* name, std::uint32_t standard)
{
    const char* const text = std::getenv(name);
    return text == nullptr ? standard : static_cast<std::uint32_t>(std::stoul(text));
}

/// To the last bit; of a value that is no number only that.
bool same(double a, double b)
{
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b) || (std::isnan(a) && std::isnan(b));
}

bool same(const KeptFault& a, const KeptFault& b)
{
    return a.kind == b.kind && same(a.left, b.left) && same(a.right, b.right) && a.divisor == b.divisor;
}

/// One equation on one reading, by the program and by the rules.
struct Trial {
    double value = 0;
    double expected = 0;
    AnsweringSink sink;
    std::vector<KeptFault> expectedFaults;
    bool expectedStop = false;
};

/// A random reading and baseline, and a Cancel at a random fault.
Trial tried(RandomTexts& texts, const std::string& text)
{
    const double x = texts.number();
    const double b = texts.number();
    const ConversionRule rule{texts.pick(2) == 0, texts.pick(2) == 0 ? 99999 : static_cast<int>(texts.pick(3)) - 1};
    Trial trial;
    trial.sink.answers.resize(64);
    for (AfterFault& answer : trial.sink.answers) answer = texts.pick(6) == 0 ? AfterFault::stop : AfterFault::goOn;

    ByTheRules rules;
    rules.baselineIsHigh = rule.baselineIsHigh;
    rules.blank = rule.blank;
    rules.ask = [&](const KeptFault& fault) {
        trial.expectedFaults.push_back(fault);
        const std::size_t count = trial.expectedFaults.size();
        return count > trial.sink.answers.size() || trial.sink.answers[count - 1] == AfterFault::goOn;
    };
    trial.expected = rules.convert(text, x, b);
    trial.expectedStop = rules.stopped;
    trial.value = Equation(text).evaluate(x, b, rule, trial.sink);
    return trial;
}

void expectTheSame(const Trial& trial)
{
    ASSERT_TRUE(same(trial.value, trial.expected)) << trial.value << " instead of " << trial.expected;
    ASSERT_EQ(trial.sink.hasStopped(), trial.expectedStop);
    ASSERT_EQ(trial.sink.faults.size(), trial.expectedFaults.size());
    for (std::size_t k = 0; k < trial.expectedFaults.size(); ++k)
        ASSERT_TRUE(same(trial.sink.faults[k], trial.expectedFaults[k])) << "fault " << k;
}

/// TARVELINT_RANDOM_EQUATIONS asks for more, or fewer, and TARVELINT_RANDOM_SEED for others.
TEST(EquationProperty, anyTextGivesWhatTheRulesGiveFaultForFaultWhateverIsAnswered)
{
    const std::uint32_t count = setting("TARVELINT_RANDOM_EQUATIONS", 50'000);
    const std::uint32_t seed = setting("TARVELINT_RANDOM_SEED", 20261120);
    std::cout << count << " random equations, seed " << seed << '\n';
    RandomTexts texts(seed);
    std::uint64_t faults = 0;
    std::uint32_t stops = 0;
    for (std::uint32_t i = 0; i < count; ++i) {
        const std::string text = texts.next();
        const Trial trial = tried(texts, text);
        ASSERT_NO_FATAL_FAILURE(expectTheSame(trial)) << text;
        faults += trial.expectedFaults.size();
        stops += trial.expectedStop ? 1 : 0;
    }
    EXPECT_GT(faults, count / 20); // the texts were worth the trouble
    EXPECT_GT(stops, count / 200);
}

TEST(EquationProperty, aLongChainGivesWhatTheRulesGive)
{
    RandomTexts texts(19870314);
    std::size_t faults = 0;
    for (int i = 0; i < 100; ++i) {
        const std::string text = texts.chained(150);
        const Trial trial = tried(texts, text);
        ASSERT_NO_FATAL_FAILURE(expectTheSame(trial)) << text;
        faults += trial.expectedFaults.size();
    }
    EXPECT_GT(faults, 20U);
}

TEST(EquationProperty, aValueCostsNoAllocation)
{
    AnsweringSink sink;
    Equation equation("119*((B/X)-1)^1.23+1.5*(X+(B-2.25)*(X-12.123456789)/B)");
    const std::size_t before = allocationsSoFar();
    double sum = 0;
    for (int row = 0; row < 1000; ++row) sum += equation.evaluate(2 + row * 0.001, 3, {}, sink);
    EXPECT_EQ(allocationsSoFar(), before);
    EXPECT_TRUE(std::isfinite(sum));
    EXPECT_GT(before, 0U); // the counter counts
}

TEST(ValidatorProperty, anyTextIsRepairedAsTheRulesRepairItOrStaysAsTyped)
{
    RandomTexts texts(20261120);
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
