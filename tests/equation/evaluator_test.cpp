// SPDX-License-Identifier: MIT
#include "equation/evaluator.h"

#include "support/test_window.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace tarvelint::test {
namespace {

constexpr const char* kDefault = "119*((B/X)-1)^1.23";

/// A window with "Baseline is high" checked, as a new one has it, and an evaluator on it.
class Bench : public TestWindow {
public:
    Evaluator evaluator{*this};

    explicit Bench(bool high = true) { setChecked(Control::highBox, high); }

    double value(std::string_view equation, double x = 2, double b = 3) { return evaluator.convert(equation, x, b); }
    /// The value when every message is answered so; says how many there were and keeps their texts.
    double valueAnswering(std::string_view equation, std::initializer_list<Answer> answers, double x = 2, double b = 3)
    {
        fakeUi.messages.clear();
        fakeUi.answers = answers;
        return value(equation, x, b);
    }
    [[nodiscard]] std::string said(std::size_t i = 0) const { return fakeUi.messages.at(i).text; }
};

struct Case {
    const char* equation;
    double value; // with X = 2 and B = 3
};

class EvaluatorTable : public testing::TestWithParam<Case> {};

TEST_P(EvaluatorTable, gives)
{
    Bench bench;
    EXPECT_EQ(bench.value(GetParam().equation), GetParam().value) << GetParam().equation;
    EXPECT_TRUE(bench.fakeUi.messages.empty());
}

INSTANTIATE_TEST_SUITE_P(Leaves, EvaluatorTable,
                         testing::Values(Case{"X", 2}, Case{"x", 2}, Case{"B", 3}, Case{"b", 3}, Case{"3", 3},
                                         Case{"12.5", 12.5}, Case{"", 0}, Case{"2X", 2}, Case{"X2", 0}, Case{" X", 0},
                                         Case{"X ", 0}, Case{"1E3", 1000}, Case{"1D3", 1000}, Case{"1.5.2", 1.5},
                                         Case{"1 2", 12}, Case{"Y", 0}, Case{"(X)", 2}, Case{"((X))", 0}, Case{"()", 0},
                                         Case{"(", 0}, Case{")", 0}));
INSTANTIATE_TEST_SUITE_P(Precedence, EvaluatorTable,
                         testing::Values(Case{"2+3*4", 14}, Case{"2*3+4", 10}, Case{"2*3^2", 18}, Case{"2^3*2", 16},
                                         Case{"(2+3)*4", 20}, Case{"4*(2+3)", 20}, Case{"2^(1+2)", 8}));
INSTANTIATE_TEST_SUITE_P(GroupingFromTheRight, EvaluatorTable,
                         testing::Values(Case{"10-2-3", 11}, Case{"5-2+1", 2}, Case{"8/4/2", 4}, Case{"6/2*3", 1},
                                         Case{"2^3^2", 512}));
// There is no unary minus: a sign splits, with nothing on its left.
INSTANTIATE_TEST_SUITE_P(Signs, EvaluatorTable,
                         testing::Values(Case{"-X", -2}, Case{"2*-3", -3}, Case{"X^-1", 0}, Case{"1E-3", -2},
                                         Case{"X*-2", -2}, Case{"+X", 2}));
// One outer pair goes unmatched: "X+1)*(B+1" splits at its first "+", and "1)*(B+1" is 1.
INSTANTIATE_TEST_SUITE_P(OuterParentheses, EvaluatorTable,
                         testing::Values(Case{"(X+1)*(B+1)", 4}, Case{"((X+1)*(B+1))", 12}, Case{"(X+1)", 3},
                                         Case{"X*(X+1)*(B+1)", 8}, Case{"X+(B-1)/(B+1)", 3}));

TEST(Evaluator, theDefaultEquationIsItsFormulaToTheLastBit)
{
    Bench bench;
    for (double x = 7.01; x < 10; x += 0.0137)
        EXPECT_EQ(bench.value(kDefault, x, 10), 119 * std::pow(10 / x - 1, 1.23)) << x;
}

TEST(Evaluator, aHighBaselineCapsTheReadingAndALowOneLiftsIt)
{
    Bench high(true);
    EXPECT_EQ(high.value("X", 5, 3), 3);
    EXPECT_EQ(high.value("X", 2, 3), 2);
    Bench low(false);
    EXPECT_EQ(low.value("X", 2, 3), 3);
    EXPECT_EQ(low.value("X", 5, 3), 5);
}

TEST(Evaluator, aMissingReadingOnTheOpenSideStaysMissing)
{
    Bench bench(false); // lifts what is below the baseline; 99999 is above
    EXPECT_EQ(bench.value("X+1", 99999, 3), 99999);
    bench.data.blank = -9999;
    Bench high(true);
    high.data.blank = -9999;
    EXPECT_EQ(high.value("X+1", -9999, 3), -9999);
}

TEST(Evaluator, aMissingReadingOnTheClippedSideConvertsLikeZeroFlow)
{
    Bench bench(true);
    EXPECT_EQ(bench.value("X+1", 99999, 3), 4);
}

TEST(Evaluator, aReadingClippedToAMissingBaselineIsMissing)
{
    Bench low(false);
    EXPECT_EQ(low.value("X+1", 4, 99999), 99999);
    Bench high(true);
    EXPECT_EQ(high.value("X+1", 100000, 99999), 99999);
}

TEST(Evaluator, theCallersTextMayComeBackWithoutItsOuterPair)
{
    Bench bench;
    std::string_view equation = "(X+1)";
    EXPECT_EQ(bench.evaluator.convert(equation, 2, 3), 3);
    EXPECT_EQ(equation, "X+1");
    equation = "()";
    EXPECT_EQ(bench.evaluator.convert(equation, 2, 3), 0);
    EXPECT_EQ(equation, "");
}

TEST(EvaluatorErrors, aDivisionByZeroSaysWhatAndWhereAndCountsAsZero)
{
    Bench bench;
    bench.conversionRow = 41;
    EXPECT_EQ(bench.valueAnswering("7+X/(B-B)", {Answer::ok}), 7);
    EXPECT_EQ(bench.said(),
              "Division by Zero! \r\nThis was caused by (B-B)\r\nLine is 41\r\nOK to continue, Cancel to stop");
    EXPECT_EQ(bench.fakeUi.messages[0].title, "Tarvelint");
    EXPECT_EQ(bench.fakeUi.messages[0].buttons, Buttons::okCancel);
    EXPECT_EQ(bench.fakeUi.messages[0].icon, Icon::none);
    EXPECT_FALSE(bench.stopFlag);
}

TEST(EvaluatorErrors, aDivisionByMinusZeroIsOneByZero)
{
    Bench bench;
    bench.valueAnswering("1/(0*(0-1))", {Answer::ok});
    EXPECT_EQ(bench.said().substr(0, 17), "Division by Zero!");
}

TEST(EvaluatorErrors, theDivisorIsAllThatStandsToTheRight)
{
    Bench bench;
    bench.valueAnswering("8/0/2", {Answer::ok}); // 8/(0/2)
    EXPECT_NE(bench.said().find("This was caused by 0/2\r\n"), std::string::npos);
}

TEST(Evaluator, whatIsNotEvaluatedKeepsItsOuterPair)
{
    Bench bench(false);
    std::string_view equation = "(X+1)";
    EXPECT_EQ(bench.evaluator.convert(equation, 99999, 3), 99999);
    EXPECT_EQ(equation, "(X+1)");
    bench.stopFlag = true;
    EXPECT_EQ(bench.evaluator.convert(equation, 99999, 3), 0) << "the stop flag comes before the missing reading";
    EXPECT_EQ(equation, "(X+1)");
}

TEST(EvaluatorErrors, zeroToAFractionIsNone)
{
    Bench bench;
    EXPECT_EQ(bench.value("0^0.5"), 0);
}

TEST(EvaluatorErrors, aNegativeNumberToAFractionSaysSo)
{
    Bench bench;
    EXPECT_EQ(bench.valueAnswering("(0-2)^0.5", {Answer::ok}), 0);
    EXPECT_EQ(bench.said(), "Invalid power operation! \r\n-2^0.5\r\nLine is 0\r\nOK to continue, Cancel to stop");
    EXPECT_EQ(bench.valueAnswering("(0-0.5)^1.23", {Answer::ok}), 0);
    EXPECT_EQ(bench.said(), "Invalid power operation! \r\n-0.5^1.23\r\nLine is 0\r\nOK to continue, Cancel to stop");
    EXPECT_EQ(bench.valueAnswering("((0-2)^(1/2-1))", {Answer::ok}), 0);
    EXPECT_EQ(bench.said(), "Invalid power operation! \r\n-2^-0.5\r\nLine is 0\r\nOK to continue, Cancel to stop");
}

TEST(EvaluatorErrors, wholePowersOfNegativeNumbersAreNone)
{
    Bench bench;
    EXPECT_EQ(bench.value("(0-2)^2"), 4);
    EXPECT_EQ(bench.value("(0-2)^3"), -8);
    EXPECT_EQ(bench.value("((0-2)^(0-1))"), -0.5);
    EXPECT_EQ(bench.value("0^0"), 1);
    EXPECT_EQ(bench.value("0^(0-1)"), std::numeric_limits<double>::infinity());
}

TEST(EvaluatorErrors, withALowBaselineTheDefaultEquationAsksForEveryReadingAboveIt)
{
    Bench bench(false);
    EXPECT_EQ(bench.valueAnswering(kDefault, {Answer::ok}, 5, 3), 0);
    EXPECT_EQ(bench.fakeUi.messages.size(), 1U);
}

TEST(EvaluatorStop, cancelSetsTheFlagAndEveryLaterCallIsZero)
{
    Bench bench;
    bench.valueAnswering("1/0", {Answer::cancel});
    EXPECT_TRUE(bench.stopFlag);
    EXPECT_EQ(bench.value("X"), 0);
    EXPECT_EQ(bench.value("1/0"), 0); // evaluates nothing, so asks nothing
    EXPECT_EQ(bench.fakeUi.messages.size(), 1U);
    bench.stopFlag = false;
    EXPECT_EQ(bench.value("X"), 2);
}

TEST(EvaluatorStop, afterCancelOnTheLeftTheRightSideIsNotEvaluated)
{
    Bench bench;
    EXPECT_EQ(bench.valueAnswering("(1/0)+5", {Answer::cancel}), 0); // 0 + 0
    EXPECT_EQ(bench.valueAnswering("(4+1/0)-5", {Answer::cancel}), 0) << "the flag is still set";
    bench.stopFlag = false;
    EXPECT_EQ(bench.valueAnswering("(4+1/0)-5", {Answer::cancel}), 4); // 4 + 0, minus 0
}

TEST(EvaluatorStop, afterCancelOnTheRightWhatWasBegunIsFinished)
{
    Bench bench;
    EXPECT_EQ(bench.valueAnswering("5+(3+1/0)", {Answer::cancel}), 8);
}

TEST(EvaluatorStop, aDivisionByTheOperandThatWasLeftOutAsksOnceMore)
{
    Bench bench;
    EXPECT_EQ(bench.valueAnswering("(1/0)/5", {Answer::cancel, Answer::ok}), 0);
    EXPECT_EQ(bench.fakeUi.messages.size(), 2U);
    EXPECT_NE(bench.said(1).find("This was caused by 5\r\n"), std::string::npos);
    EXPECT_TRUE(bench.stopFlag);
}

TEST(EvaluatorLongTexts, chainsAndNestsAsLongAsATextMayBeEndInAValue)
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

