// SPDX-License-Identifier: MIT
#include "view/scrolling.h"

#include "data/numbers.h"
#include "support/test_window.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>

namespace tarvelint {

void PrintTo(const ScrollRange& range, std::ostream* out)
{
    *out << "Max " << range.Max << ", SmallChange " << range.SmallChange << ", LargeChange " << range.LargeChange;
}

} // namespace tarvelint

namespace tarvelint::test {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const std::string kNote = "long record";

/// A record of so many rows in an area of `width` units, at zoom 1 and with the bar already fitted when it fits.
struct Scrolled : TestWindow {
    Scrolling scrolling{*this};

    explicit Scrolled(std::int32_t lines, float width = 100)
    {
        record.allocate(1, lines);
        fakeUi.surfaces[0].width = width;
        fakeUi.surfaces[1].width = 7; // never looked at
    }
    void currentPoint(std::int32_t row)
    {
        view.Turbo = true;
        view.markRow = row;
    }
    [[nodiscard]] ScrollRange range() const
    {
        return {view.HScroll1.Max, view.HScroll1.SmallChange, view.HScroll1.LargeChange};
    }
    [[nodiscard]] bool panelSaysLong() const { return text(Control::statusPanel2).find(kNote) != std::string::npos; }

    /// How many times the focus had been given when each call came.
    std::vector<std::size_t> focusBefore;
    void redraw(int index, bool clear) override
    {
        TestWindow::redraw(index, clear);
        focusBefore.push_back(fakeUi.focused.size());
    }
};

// ---- range

TEST(ScrollRange, isEmptyWhenEverythingFits)
{
    EXPECT_EQ(scrollRange16(100, 1, 99), (ScrollRange{0, 1, 1}));
    EXPECT_EQ(scrollRange16(100, 1, 100), (ScrollRange{0, 1, 1}));
    EXPECT_EQ(scrollRange16(100, 8, 12), (ScrollRange{0, 1, 1})); // 96 units
    EXPECT_EQ(scrollRange16(100, 1, 0), (ScrollRange{0, 1, 1}));
}

TEST(ScrollRange, isTheRowsThatDoNotFitLessOneWithStepsOfAScreenAndATenthOfIt)
{
    EXPECT_EQ(scrollRange16(100, 1, 1000), (ScrollRange{899, 10, 100}));
    EXPECT_EQ(scrollRange16(100, 4, 1000), (ScrollRange{974, 2, 25})); // 2.5 to 2
}

TEST(ScrollRange, roundsHalvesToEven)
{
    EXPECT_EQ(scrollRange16(101, 2, 1000), (ScrollRange{948, 5, 50})); // 1000 - 50.5 - 1 = 948.5; 50.5
    EXPECT_EQ(scrollRange16(101, 2, 1001), (ScrollRange{950, 5, 50})); // 949.5
    EXPECT_EQ(scrollRange16(35, 1, 1000)->SmallChange, 4);             // 3.5
    EXPECT_EQ(scrollRange16(45, 1, 1000)->SmallChange, 4);             // 4.5
}

TEST(ScrollRange, theSmallStepIsATenthOfTheRoundedScreen)
{
    EXPECT_EQ(scrollRange16(100, 8, 1000)->SmallChange, 1);            // 12.5 is 12, 1.2 is 1
    EXPECT_EQ(scrollRange16(5, 1, 1000), (ScrollRange{994, 0, 5}));    // 0.5 to 0
    EXPECT_EQ(scrollRange16(11, 2, 1000), (ScrollRange{994, 1, 6}));   // 993.5; 5.5 is 6, 0.6 is 1
    EXPECT_EQ(scrollRange16(201, 8, 1000), (ScrollRange{974, 2, 25})); // 25.125 is 25, 2.5 is 2; 2.5125 would be 3
}

TEST(ScrollRange, maxIsNeverNegative)
{
    EXPECT_EQ(scrollRange16(99, 2, 50)->Max, 0);   // 50 - 49.5 - 1 = -0.5
    EXPECT_EQ(scrollRange16(799, 8, 100)->Max, 0); // 100 - 99.875 - 1 = -0.875, rounded -1
}

TEST(ScrollRange, overflowsExactlyWhenANumberDoesNotFit16Bits)
{
    EXPECT_EQ(scrollRange16(100, 1, 32868)->Max, 32767);
    EXPECT_EQ(scrollRange16(100, 1, 32869), std::nullopt);
    EXPECT_EQ(scrollRange16(101, 2, 32818)->Max, 32766);   // 32766.5
    EXPECT_EQ(scrollRange16(101, 2, 32819), std::nullopt); // 32767.5 rounds to 32768
    EXPECT_EQ(scrollRange16(32767, 1, 40000)->LargeChange, 32767);
    EXPECT_EQ(scrollRange16(32768, 1, 40000), std::nullopt);
}

TEST(ScrollRange, in32BitsReachesEveryRow)
{
    EXPECT_EQ(scrollRange32(100, 1, 40000), (ScrollRange{39899, 10, 100}));
    EXPECT_EQ(scrollRange32(100, 8, 2'000'000'000), (ScrollRange{1'999'999'986, 1, 12})); // ...986.5
    EXPECT_EQ(scrollRange32(100, 8, 12), (ScrollRange{0, 1, 1}));
}

