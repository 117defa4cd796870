// SPDX-License-Identifier: MIT
#include "app/captions.h"

#include "app/shell_window.h"

#include <gtest/gtest.h>

#include <vector>

namespace tarvelint::test {
namespace {

using Captions = std::vector<std::string>;

TEST(UniqueCaption, aCaptionNobodyBearsIsTaken)
{
    EXPECT_EQ(uniqueCaption("Tarvelint", Captions{}, ","), "Tarvelint");
    EXPECT_EQ(uniqueCaption("Tarvelint: /data/a.csv", Captions{"Tarvelint"}, ","), "Tarvelint: /data/a.csv");
}

TEST(UniqueCaption, aSecondWindowOfOneFileIsNumberedAndLosesThePath)
{
    EXPECT_EQ(uniqueCaption("Tarvelint: /a.csv", Captions{"Tarvelint: /a.csv"}, ","), "Tarvelint 1");
}

TEST(UniqueCaption, theNumberGrowsUntilOneIsFreeWhateverTheOrderOfTheForms)
{
    const Captions forms{"Tarvelint 2", "Tarvelint", "Options", "Tarvelint 1"};
    EXPECT_EQ(uniqueCaption("Tarvelint", forms, ","), "Tarvelint 3");
}

TEST(UniqueCaption, aFreeNumberInBetweenIsTaken)
{
    EXPECT_EQ(uniqueCaption("Tarvelint", Captions{"Tarvelint", "Tarvelint 2"}, ","), "Tarvelint 1");
}

TEST(UniqueCaption, captionsAreComparedExactly)
{
    EXPECT_EQ(uniqueCaption("Tarvelint", Captions{"tarvelint", "Tarvelint "}, ","), "Tarvelint");
}

TEST(UniqueCaption, dialogsCountAsForms)
{
    EXPECT_EQ(uniqueCaption("Save:", Captions{"Save:"}, ","), "Tarvelint 1");
}

TEST(UniqueCaption, theNumberIsGroupedAsTheSystemGroups)
{
    Captions forms{"Tarvelint"};
    for (int k = 1; k < 1000; ++k) forms.push_back("Tarvelint " + std::to_string(k));
    EXPECT_EQ(uniqueCaption("Tarvelint", forms, ","), "Tarvelint 1,000");
    EXPECT_EQ(uniqueCaption("Tarvelint", forms, ""), "Tarvelint 1000");
}

TEST(SetCaption, givesTheCaptionToTheWindowAndBackAsTaken)
{
    TestWindow window;
    FakeApplication application;
    application.captions = {"Tarvelint: /data/run.csv"};
    std::string caption = "Tarvelint: /data/run.csv";
    setcaption(window, application, caption);
    EXPECT_EQ(caption, "Tarvelint 1");
    EXPECT_EQ(window.caption(), "Tarvelint 1");
    caption = "Tarvelint: /data/other.csv";
    setcaption(window, application, caption);
    EXPECT_EQ(caption, "Tarvelint: /data/other.csv");
    EXPECT_EQ(window.caption(), caption);
}

} // namespace
} // namespace tarvelint::test