    EXPECT_EQ(bench.value(std::string(10000, '(') + "X" + std::string(10000, ')')), 0);
    EXPECT_EQ(bench.value(std::string(32000, '(')), 0);
    EXPECT_EQ(bench.value(std::string(32000, '9')), std::numeric_limits<double>::infinity());
}

TEST(Chop, multipliesNumbersAndLettersThatStandTogether)
{
    EXPECT_EQ(Evaluator::chop("2X", 5, 7), 10);
    EXPECT_EQ(Evaluator::chop("0.5B", 5, 7), 3.5);
    EXPECT_EQ(Evaluator::chop("XB", 5, 7), 35);
    EXPECT_EQ(Evaluator::chop("xb2", 5, 7), 70);
    EXPECT_EQ(Evaluator::chop("3", 5, 7), 3);
    EXPECT_EQ(Evaluator::chop("2X3B4", 5, 7), 840);
    EXPECT_EQ(Evaluator::chop("B", 5, 7), 7);
    EXPECT_EQ(Evaluator::chop("x", 5, 7), 5);
    EXPECT_EQ(Evaluator::chop("", 5, 7), 0);
    EXPECT_EQ(Evaluator::chop("X ", 5, 7), 0); // what is no number is 0
    EXPECT_EQ(Evaluator::chop("2XY", 5, 7), 0);
}

} // namespace
} // namespace tarvelint::test
