// SPDX-License-Identifier: MIT
#include "app/splash.h"

#include <gtest/gtest.h>

namespace tarvelint::test {
namespace {

TEST(Splash, bringsTheFirstDataWindowAtStartUpAndNoneAsTheAboutBox)
{
    EXPECT_TRUE(showsMainForm(""));
    EXPECT_FALSE(showsMainForm(kAboutTag));
}

} // namespace
} // namespace tarvelint::test
