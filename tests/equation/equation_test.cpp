// SPDX-License-Identifier: MIT
#include "equation/equation.h"

#include "equation/answering_sink.h"

#include <gtest/gtest.h>

#include <cmath>
#include <initializer_list>
#include <limits>
#include <string>

namespace tarvelint::test {
namespace {

constexpr const char* kDefault = "119*((B/X)-1)^1.23";

constexpr auto goOn = AfterFault::goOn;
constexpr auto stop = AfterFault::stop;

/// Values of equations, and the faults on the way.
class Bench {
public:
    AnsweringSink sink;
    ConversionRule rule;

    explicit Bench(bool high = true) : rule{high, 99999} {}

    double value(const std::string& equation, double x = 2, double b = 3)
    {
        return Equation(equation).evaluate(x, b, rule, sink);
    }
    /// The value when every fault is answered so; keeps the faults.
    double valueAnswering(const std::string& equation, std::initializer_list<AfterFault> answers, double x = 2,
                          double b = 3)
    {
        sink.faults.clear();
        sink.answers = answers;
        return value(equation, x, b);
    }
    [[nodiscard]] const KeptFault& fault(std::size_t i = 0) const { return sink.faults.at(i); }
};

struct Case {
    const char* equation;
    double value; // with X = 2 and B = 3
};

class EquationTable : public testing::TestWithParam<Case> {};

TEST_P(EquationTable, gives)
{
    Bench bench;
    EXPECT_EQ(bench.value(GetParam().equation), GetParam().value) << GetParam().equation;
    EXPECT_TRUE(bench.sink.faults.empty());
}

INSTANTIATE_TEST_SUITE_P(Leaves, EquationTable,
                         testing::Values(Case{"X", 2}, Case{"x", 2}, Case{"B", 3}, Case{"b", 3}, Case{"3", 3},
                                         Case{"12.5", 12.5}, Case{"", 0}, Case{"2X", 2}, Case{"X2", 0}, Case{" X", 0},
                                         Case{"X ", 0}, Case{"1E3", 1000}, Case{"1D3", 1000}, Case{"1.5.2", 1.5},
                                         Case{"1 2", 12}, Case{"Y", 0}, Case{"(X)", 2}, Case{"((X))", 0}, Case{"()", 0},
                                         Case{"(", 0}, Case{")", 0}));
INSTANTIATE_TEST_SUITE_P(Precedence, EquationTable,
                         testing::Values(Case{"2+3*4", 14}, Case{"2*3+4", 10}, Case{"2*3^2", 18}, Case{"2^3*2", 16},
                                         Case{"(2+3)*4", 20}, Case{"4*(2+3)", 20}, Case{"2^(1+2)", 8}));
INSTANTIATE_TEST_SUITE_P(GroupingFromTheRight, EquationTable,
                         testing::Values(Case{"10-2-3", 11}, Case{"5-2+1", 2}, Case{"8/4/2", 4}, Case{"6/2*3", 1},
                                         Case{"2^3^2", 512}));
// There is no unary minus: a sign splits, with nothing on its left.
INSTANTIATE_TEST_SUITE_P(Signs, EquationTable,
                         testing::Values(Case{"-X", -2}, Case{"2*-3", -3}, Case{"X^-1", 0}, Case{"1E-3", -2},
                                         Case{"X*-2", -2}, Case{"+X", 2}));
// One outer pair goes unmatched: "X+1)*(B+1" splits at its first "+", and "1)*(B+1" is 1.
INSTANTIATE_TEST_SUITE_P(OuterParentheses, EquationTable,
                         testing::Values(Case{"(X+1)*(B+1)", 4}, Case{"((X+1)*(B+1))", 12}, Case{"(X+1)", 3},
                                         Case{"X*(X+1)*(B+1)", 8}, Case{"X+(B-1)/(B+1)", 3}));

TEST(Equation, theDefaultEquationIsItsFormulaToTheLastBit)
{
    Bench bench;
    for (double x = 7.01; x < 10; x += 0.0137)
        EXPECT_EQ(bench.value(kDefault, x, 10), 119 * std::pow(10 / x - 1, 1.23)) << x;
}

TEST(Equation, aHighBaselineCapsTheReadingAndALowOneLiftsIt)
{
    Bench high(true);
    EXPECT_EQ(high.value("X", 5, 3), 3);
    EXPECT_EQ(high.value("X", 2, 3), 2);
    Bench low(false);
    EXPECT_EQ(low.value("X", 2, 3), 3);
    EXPECT_EQ(low.value("X", 5, 3), 5);
}

TEST(Equation, aMissingReadingOnTheOpenSideStaysMissing)
{
    Bench bench(false); // lifts what is below the baseline; 99999 is above
    EXPECT_EQ(bench.value("X+1", 99999, 3), 99999);
    bench.rule.blank = -9999;
    Bench high(true);
    high.rule.blank = -9999;
    EXPECT_EQ(high.value("X+1", -9999, 3), -9999);
}

TEST(Equation, aMissingReadingOnTheClippedSideConvertsLikeZeroFlow)
{
    Bench bench(true);
    EXPECT_EQ(bench.value("X+1", 99999, 3), 4);
}

TEST(Equation, aReadingClippedToAMissingBaselineIsMissing)
{
    Bench low(false);
    EXPECT_EQ(low.value("X+1", 4, 99999), 99999);
    Bench high(true);
    EXPECT_EQ(high.value("X+1", 100000, 99999), 99999);
}

TEST(Equation, aMissingReadingIsTheNumberForItWithoutItsSign)
{
    Bench bench;
    bench.rule.blank = 0;
    EXPECT_FALSE(std::signbit(bench.value("X-1", -0.0, 3)));
}

TEST(Equation, isReadOnceForAnyNumberOfValues)
{
    AnsweringSink sink;
    Equation equation("X/(B-1)+2");
    EXPECT_EQ(equation.evaluate(2, 3, {true, 99999}, sink), 3);      // 2 / 2 + 2
    EXPECT_EQ(equation.evaluate(2, 1, {true, 99999}, sink), 2);      // 1 / 0 counts as 0
    EXPECT_EQ(equation.evaluate(8, 9, {true, 99999}, sink), 3);      // 8 / 8 + 2
    EXPECT_EQ(equation.evaluate(8, 9, {false, 99999}, sink), 3.125); // 9 / 8 + 2
    EXPECT_EQ(equation.evaluate(8, 9, {true, 8}, sink), 8);
    EXPECT_EQ(sink.faults.size(), 1U);
    EXPECT_EQ(equation.text(), "X/(B-1)+2");
}

TEST(Equation, aCopyStandsOnItsOwn)
{
    AnsweringSink sink;
    Equation copy("");
    {
        const Equation equation("X/(B-B)");
        copy = equation;
    }
    EXPECT_EQ(copy.evaluate(2, 3, {}, sink), 0);
    EXPECT_EQ(sink.faults.at(0).divisor, "(B-B)");
}

TEST(EquationFaults, aDivisionByZeroNamesItsDivisorAndCountsAsZero)
{
    Bench bench;
    EXPECT_EQ(bench.valueAnswering("7+X/(B-B)", {goOn}), 7);
    EXPECT_EQ(bench.fault().kind, FaultKind::divisionByZero);
    EXPECT_EQ(bench.fault().left, 2);
    EXPECT_EQ(bench.fault().right, 0);
    EXPECT_EQ(bench.fault().divisor, "(B-B)");
}

TEST(EquationFaults, aDivisionByMinusZeroIsOneByZero)
{
    Bench bench;
    bench.valueAnswering("1/(0*(0-1))", {goOn});
    EXPECT_EQ(bench.fault().kind, FaultKind::divisionByZero);
}

TEST(EquationFaults, theDivisorIsAllThatStandsToTheRight)
{
    Bench bench;
    bench.valueAnswering("8/0/2", {goOn}); // 8/(0/2)
    EXPECT_EQ(bench.fault().divisor, "0/2");
    bench.valueAnswering("(8/0/2+1)", {goOn}); // what surrounds it does not belong to it
    EXPECT_EQ(bench.fault().divisor, "0/2");
    bench.valueAnswering("8/", {goOn});
    EXPECT_EQ(bench.fault().divisor, "");
}

TEST(EquationFaults, zeroToAFractionIsNone)
{
    Bench bench;
    EXPECT_EQ(bench.value("0^0.5"), 0);
    EXPECT_TRUE(bench.sink.faults.empty());
}

TEST(EquationFaults, aNegativeNumberToAFractionNamesBoth)
{
    Bench bench;
    EXPECT_EQ(bench.valueAnswering("(0-2)^0.5", {goOn}), 0);
    EXPECT_EQ(bench.fault().kind, FaultKind::power);
    EXPECT_EQ(bench.fault().left, -2);
    EXPECT_EQ(bench.fault().right, 0.5);
    EXPECT_EQ(bench.fault().divisor, "");
    EXPECT_EQ(bench.valueAnswering("((0-2)^(1/2-1))", {goOn}), 0);
    EXPECT_EQ(bench.fault().right, -0.5);
}

TEST(EquationFaults, wholePowersOfNegativeNumbersAreNone)
{
    Bench bench;
    EXPECT_EQ(bench.value("(0-2)^2"), 4);
    EXPECT_EQ(bench.value("(0-2)^3"), -8);
    EXPECT_EQ(bench.value("((0-2)^(0-1))"), -0.5);
    EXPECT_EQ(bench.value("0^0"), 1);
    EXPECT_EQ(bench.value("0^(0-1)"), std::numeric_limits<double>::infinity());
    EXPECT_TRUE(bench.sink.faults.empty());
}

TEST(EquationFaults, withALowBaselineTheDefaultEquationHasOneForEveryReadingAboveIt)
{
    Bench bench(false);
    EXPECT_EQ(bench.valueAnswering(kDefault, {goOn}, 5, 3), 0);
    EXPECT_EQ(bench.sink.faults.size(), 1U);
}

TEST(EquationFaults, comeInTheOrderOfEvaluationLeftOperandsFirst)
{
    Bench bench;
    EXPECT_EQ(bench.valueAnswering("((0-1)^.5+(1/(1/0)))", {goOn, goOn, goOn}), 0);
    ASSERT_EQ(bench.sink.faults.size(), 3U);
    EXPECT_EQ(bench.fault(0).kind, FaultKind::power);
    EXPECT_EQ(bench.fault(1).divisor, "0");
    EXPECT_EQ(bench.fault(2).divisor, "(1/0)");
}

TEST(EquationStop, afterCancelOnTheLeftTheRightSideIsNotEvaluated)
{
    Bench bench;
    EXPECT_EQ(bench.valueAnswering("(1/0)+5", {stop}), 0);       // 0 + 0
    EXPECT_EQ(bench.valueAnswering("(4+1/0)-5", {stop}), 4);     // 4 + 0, minus 0
    EXPECT_EQ(bench.valueAnswering("(1/0)-(2/0)*X", {stop}), 0); // 0 - 0
    EXPECT_EQ(bench.sink.faults.size(), 1U);
}

TEST(EquationStop, afterCancelOnTheRightWhatWasBegunIsFinished)
{
    Bench bench;
    EXPECT_EQ(bench.valueAnswering("5+(3+1/0)", {stop}), 8);
}

TEST(EquationStop, aDivisionByTheOperandThatWasLeftOutIsAFaultOnceMore)
{
    Bench bench;
    EXPECT_EQ(bench.valueAnswering("(1/0)/5", {stop, goOn}), 0);
    ASSERT_EQ(bench.sink.faults.size(), 2U);
    EXPECT_EQ(bench.fault(1).divisor, "5");
    EXPECT_EQ(bench.fault(1).right, 0);
}

TEST(EquationStop, goingOnAfterwardsDoesNotTakeItBack)
{
    Bench bench;
    EXPECT_EQ(bench.valueAnswering("((1/0)/5)+7", {stop, goOn}), 0);
}

TEST(EquationStop, theNextValueIsEvaluatedAgain)
{
    AnsweringSink sink;
    sink.answers = {stop};
    Equation equation("4+1/(X-2)");
    EXPECT_EQ(equation.evaluate(2, 9, {}, sink), 4);
    EXPECT_EQ(equation.evaluate(3, 9, {}, sink), 5);
}

TEST(EquationLongTexts, chainsAndNestsAsLongAsATextMayBeEndInAValue)
{
    Bench bench;
    std::string chain = "1";
    for (int i = 0; i < 8000; ++i) chain += "+1";
    EXPECT_EQ(bench.value(chain), 8001);

    // "((X+1)+1)...": each pair needs an operator of its own, since only one pair goes a call.
    std::string nest(5000, '(');
    nest += "X";
    for (int i = 0; i < 5000; ++i) nest += "+1)";
    EXPECT_EQ(bench.value(nest), 5002);

    // "1^(1^(1^...": a level of parentheses for every operator.
    std::string powers;
    for (int i = 0; i < 8000; ++i) powers += "1^(";
    EXPECT_EQ(bench.value(powers + "X" + std::string(8000, ')')), 1);

    EXPECT_EQ(bench.value(std::string(10000, '(') + "X" + std::string(10000, ')')), 0);
    EXPECT_EQ(bench.value(std::string(32000, '(')), 0);
    EXPECT_EQ(bench.value(std::string(32000, '9')), std::numeric_limits<double>::infinity());
}

TEST(EquationLongTexts, canBeStoppedAtTheirFirstOperator)
{
    Bench bench;
    std::string chain(4000, '(');
    chain += "1/0";
    for (int i = 0; i < 4000; ++i) chain += "+1)"; // each waits for its left operand, and gets 0 for its right one
    EXPECT_EQ(bench.valueAnswering(chain, {stop}), 0);
    EXPECT_EQ(bench.sink.faults.size(), 1U);
}

TEST(Chop, multipliesNumbersAndLettersThatStandTogether)
{
    EXPECT_EQ(chop("2X", 5, 7), 10);
    EXPECT_EQ(chop("0.5B", 5, 7), 3.5);
    EXPECT_EQ(chop("XB", 5, 7), 35);
    EXPECT_EQ(chop("xb2", 5, 7), 70);
    EXPECT_EQ(chop("3", 5, 7), 3);
    EXPECT_EQ(chop("2X3B4", 5, 7), 840);
    EXPECT_EQ(chop("B", 5, 7), 7);
    EXPECT_EQ(chop("x", 5, 7), 5);
    EXPECT_EQ(chop("", 5, 7), 0);
    EXPECT_EQ(chop("X ", 5, 7), 0); // what is no number is 0
    EXPECT_EQ(chop("2XY", 5, 7), 0);
}

} // namespace
} // namespace tarvelint::test
