// SPDX-License-Identifier: MIT
#include "app/handler_boundary.h"

#include "data/numbers.h"
#include "support/test_window.h"
#include "window/command_failure.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <new>

namespace tarvelint::test {
namespace {

using testing::HasSubstr;

/// A window at rest, and the one door into it.
class Door : public TestWindow {
public:
    HandlerBoundary boundary{*this};

    Door()
    {
        setPointer(Pointer::cross);
        setStatus(1, "Mode: select data");
    }
    /// Runs a command that shows that it is busy and then throws.
    template <class Failure>
    void failWith(const Failure& failure)
    {
        boundary.command([&] {
            setPointer(Pointer::hourglass);
            setStatus(1, "reading data");
            throw failure;
        });
    }
    [[nodiscard]] bool isAtRest() const
    {
        return pointer() == Pointer::cross && text(Control::statusPanel1) == "Mode: select data" && !boundary.isBusy();
    }
};

/// The one box a failure ends in, after a check of everything the boxes have in common.
template <class Failure>
Message boxFor(const Failure& failure)
{
    Door window;
    window.failWith(failure);
    EXPECT_TRUE(window.isAtRest());
    EXPECT_EQ(window.fakeUi.messages.size(), 1U);
    if (window.fakeUi.messages.empty()) return {};
    EXPECT_EQ(window.fakeUi.messages.front().buttons, Buttons::ok);
    EXPECT_EQ(window.fakeUi.messages.front().icon, Icon::critical);
    return window.fakeUi.messages.front();
}

TEST(HandlerBoundaryCommand, runsAndLeavesWhatItShowed)
{
    Door window;
    window.boundary.command([&] {
        EXPECT_TRUE(window.boundary.isBusy());
        window.setStatus(1, "Mode: one-click baseline");
        window.setPointer(Pointer::northSouth);
    });
    EXPECT_FALSE(window.boundary.isBusy());
    EXPECT_EQ(window.text(Control::statusPanel1), "Mode: one-click baseline");
    EXPECT_EQ(window.pointer(), Pointer::northSouth);
    EXPECT_TRUE(window.fakeUi.messages.empty());
}

TEST(HandlerBoundaryCommand, isDroppedAndNotQueuedWhileAnotherRuns)
{
    Door window;
    int runs = 0;
    window.boundary.command([&] { window.boundary.command([&] { ++runs; }); });
    EXPECT_EQ(runs, 0);
    window.boundary.command([&] { ++runs; });
    EXPECT_EQ(runs, 1);
}

TEST(HandlerBoundaryCommand, aDroppedOneLeavesTheWindowBusy)
{
    Door window;
    window.boundary.command([&] {
        window.boundary.command([] {});
        EXPECT_TRUE(window.boundary.isBusy());
    });
}

/// The two kinds of entry that are always taken.
class AlwaysTaken : public testing::TestWithParam<void (HandlerBoundary::*)(const std::function<void()>&)> {};
INSTANTIATE_TEST_SUITE_P(HandlerBoundary, AlwaysTaken,
                         testing::Values(&HandlerBoundary::answer, &HandlerBoundary::record),
                         [](const auto& kind) { return kind.index == 0 ? "answer" : "record"; });

TEST_P(AlwaysTaken, isTakenInTheMiddleOfACommandWhichStaysTheOneThatRuns)
{
    Door window;
    int taken = 0;
    window.boundary.command([&] {
        (window.boundary.*GetParam())([&] { ++taken; });
        EXPECT_TRUE(window.boundary.isBusy());
    });
    EXPECT_EQ(taken, 1);
}

TEST_P(AlwaysTaken, isNoCommandItself)
{
    Door window;
    int runs = 0;
    (window.boundary.*GetParam())([&] { window.boundary.command([&] { ++runs; }); });
    EXPECT_EQ(runs, 1);
}

TEST_P(AlwaysTaken, whatFailsInTheMiddleOfACommandIsShownAndTheCommandGoesOn)
{
    Door window;
    bool wentOn = false;
    window.boundary.command([&] {
        window.setStatus(1, "reading data");
        (window.boundary.*GetParam())([] { throw CommandFailure("no such row"); });
        EXPECT_TRUE(window.boundary.isBusy());
        EXPECT_EQ(window.text(Control::statusPanel1), "reading data");
        wentOn = true;
    });
    EXPECT_TRUE(wentOn);
    ASSERT_EQ(window.fakeUi.messages.size(), 1U);
    EXPECT_EQ(window.fakeUi.messages.front().text, "no such row");
}

TEST(HandlerBoundaryFailure, aFormatFaultKeepsItsTextAndTitle)
{
    const Message box = boxFor(FormatFault("This file seems to be corrupt!", "Error reading file:"));
    EXPECT_EQ(box.text, "This file seems to be corrupt!");
    EXPECT_EQ(box.title, "Error reading file:");
}

TEST(HandlerBoundaryFailure, aFormatFaultWithoutTitleBearsTheApplications)
{
    const Message box = boxFor(FormatFault("No column number in header!"));
    EXPECT_EQ(box.text, "No column number in header!");
    EXPECT_EQ(box.title, "Tarvelint");
}

TEST(HandlerBoundaryFailure, anOverflowSaysWhichNumber)
{
    const Message box = boxFor(NumericOverflow("40000 does not fit 16 bits."));
    EXPECT_EQ(box.text, "40000 does not fit 16 bits.");
    EXPECT_EQ(box.title, "Tarvelint");
}

TEST(HandlerBoundaryFailure, lackOfMemorySaysWhatToDo)
{
    const Message box = boxFor(std::bad_alloc());
    EXPECT_EQ(box.text, "There is not enough memory for this. Close other windows or programs and try again.");
    EXPECT_EQ(box.title, "Tarvelint");
}

TEST(HandlerBoundaryFailure, anyOtherIsShownInItsOwnWords)
{
    for (const Message& box : {boxFor(CommandFailure("There is no row 7.")),
                               boxFor(FileFailure(FileFailure::Kind::other, "There is no row 7.")),
                               boxFor(std::runtime_error("There is no row 7."))}) {
        EXPECT_EQ(box.text, "There is no row 7.");
        EXPECT_EQ(box.title, "Tarvelint");
    }
}

TEST(HandlerBoundaryFailure, theWindowTakesCommandsAgainAfterwards)
{
    Door window;
    window.failWith(CommandFailure("no"));
    bool ran = false;
    window.boundary.command([&] { ran = true; });
    EXPECT_TRUE(ran);
}

TEST(HandlerBoundaryFailure, aWindowThatIsClosingEndsItsCommandWithoutAWord)
{
    Door window;
    window.failWith(WindowClosing{});
    EXPECT_TRUE(window.isAtRest());
    EXPECT_TRUE(window.fakeUi.messages.empty());
}

} // namespace
} // namespace tarvelint::test
