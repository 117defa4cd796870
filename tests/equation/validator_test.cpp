// SPDX-License-Identifier: MIT
#include "equation/validator.h"

#include <gtest/gtest.h>

namespace tarvelint::test {
namespace {

std::string repaired(std::string typed)
{
    const std::string result = evaluate(typed);
    EXPECT_EQ(result, typed) << "the text handed in is repaired too";
    return result;
}

TEST(Validator, writesOutImpliedMultiplications)
{
    EXPECT_EQ(repaired("2X"), "2*X");
    EXPECT_EQ(repaired("XB"), "X*B");
    EXPECT_EQ(repaired("X2"), "X*2");
    EXPECT_EQ(repaired("xb"), "x*b");
    EXPECT_EQ(repaired("2(X+1)"), "2*(X+1)");
    EXPECT_EQ(repaired("X(B)"), "X*(B)");
    EXPECT_EQ(repaired("(X+1)(B-1)"), "(X+1)*(B-1)");
    EXPECT_EQ(repaired("(X)2"), "(X)*2");
    EXPECT_EQ(repaired("(X)B"), "(X)*B");
    EXPECT_EQ(repaired("2.5X.5"), "2.5*X*.5");
}

TEST(Validator, deletesWhatIsNotOfTheAlphabet)
{
    EXPECT_EQ(repaired("X + B"), "X+B");
    EXPECT_EQ(repaired("X "), "X");
    EXPECT_EQ(repaired("a1c.5\t"), "1.5");
    EXPECT_EQ(repaired("\x01X\xC3\xA9+\n1"), "X+1");
    EXPECT_EQ(repaired("Y"), "");
}

TEST(Validator, aDeletedCharacterLeavesWhatStoodBeforeItInForce)
{
    EXPECT_EQ(repaired("2 X"), "2*X");
    EXPECT_EQ(repaired("X 2"), "X*2");
}

TEST(Validator, deletesOneOperatorOrParenthesisBeforeAClosingOne)
{
    EXPECT_EQ(repaired("(X+)*2"), "(X)*2");
    EXPECT_EQ(repaired("(X+-)"), "(X+)"); // one character only
    EXPECT_EQ(repaired("X()"), "X*)");    // the "*" was written before the "(" came to go
    EXPECT_EQ(repaired("(2)"), "(2)");
}

TEST(Validator, afterThatTheClosingParenthesisEndsAnOperand)
{
    EXPECT_EQ(repaired("(X+)2"), "(X)*2");
}

TEST(Validator, keepsWhatItHasNoRuleFor)
{
    EXPECT_EQ(repaired("119*((B/X)-1)^1.23"), "119*((B/X)-1)^1.23");
    EXPECT_EQ(repaired("1.5.2"), "1.5.2");
    EXPECT_EQ(repaired("X*-2"), "X*-2");
    EXPECT_EQ(repaired("((X"), "((X");
    EXPECT_EQ(repaired("X)+B"), "X)+B");
}

TEST(Validator, anEmptyEquationAndOneThatAClosingParenthesisWouldOpenStayAsTyped)
{
    EXPECT_EQ(repaired(""), "");
    EXPECT_EQ(repaired(")X"), ")X");
    EXPECT_EQ(repaired(" )2 X"), " )2 X");
    EXPECT_EQ(repaired("()2X"), "()2X");
    EXPECT_EQ(repaired("+)2X"), "+)2X");
}

} // namespace
} // namespace tarvelint::test