TEST(ValueCentring, bringsARowToTheMiddleWithinTheBar)
{
    EXPECT_EQ(valueCentring(10, 100, 1, 5000), 0);
    EXPECT_EQ(valueCentring(50, 100, 1, 5000), 0);
    EXPECT_EQ(valueCentring(51, 100, 1, 5000), 1);
    EXPECT_EQ(valueCentring(1000, 100, 1, 5000), 950);
    EXPECT_EQ(valueCentring(1000, 100, 1, 940), 940);
    EXPECT_EQ(valueCentring(1000, 100, 4, 5000), 988); // 987.5
    EXPECT_EQ(valueCentring(1000, 101, 1, 5000), 950); // 949.5
    EXPECT_EQ(valueCentring(1001, 101, 1, 5000), 950); // 950.5
}

// ---- scrollset

TEST(Scrollset, aRecordThatFitsHasNothingToScroll)
{
    Scrolled window(100);
    window.view.HScroll1 = {.Min = 0, .Max = 500, .Value = 20, .SmallChange = 9, .LargeChange = 90};
    window.scrolling.scrollset();
    EXPECT_EQ(window.range(), (ScrollRange{0, 1, 1}));
    EXPECT_EQ(window.view.HScroll1.Value, 0);
    EXPECT_THAT(window.calls, IsEmpty()) << "what fits the bar draws afterwards";
}

TEST(Scrollset, keepsTheFirstRowWhereItCan)
{
    Scrolled window(1000);
    window.view.HScroll1 = {.Min = 0, .Max = 999, .Value = 300, .SmallChange = 1, .LargeChange = 1};
    window.scrolling.scrollset();
    EXPECT_EQ(window.range(), (ScrollRange{899, 10, 100}));
    EXPECT_EQ(window.view.HScroll1.Value, 300);
    EXPECT_THAT(window.calls, IsEmpty());
}

TEST(Scrollset, clipsTheFirstRowToTheNewRange)
{
    Scrolled window(1000);
    window.view.HScroll1 = {.Min = 0, .Max = 999, .Value = 950, .SmallChange = 1, .LargeChange = 1};
    window.scrolling.scrollset();
    EXPECT_EQ(window.view.HScroll1.Value, 899);
}

TEST(Scrollset, centresTheCurrentPointInTurbo)
{
    const auto valueFor = [](std::int32_t row) {
        Scrolled window(1200);
        window.view.HScroll1.Value = 7;
        window.currentPoint(row);
        window.scrolling.scrollset();
        return window.view.HScroll1.Value;
    };
    EXPECT_EQ(valueFor(10), 0);
    EXPECT_EQ(valueFor(0), 0);
    EXPECT_EQ(valueFor(1000), 950);
    EXPECT_EQ(valueFor(1199), 1099); // Max = 1200 - 100 - 1
}

TEST(Scrollset, doesNotCentreWithoutTurboOrWithoutACurrentPoint)
{
    Scrolled window(1200);
    window.view.HScroll1.Value = 7;
    window.view.markRow = 1000;
    window.scrolling.scrollset();
    EXPECT_EQ(window.view.HScroll1.Value, 7);
    window.currentPoint(-1);
    window.scrolling.scrollset();
    EXPECT_EQ(window.view.HScroll1.Value, 7);
}

TEST(Scrollset, anOverflowChangesNothing)
{
    Scrolled window(40000);
    window.view.HScroll1 = {.Min = 0, .Max = 500, .Value = 20, .SmallChange = 9, .LargeChange = 90};
    EXPECT_THROW(window.scrolling.scrollset(), NumericOverflow);
    EXPECT_EQ(window.range(), (ScrollRange{500, 9, 90}));
    EXPECT_EQ(window.view.HScroll1.Value, 20);
    EXPECT_FALSE(window.view.longRecord);
}

