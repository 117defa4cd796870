// SPDX-License-Identifier: MIT
#include "view/window_layout.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <string>

namespace tarvelint {

void PrintTo(const PixelRect& place, std::ostream* out)
{
    *out << place.width << " x " << place.height << " at " << place.left << ", " << place.top;
}

} // namespace tarvelint

namespace tarvelint::test {
namespace {

/// Where everything stands in an area of so many pixels below the menu bar, by name.
struct Placed {
    std::map<std::string, PlacedControl, std::less<>> controls;

    Placed(int width, int height)
    {
        for (const PlacedControl& control : placeControls(width, height))
            EXPECT_TRUE(controls.emplace(control.name, control).second) << control.name;
    }
    const PixelRect& at(const char* name) const { return controls.at(name).place; }
    int top(const char* name) const { return at(name).top; }
    int bottom(const char* name) const { return at(name).top + at(name).height; }
};

/// What an area of 1000 x 681 pixels, 15000 x 10215 twips, gives; it leaves 19 of 700 pixels to the menu bar.
const Placed kUsual(1000, 681);

TEST(WindowLayout, theFrameTakesTheWidthLess100TwipsAndTheHeightLess2800)
{
    EXPECT_EQ(kUsual.at("Frame1").width, 993);  // 14900 / 15 = 993.3
    EXPECT_EQ(kUsual.at("Frame1").height, 494); // 7415 / 15 = 494.3
}

TEST(WindowLayout, aPlotTakesTheWidthLess1000TwipsAndHalfOfTheHeightLess3940)
{
    EXPECT_EQ(kUsual.at("Picture1_0").width, 933);  // 14000 / 15 = 933.3
    EXPECT_EQ(kUsual.at("Picture1_0").height, 208); // (10215 - 3940) / 2 - 10 = 3127.5 twips, 208.5 pixels, to even
}

TEST(WindowLayout, aPlotReachesTheFramesRightEdge)
{
    EXPECT_EQ(kUsual.at("Picture1_0").left + kUsual.at("Picture1_0").width, kUsual.at("Frame1").width);
}

TEST(WindowLayout, bothPlotsAreAlikeAndTouchAndTheBarFollows)
{
    for (int height = 425; height < 460; ++height) {
        const Placed placed(700, height);
        const PixelRect& main = placed.at("Picture1_0");
        EXPECT_EQ(placed.at("Picture1_1"), (PixelRect{main.left, main.top + main.height, main.width, main.height}));
        EXPECT_EQ(placed.top("HScroll1"), placed.bottom("Picture1_1"));
        EXPECT_EQ(placed.at("HScroll1").width, main.width);
        EXPECT_EQ(placed.at("HScroll1").left, main.left);
    }
}

TEST(WindowLayout, theMainRangeKeepsToTopMiddleAndBottomOfItsPlot)
{
    EXPECT_EQ(kUsual.top("maxLabel0"), kUsual.top("Picture1_0"));
    EXPECT_EQ(kUsual.top("scaleBox0"), kUsual.top("Picture1_0") + (208 - 14) / 2);
    EXPECT_EQ(kUsual.bottom("minLabel0"), kUsual.bottom("Picture1_0"));
}

TEST(WindowLayout, theCompanionRangeIsTheMainOneAPlotLower)
{
    EXPECT_EQ(kUsual.top("maxLabel1"), kUsual.top("Picture1_1"));
    EXPECT_EQ(kUsual.top("minLabel1"), kUsual.top("minLabel0") + 208);
    EXPECT_EQ(kUsual.top("refCheck"), kUsual.top("scaleBox0") + 208);
}

TEST(WindowLayout, autoReferenceAndItsBoxFollowEach220Twips)
{
    const int reference = kUsual.top("refCheck"); // 220 twips are 14.67 pixels
    EXPECT_EQ(kUsual.top("scaleBox1"), reference - 15);
    EXPECT_EQ(kUsual.top("refBox"), reference + 15);
}

TEST(WindowLayout, threeRowsOfCuesFollowTheFrame280TwipsApart)
{
    // The frame ends at 1500 + 7415 = 8915 twips: rows at 8965, 9245 and 9525, that is 597.67, 616.33 and 635 pixels.
    for (const char* cue : {"Label3", "colLabel", "Label12", "inLabel"}) EXPECT_EQ(kUsual.top(cue), 598) << cue;
    for (const char* cue : {"Label6", "rowLabel", "Label4", "baseLabel"}) EXPECT_EQ(kUsual.top(cue), 616) << cue;
    for (const char* cue : {"Label5", "outLabel", "highBox", "dateTag", "dateLabel", "timeTag", "timeLabel"})
        EXPECT_EQ(kUsual.top(cue), 635) << cue;
}

TEST(WindowLayout, everythingElseStaysWhereItWasDesigned)
{
    const Placed small(520, 425);
    const Placed large(2560, 1421);
    for (const char* control : {"maxLabel0", "varList0", "varList1", "labelBox", "labelButton", "viewButton", "slLabel",
                                "rtLabel", "leftTag", "eqButton", "FormulaBox", "tbToolBar"}) {
        EXPECT_EQ(small.at(control).left, large.at(control).left) << control;
        EXPECT_EQ(small.top(control), large.top(control)) << control;
    }
    for (const char* control : {"inLabel", "timeLabel", "highBox"})
        EXPECT_EQ(small.at(control).left, large.at(control).left) << control;
}

TEST(WindowLayout, theListsAreBetween150And180PixelsWide)
{
    for (const char* list : {"varList0", "varList1"}) {
        EXPECT_GE(kUsual.at(list).width, 150);
        EXPECT_LE(kUsual.at(list).width, 180);
    }
}

TEST(WindowLayout, theBarsSpanTheWidthAtTopAndBottom)
{
    EXPECT_EQ(kUsual.at("tbToolBar").width, 1000);
    EXPECT_EQ(kUsual.top("tbToolBar"), 0);
    EXPECT_EQ(kUsual.at("sbStatusBar").width, 1000);
    EXPECT_EQ(kUsual.bottom("sbStatusBar"), 681);
}

TEST(WindowLayout, theLeastWindowHasPlotsOf80Pixels)
{
    const Placed least(kLeastWidth, kLeastHeight - 19);
    EXPECT_EQ(least.at("Picture1_0").height, 80); // (6375 - 3940) / 2 - 10 = 1207.5 twips, 80.5 pixels, to even
    EXPECT_EQ(least.at("Picture1_0").width, 453); // (7800 - 1000) / 15
}

TEST(WindowLayout, theLeastSizeIs7800By6650TwipsInWholePixels)
{
    EXPECT_EQ(kLeastWidth, std::ceil(7800 / 15.0));
    EXPECT_EQ(kLeastHeight, std::ceil(6650 / 15.0));
}

TEST(WindowLayout, aLowWindowHasNoRoomForTheCompanionsCaptions)
{
    const Placed least(kLeastWidth, kLeastHeight - 19);
    EXPECT_TRUE(least.controls.at("topTag0").isShown);
    EXPECT_TRUE(least.controls.at("bottomTag0").isShown);
    EXPECT_FALSE(least.controls.at("topTag1").isShown);
    EXPECT_FALSE(least.controls.at("bottomTag1").isShown);
    for (const char* tag : {"topTag0", "bottomTag0", "topTag1", "bottomTag1"})
        EXPECT_TRUE(kUsual.controls.at(tag).isShown) << tag;
}

TEST(WindowLayout, aScreenTooSmallGivesNoNegativeLength)
{
    for (const auto& [name, control] : Placed(40, 30).controls) {
        EXPECT_GE(control.place.width, 0) << name;
        EXPECT_GE(control.place.height, 0) << name;
    }
    EXPECT_EQ(Placed(40, 30).at("Picture1_0").height, 0);
}

/// Where a control stands in the whole area.
PixelRect whole(const Placed& placed, const PlacedControl& control)
{
    PixelRect place = control.place;
    if (!control.isInFrame) return place;
    place.left += placed.at("Frame1").left;
    place.top += placed.at("Frame1").top;
    return place;
}

bool overlap(const PixelRect& a, const PixelRect& b)
{
    return a.left < b.left + b.width && b.left < a.left + a.width && a.top < b.top + b.height &&
           b.top < a.top + a.height;
}

TEST(WindowLayout, nothingOverlapsAtAnySize)
{
    for (const int width : {520, 521, 800, 1280, 2560})
        for (int height = 421; height < 1440; height += height < 520 ? 1 : 97) {
            const Placed placed(width, height);
            for (const auto& [name, control] : placed.controls)
                for (const auto& [otherName, other] : placed.controls) {
                    if (name >= otherName || name == "Frame1" || otherName == "Frame1") continue;
                    if (!control.isShown || !other.isShown) continue;
                    EXPECT_FALSE(overlap(whole(placed, control), whole(placed, other)))
                        << name << " and " << otherName << " at " << width << " x " << height;
                }
        }
}

TEST(WindowLayout, everythingLiesWithinTheLeastWindow)
{
    const Placed placed(kLeastWidth, kLeastHeight - 19);
    for (const auto& [name, control] : placed.controls) {
        const PixelRect place = whole(placed, control);
        EXPECT_LE(place.left + place.width, kLeastWidth) << name;
        EXPECT_LE(place.top + place.height, kLeastHeight - 19) << name;
    }
}

} // namespace
} // namespace tarvelint::test
