// SPDX-License-Identifier: MIT
#include "view/plot_redraw.h"

#include "view/plot_drawing.h"
#include "view/plot_fit.h"
#include "view/plot_fixture.h"

#include <limits>

namespace tarvelint::test {

namespace {

// ---- arithmetic

TEST(PlotArithmetic, theLastVisibleRowIsTheWidthInRowsAfterTheFirstWithHalvesToEven)
{
    EXPECT_EQ(lastVisibleRow(100, 1, 20, 1000), 120);
    EXPECT_EQ(lastVisibleRow(100, 8, 0, 1000), 12); // 12.5
    EXPECT_EQ(lastVisibleRow(100, 8, 1, 1000), 14); // 13.5
    EXPECT_EQ(lastVisibleRow(101, 4, 0, 1000), 25); // 25.25
}

TEST(PlotArithmetic, theLastVisibleRowIsNeverPastTheRecord)
{
    EXPECT_EQ(lastVisibleRow(100, 1, 0, 101), 100);
    EXPECT_EQ(lastVisibleRow(100, 1, 0, 100), 99);
    EXPECT_EQ(lastVisibleRow(100, 8, 0, 12), 11); // 12.5 would be row 12
    EXPECT_EQ(lastVisibleRow(100, 1, 7, 0), -1);
    EXPECT_EQ(lastVisibleRow(4e9F, 1, 0, std::numeric_limits<std::int32_t>::max()), 2147483646);
}

TEST(PlotArithmetic, aRowLiesItsDistanceFromTheFirstTimesTheZoom)
{
    EXPECT_EQ(rowX(13, 10, 4), 12.0F);
    EXPECT_EQ(rowX(7, 10, 4), -12.0F);
    EXPECT_EQ(rowX(2147483647, 0, 8), 17179869184.0F); // 2^31 as a 32-bit float, times 8
}

TEST(PlotArithmetic, theRangeTakesTheHeightLessATenthAboveAMarginOfFivePercent)
{
    const auto scale = valueScale(20, 30, 110);
    ASSERT_TRUE(scale);
    EXPECT_DOUBLE_EQ(scale->yScale, 10);   // 110 / (10 x 1.1)
    EXPECT_DOUBLE_EQ(scale->yBase, 304.5); // 20 x 10 + 0.95 x 110
    EXPECT_FLOAT_EQ(valueY(*scale, 20), 104.5F);
    EXPECT_FLOAT_EQ(valueY(*scale, 30), 4.5F);
    EXPECT_FLOAT_EQ(valueY(*scale, 32), -15.5F);
}

TEST(PlotArithmetic, aValueFartherThan64000UnitsIsHeldThere)
{
    const auto scale = valueScale(0, 10, 110);
    ASSERT_TRUE(scale);
    EXPECT_FLOAT_EQ(valueY(*scale, 6400), -63895.5F); // 104.5 - 64000
    EXPECT_EQ(valueY(*scale, 6411), -64000.0F);       // 104.5 - 64110
    EXPECT_EQ(valueY(*scale, -6390), 64000.0F);       // 104.5 + 63900 = 64004.5
    EXPECT_EQ(valueY(*scale, 1e308), -64000.0F);
    EXPECT_EQ(valueY(*scale, -1e308), 64000.0F);
}

TEST(PlotArithmetic, yIsKeptAs32BitFloat)
{
    const auto scale = valueScale(0, 10, 110);
    ASSERT_TRUE(scale);
    // 104.5 - 50000 - 0.001 = -49895.501; floats there lie 1/256 apart, and -49895.5 is the nearest.
    EXPECT_EQ(valueY(*scale, 5000.0001), -49895.5F);
}

TEST(PlotArithmetic, aRangeThatIsNotPositiveOrCannotBeDrawnHasNoScale)
{
    const double inf = std::numeric_limits<double>::infinity();
    EXPECT_FALSE(valueScale(10, 10, 110));
    EXPECT_FALSE(valueScale(10, 9, 110));
    EXPECT_FALSE(valueScale(0, inf, 110));
    EXPECT_FALSE(valueScale(-inf, 0, 110));
    EXPECT_FALSE(valueScale(inf, inf, 110)); // the difference is no number
    EXPECT_FALSE(valueScale(-1e308, 1e308, 110));
    EXPECT_FALSE(valueScale(0, 1e-320, 110)); // more units per data unit than a double holds
}

// ---- what is drawn at all

TEST(Redraw, aDisabledAreaIsLeftAlone)
{
    Plot plot({1, 2, 3});
    plot.setEnabled(Control::Picture1_0, false);
    plot.drawn(0, true);
    EXPECT_THAT(plot.surfaces()[0].ops, IsEmpty());
    plot.setEnabled(Control::Picture1_1, false);
    plot.drawn(1, true);
    EXPECT_THAT(plot.surfaces()[1].ops, IsEmpty());
}

TEST(Redraw, anAreaWithoutAChosenColumnIsLeftAlone)
{
    Plot plot({1, 2, 3});
    plot.view.chosenColumn[0] = -1;
    plot.drawn(0, true);
    EXPECT_THAT(plot.surfaces()[0].ops, IsEmpty());
    EXPECT_EQ(plot.view.yScale, 0);
}

TEST(Redraw, thePenIsOneWiderThanTheZoomLevelAndSetBeforeAnythingIsDrawn)
{
    Plot plot({1, 2, 3});
    plot.rendering.redraw(0, true);
    EXPECT_EQ(plot.surfaces()[0].ops.front(), pen(1));
    plot.surfaces()[0].ops.clear();
    plot.view.zoomLevel = 3;
    plot.rendering.redraw(0, true);
    EXPECT_EQ(plot.surfaces()[0].ops.front(), pen(4));
}

TEST(Redraw, aZoomLoadedFromTheSettingsDrawsWithAPenOfOne)
{
    Plot plot({1, 2, 3});
    plot.view.zoomFactor = 4; // no zoom command has set the level yet
    plot.rendering.redraw(0, true);
    EXPECT_EQ(plot.surfaces()[0].ops.front(), pen(1));
}

TEST(Redraw, onlyTheAreaAskedForIsTouched)
{
    Plot plot({1, 2, 3});
    plot.rendering.redraw(1, true);
    EXPECT_THAT(plot.surfaces()[0].ops, IsEmpty());
    EXPECT_FALSE(plot.surfaces()[1].ops.empty());
}

TEST(Redraw, anAreaWithoutAVisibleRowIsErasedAndNothingDrawn)
{
    Plot plot({1, 2, 3});
    plot.view.HScroll1.Value = 3;
    plot.automatic();
    EXPECT_THAT(plot.drawn(0, false), ElementsAre(erase()));
    EXPECT_EQ(plot.range(0), "0 to 10");
    EXPECT_EQ(plot.view.yScale, 0);
}

TEST(Redraw, aColumnBesideTheDataIsErasedAndNothingDrawn)
{
    Plot plot({1, 2, 3});
    plot.view.chosenColumn[0] = 2;
    EXPECT_THAT(plot.drawn(), ElementsAre(erase()));
}

TEST(Redraw, aManualRangeThatIsNotPositiveErasesAndKeepsTheScale)
{
    for (const auto* top : {"5", "4.99", "", "x", "1E400"}) {
        Plot plot({1, 2, 3});
        plot.view.yScale = 7;
        plot.range(0, "5", top);
        EXPECT_THAT(plot.drawn(0, false), ElementsAre(erase())) << top;
        EXPECT_EQ(plot.view.yScale, 7) << top;
    }
}

TEST(Redraw, erasesOnlyWhenAskedTo)
{
    Plot plot({0});
    EXPECT_THAT(plot.drawn(0, false), ElementsAre(moveTo(0, 104.5), lineTo(0, 104.5)));
    EXPECT_THAT(plot.drawn(0, true), ElementsAre(erase(), moveTo(0, 104.5), lineTo(0, 104.5)));
}

TEST(Redraw, theScaleIsOneFieldThatTheLastAreaLeavesBehind)
{
    Plot plot({1, 2, 3});
    plot.range(1, "0", "20");
    plot.rendering.redraw(0, true);
    EXPECT_DOUBLE_EQ(plot.view.yScale, 10);
    plot.rendering.redraw(1, true);
    EXPECT_DOUBLE_EQ(plot.view.yScale, 5); // 110 / (20 x 1.1)
}

TEST(Redraw, theMainAreasWidthDecidesTheRowsOfBoth)
{
    Plot plot({0, 0, 0, 0, 0});
    plot.surfaces()[0].width = 2;
    plot.surfaces()[1].width = 4;
    EXPECT_EQ(plot.drawn(1).size(), 4U); // pen and rows 0 to 2
}

// ---- automatic range

TEST(AutomaticRange, isTheVisibleExtremesWithFourDecimals)
{
    Plot({100, 3, 7.25, 0.5, 2, 100}).expectAutomaticRange("0.5000 to 100.0000");
}

TEST(AutomaticRange, looksAtVisibleRowsOnly)
{
    Plot plot({100, 3, 7.25, 0.5, 2, 4, 100});
    plot.view.HScroll1.Value = 1;
    plot.expectAutomaticRange("0.5000 to 7.2500"); // rows 1 to 5
}

TEST(AutomaticRange, isWrittenForTheAreaDrawnOnly)
{
    Plot plot({1, 2}, {3, 4});
    plot.automatic(1);
    plot.drawn(1);
    EXPECT_EQ(plot.range(1), "3.0000 to 4.0000");
    EXPECT_EQ(plot.range(0), "0 to 10");
}

TEST(AutomaticRange, isTakenFromTheLayerOnView)
{
    Plot plot({1, 2});
    plot.view.curLayer = kConverted;
    plot.record.values(kConverted, 0, 0) = -4;
    plot.record.values(kConverted, 0, 1) = 6;
    plot.expectAutomaticRange("-4.0000 to 6.0000");
}

TEST(AutomaticRange, passesOverMissingReadings)
{
    Plot({3, kGap, 1}).expectAutomaticRange("1.0000 to 3.0000");
    Plot({kGap, 3, 1}).expectAutomaticRange("1.0000 to 3.0000");
}

TEST(AutomaticRange, worksWithANegativeMissingValueNumber)
{
    Plot plot({-6999, 3, -1});
    plot.record.blank = -6999;
    plot.expectAutomaticRange("-1.0000 to 3.0000"); // from 6999 down and from -6999 up
}

TEST(AutomaticRange, isZeroWhenAllIsMissingAndTheAreaIsErased)
{
    Plot plot({kGap, kGap});
    plot.automatic();
    plot.view.yScale = 7;
    EXPECT_THAT(plot.drawn(0, false), ElementsAre(erase()));
    EXPECT_EQ(plot.range(0), "0 to 0");
    EXPECT_EQ(plot.view.yScale, 7);
}

TEST(AutomaticRange, isZeroWhenAnExtremeIsTheMissingValueNumberOrItsNegative)
{
    Plot({3, -kGap}).expectAutomaticRange("0 to 0");
    Plot({kGap, 200000}).expectAutomaticRange("0 to 0"); // nothing lies below the 99999 the minimum starts at
}

TEST(AutomaticRange, ofAConstantColumnIsEmptyAndErases)
{
    Plot plot({5, 5, 5});
    plot.automatic();
    EXPECT_THAT(plot.drawn(), ElementsAre(erase()));
    EXPECT_EQ(plot.range(0), "5.0000 to 5.0000");
}

TEST(AutomaticRange, isReadBackFromItsFourDecimals)
{
    Plot plot({0, 10.00004});
    plot.automatic();
    plot.drawn();
    EXPECT_DOUBLE_EQ(plot.view.yScale, 10); // 10.0000, not 10.00004
}

TEST(AutomaticRange, aGroupedTextCountsUpToItsFirstGroupingSign)
{
    Plot plot({0, 1234.5});
    plot.automatic();
    plot.drawn();
    EXPECT_EQ(plot.range(0), "0.0000 to 1,234.5000");
    EXPECT_DOUBLE_EQ(plot.view.yScale, 100); // 110 / (1 x 1.1)
}

TEST(AutomaticRange, anExtremeIsReplacedByWhatIsReadInItsFifteenDigits)
{
    // 1/3 in 15 digits is a little lower than 1/3, 2/3 in 15 digits (...667) a little higher; the first row's reading
    // is taken as it is.
    const std::vector<double> cells{0.5, 1.0 / 3, 2.0 / 3};
    const Extremes found = visibleExtremes({cells.data(), 1}, 0, 2, 99999);
    EXPECT_EQ(found.lowest, 0.333333333333333);
    EXPECT_EQ(found.highest, 0.666666666666667);
    const Extremes alone = visibleExtremes({cells.data(), 1}, 1, 1, 99999);
    EXPECT_EQ(alone.lowest, 1.0 / 3);
}

TEST(AutomaticRange, theLargestDoubleStaysFiniteAlthoughItsFifteenDigitsAreNot)
{
    const double largest = std::numeric_limits<double>::max();
    const std::vector<double> cells{0, largest};
    EXPECT_EQ(visibleExtremes({cells.data(), 1}, 0, 1, 99999).highest, largest);
}

// A fitted plot on any surface

TEST(FittedPlot, drawsTheSameOnAnotherSurfaceAndChangesNothingOfTheWindow)
{
    Plot plot({0, 5, 10, 5, 0});
    plot.automatic();
    const Ops shown = plot.drawn(0, true);
    const std::string rangeBefore = plot.range(0);
    plot.view.yScale = 77;
    plot.calls.clear();
    plot.fakeUi.changes.clear();
    plot.surfaces()[0].ops.clear();

    RecordingSurface paper;
    paper.width = 4;
    const PlotFit fit = fitPlot(plot.record, plot.view, {0, 4, 110}, {"never", "read"}, ",");
    drawPlot(fit, {plot.record, plot.sensors, plot.view, std::nullopt}, true, paper);
    EXPECT_EQ(Ops(paper.ops.begin() + 1, paper.ops.end()), shown);
    EXPECT_EQ(fit.automaticRange, (RangeTexts{"0.0000", "10.0000"}));
    EXPECT_EQ(plot.range(0), rangeBefore);
    EXPECT_EQ(plot.view.yScale, 77);
    EXPECT_THAT(plot.calls, IsEmpty());
    EXPECT_THAT(plot.fakeUi.changes, IsEmpty());
    EXPECT_THAT(plot.surfaces()[0].ops, IsEmpty());
}

TEST(FittedPlot, takesTheHeightOfItsOwnAreaAndTheWidthOfTheMainOne)
{
    Plot plot({0, 5, 10, 5, 0}, {0, 5, 10, 5, 0});
    plot.surfaces()[1].height = 220;
    plot.surfaces()[1].width = 1;
    const Ops ops = plot.drawn(1);
    // 220 / (10 x 1.1) = 20 units per data unit, 0 at 0.95 x 220 = 209; rows 0 to 4 as in the main area.
    EXPECT_THAT(
        ops, ElementsAre(moveTo(0, 209), lineTo(0, 209), lineTo(1, 109), lineTo(2, 9), lineTo(3, 109), lineTo(4, 209)));
    EXPECT_EQ(plot.view.yScale, 20);
}

} // namespace

} // namespace tarvelint::test