// ---- long records

TEST(LongRecord, scrollsToItsLastRowsIn32Bits)
{
    Scrolled window(40000);
    window.scrolling.fitScrollBar();
    EXPECT_TRUE(window.view.longRecord);
    EXPECT_TRUE(window.panelSaysLong());
    EXPECT_EQ(window.range(), (ScrollRange{39899, 10, 100}));
    window.setScrollValue(35000);
    EXPECT_EQ(window.view.HScroll1.Value, 35000);
}

TEST(LongRecord, centresAPointBeyond16Bits)
{
    Scrolled window(40000);
    window.currentPoint(39000);
    window.scrolling.fitScrollBar();
    EXPECT_EQ(window.view.HScroll1.Value, 38950);
}

TEST(LongRecord, isLeftWhenTheRecordFits16BitsAgain)
{
    Scrolled window(40000, 8000);
    window.view.zoomFactor = 2; // Max 40000 - 4000 - 1
    window.scrolling.fitScrollBar();
    window.setScrollValue(35999);
    EXPECT_TRUE(window.view.longRecord);
    window.scrolling.mnuViewZoomOut_Click();
    EXPECT_FALSE(window.view.longRecord);
    EXPECT_FALSE(window.panelSaysLong());
    EXPECT_EQ(window.range(), (ScrollRange{31999, 800, 8000}));
    EXPECT_EQ(window.view.HScroll1.Value, 31999);
}

TEST(LongRecord, isEnteredByZoomingIn)
{
    Scrolled window(40000, 8000);
    window.scrolling.fitScrollBar();
    EXPECT_FALSE(window.view.longRecord);
    window.scrolling.mnuViewZoomIn_Click();
    EXPECT_TRUE(window.view.longRecord);
    EXPECT_EQ(window.view.HScroll1.Max, 35999);
}

// ---- zoom

TEST(Zoom, inDoublesAndOutHalves)
{
    Scrolled window(1000);
    for (const int expected : {2, 4, 8}) {
        window.scrolling.mnuViewZoomIn_Click();
        EXPECT_EQ(window.view.zoomFactor, expected);
    }
    for (const int expected : {4, 2, 1}) {
        window.scrolling.mnuViewZoomOut_Click();
        EXPECT_EQ(window.view.zoomFactor, expected);
    }
}

TEST(Zoom, inFrom4DisablesZoomIn)
{
    Scrolled window(1000);
    window.view.zoomFactor = 2;
    window.setEnabled(Control::mnuViewZoomOut, false);
    window.scrolling.mnuViewZoomIn_Click();
    EXPECT_TRUE(window.isEnabled(Control::mnuViewZoomIn));
    EXPECT_TRUE(window.isEnabled(Control::mnuViewZoomOut));
    window.scrolling.mnuViewZoomIn_Click();
    EXPECT_FALSE(window.isEnabled(Control::mnuViewZoomIn));
    EXPECT_TRUE(window.isEnabled(Control::mnuViewZoomOut));
}

TEST(Zoom, outFrom2DisablesZoomOut)
{
    Scrolled window(1000);
    window.view.zoomFactor = 4;
    window.setEnabled(Control::mnuViewZoomIn, false);
    window.scrolling.mnuViewZoomOut_Click();
    EXPECT_TRUE(window.isEnabled(Control::mnuViewZoomOut));
    EXPECT_TRUE(window.isEnabled(Control::mnuViewZoomIn));
    window.scrolling.mnuViewZoomOut_Click();
    EXPECT_FALSE(window.isEnabled(Control::mnuViewZoomOut));
    EXPECT_TRUE(window.isEnabled(Control::mnuViewZoomIn));
}

TEST(Zoom, endsAt1And8)
{
    Scrolled window(1000);
    window.scrolling.mnuViewZoomOut_Click();
    EXPECT_EQ(window.view.zoomFactor, 1);
    window.view.zoomFactor = 8;
    window.scrolling.mnuViewZoomIn_Click();
    EXPECT_EQ(window.view.zoomFactor, 8);
    EXPECT_THAT(window.calls, IsEmpty());
}

