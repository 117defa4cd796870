// SPDX-License-Identifier: MIT
#include "equation/fault_text.h"

#include <gtest/gtest.h>

namespace tarvelint::test {
namespace {

TEST(FaultText, saysWhatCouldNotBeComputed)
{
    const Fault division{FaultKind::divisionByZero, 7, 0, "(B-B)"};
    EXPECT_EQ(faultHeading(division), "Division by Zero! ");
    EXPECT_EQ(faultCause(division), "This was caused by (B-B)");
    const Fault power{FaultKind::power, -2, 0.5, {}};
    EXPECT_EQ(faultHeading(power), "Invalid power operation! ");
    EXPECT_EQ(faultCause(power), "-2^0.5");
    EXPECT_EQ(faultCause({FaultKind::power, -0.5, 1.23, {}}), "-0.5^1.23");
}

TEST(FaultPrompt, addsTheRowAndTheQuestion)
{
    EXPECT_EQ(faultPrompt({FaultKind::divisionByZero, 7, 0, "0/2"}, 41),
              "Division by Zero! \r\nThis was caused by 0/2\r\nLine is 41\r\nOK to continue, Cancel to stop");
    EXPECT_EQ(faultPrompt({FaultKind::power, -2, -0.5, {}}, 0),
              "Invalid power operation! \r\n-2^-0.5\r\nLine is 0\r\nOK to continue, Cancel to stop");
}

} // namespace
} // namespace tarvelint::test