TEST(Zoom, theLevelCountsHalvingsFromTheFirstZoomCommandOn)
{
    Scrolled window(1000);
    window.view.zoomFactor = 4; // from the settings
    EXPECT_EQ(window.view.zoomLevel, 0);
    window.scrolling.mnuViewZoomIn_Click();
    EXPECT_EQ(window.view.zoomLevel, 3);
    window.scrolling.mnuViewZoomOut_Click();
    EXPECT_EQ(window.view.zoomLevel, 2);
    window.scrolling.mnuViewZoomOut_Click();
    EXPECT_EQ(window.view.zoomLevel, 1);
    window.scrolling.mnuViewZoomOut_Click();
    EXPECT_EQ(window.view.zoomLevel, 0);
}

TEST(Zoom, fitsTheBarKeepsTheFirstRowAndDrawsBothAreasAfresh)
{
    Scrolled window(1000);
    window.scrolling.fitScrollBar();
    window.view.HScroll1.Value = 300;
    window.scrolling.mnuViewZoomIn_Click();
    EXPECT_EQ(window.range(), (ScrollRange{949, 5, 50}));
    EXPECT_EQ(window.view.HScroll1.Value, 300);
    EXPECT_THAT(window.calls, ElementsAre("redraw 0 True", "redraw 1 True"));
    window.calls.clear();
    window.view.HScroll1.Value = 940;
    window.scrolling.mnuViewZoomOut_Click();
    EXPECT_EQ(window.view.HScroll1.Value, 899);
    EXPECT_THAT(window.calls, ElementsAre("redraw 0 True", "redraw 1 True"));
}

TEST(Zoom, withACurrentPointDrawsEachAreaOnceAndLeavesTheFocusOnThePlot)
{
    Scrolled window(1200);
    window.scrolling.fitScrollBar();
    window.currentPoint(1000);
    window.calls.clear();
    window.fakeUi.focused.clear();
    window.scrolling.mnuViewZoomIn_Click();
    EXPECT_EQ(window.view.HScroll1.Value, 975); // 1000 - 100 / (2 x 2)
    EXPECT_THAT(window.calls, ElementsAre("redraw 0 True", "redraw 1 True"));
    EXPECT_THAT(window.fakeUi.focused, ElementsAre(Control::Picture1_0));
}

// ---- events

TEST(ScrollEvents, aChangeDrawsTheCompanionThenTheMainAreaWithTheFocus)
{
    Scrolled window(1000);
    window.HScroll1_Change();
    EXPECT_THAT(window.calls, ElementsAre("redraw 1 True", "redraw 0 True"));
    EXPECT_THAT(window.fakeUi.focused, ElementsAre(Control::Picture1_0));
    EXPECT_THAT(window.focusBefore, ElementsAre(0U, 1U));
}

TEST(ScrollEvents, aChangeLeavesADisabledMainAreaAlone)
{
    Scrolled window(1000);
    window.setEnabled(Control::Picture1_0, false);
    window.HScroll1_Change();
    EXPECT_THAT(window.calls, ElementsAre("redraw 1 True"));
    EXPECT_THAT(window.fakeUi.focused, IsEmpty());
}

TEST(ScrollEvents, draggingTheThumbDrawsBothAreasFromTheRowUnderIt)
{
    Scrolled window(1000);
    window.scrolling.fitScrollBar();
    window.scrolling.HScroll1_Scroll(450);
    EXPECT_EQ(window.view.HScroll1.Value, 450);
    EXPECT_THAT(window.calls, ElementsAre("redraw 0 True", "redraw 1 True"));
    EXPECT_THAT(window.fakeUi.focused, IsEmpty());
}

TEST(ScrollEvents, theThumbStaysWithinTheBar)
{
    Scrolled window(1000);
    window.scrolling.fitScrollBar();
    window.scrolling.HScroll1_Scroll(5000);
    EXPECT_EQ(window.view.HScroll1.Value, 899);
    window.scrolling.HScroll1_Scroll(-1);
    EXPECT_EQ(window.view.HScroll1.Value, 0);
}

TEST(ScrollEvents, theBarNeverKeepsTheFocus)
{
    Scrolled window(1000);
    window.scrolling.HScroll1_GotFocus();
    EXPECT_THAT(window.fakeUi.focused, ElementsAre(Control::Picture1_0));
}

TEST(ScrollEvents, refreshDrawsBothAreasWithoutErasing)
{
    Scrolled window(1000);
    window.scrolling.mnuViewRefresh_Click();
    EXPECT_THAT(window.calls, ElementsAre("redraw 0 False", "redraw 1 False"));
}

} // namespace

} // namespace tarvelint::test
