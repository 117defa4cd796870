// SPDX-License-Identifier: MIT
#include "view/plot_redraw.h"

#include "view/plot_fixture.h"

namespace tarvelint::test {

namespace {

// ---- trace

TEST(Colors, areThoseThatUsersKnow)
{
    EXPECT_EQ(colors::kBlack, (Color{0, 0, 0}));
    EXPECT_EQ(colors::kRed, (Color{255, 0, 0}));
    EXPECT_EQ(colors::kCyan, (Color{0, 255, 255}));
    EXPECT_EQ(colors::kYellow, (Color{255, 255, 0}));
    EXPECT_EQ(colors::kWhite, (Color{255, 255, 255}));
    EXPECT_EQ(colors::kBlue, (Color{0, 0, 255}));
}

TEST(Trace, runsThroughTheVisibleRows)
{
    Plot plot({0, 1, 2, 3, 4, 5, 6});
    plot.view.HScroll1.Value = 1;
    EXPECT_THAT(plot.drawn(), ElementsAre(moveTo(0, 94.5), lineTo(0, 94.5), lineTo(1, 84.5), lineTo(2, 74.5),
                                          lineTo(3, 64.5), lineTo(4, 54.5)));
}

TEST(Trace, endsShortOfTheEdgeWhenFewerRowsFit)
{
    Plot plot({0, 1});
    EXPECT_THAT(plot.drawn(), ElementsAre(moveTo(0, 104.5), lineTo(0, 104.5), lineTo(1, 94.5)));
}

TEST(Trace, stepsByTheZoom)
{
    Plot plot({0, 1, 2, 3, 4, 5});
    plot.view.zoomFactor = 2; // rows 0 to 2
    EXPECT_THAT(plot.drawn(), ElementsAre(moveTo(0, 104.5), lineTo(0, 104.5), lineTo(2, 94.5), lineTo(4, 84.5)));
}

TEST(Trace, showsAGapAtTheTopEdge)
{
    Plot plot({kGap, 1, kGap});
    EXPECT_THAT(plot.drawn(), ElementsAre(moveTo(0, 0), lineTo(0, 0), lineTo(1, 94.5), lineTo(2, 0)));
}

TEST(Trace, holdsFarValuesAt64000)
{
    Plot plot({7000, -7000});
    EXPECT_THAT(plot.drawn(), ElementsAre(moveTo(0, -64000), lineTo(0, -64000), lineTo(1, 64000)));
}

TEST(Trace, theSelectionBeginsAfterItsFirstRow)
{
    Plot plot({0, 0, 0, 0, 0});
    plot.view.selStart = 1;
    plot.view.selEnd = 3;
    EXPECT_THAT(plot.drawn(), ElementsAre(moveTo(0, 104.5), lineTo(0, 104.5), lineTo(1, 104.5), redTo(2, 104.5),
                                          redTo(3, 104.5), lineTo(4, 104.5)));
}

TEST(Trace, theRowUnderThePointerIsCyanInSloppyModeOnly)
{
    Plot plot({0, 0, 0});
    plot.view.selEnd = 2;
    plot.view.hoverRow = 1;
    EXPECT_EQ(plot.drawn()[2], redTo(1, 104.5));
    plot.view.Sloppy = true;
    EXPECT_EQ(plot.drawn()[2], lineTo(1, 104.5, colors::kCyan));
    EXPECT_EQ(plot.drawn()[3], redTo(2, 104.5));
}

TEST(Trace, selectionAndPointerShowInTheCompanionToo)
{
    Plot plot({0, 0, 0, 0, 0});
    plot.view.selStart = 1;
    plot.view.selEnd = 3;
    plot.view.hoverRow = 4;
    EXPECT_THAT(plot.drawn(1), ElementsAre(moveTo(0, 104.5), lineTo(0, 104.5), lineTo(1, 104.5), redTo(2, 104.5),
                                           redTo(3, 104.5), lineTo(4, 104.5)));
    plot.view.Sloppy = true;
    EXPECT_EQ(plot.drawn(1).back(), lineTo(4, 104.5, colors::kCyan));
}

TEST(Trace, theMainAreaShowsTheLayerOnViewAndTheCompanionTheReadings)
{
    Plot plot({1}, {2});
    plot.view.curLayer = kConverted;
    plot.record.values(kConverted, 0, 0) = 5;
    plot.record.values(kConverted, 1, 0) = 5;
    EXPECT_THAT(plot.drawn(0), ElementsAre(moveTo(0, 54.5), lineTo(0, 54.5)));
    EXPECT_THAT(plot.drawn(1), ElementsAre(moveTo(0, 84.5), lineTo(0, 84.5)));
}

// ---- lull bands

TEST(LullBands, areOneRowWideAndFullHeight)
{
    Plot plot({0, 0, 0, 0, 0, 0});
    plot.points({});
    plot.surfaces()[0].width = 8;
    plot.view.zoomFactor = 2;
    plot.view.HScroll1.Value = 1; // rows 1 to 5
    plot.record.lullFlags = {true, false, true, true, false, true};
    plot.drawn();
    EXPECT_THAT(plot.surfaces()[0].only("box"), ElementsAre(box(2, 4), box(4, 6), box(8, 10)));
}

TEST(LullBands, areForTurboAndTheMainArea)
{
    Plot plot({0, 0});
    plot.record.lullFlags = {true, true};
    plot.drawn(0);
    EXPECT_THAT(plot.surfaces()[0].only("box"), IsEmpty());
    plot.points({});
    plot.drawn(1);
    EXPECT_THAT(plot.surfaces()[1].only("box"), IsEmpty());
}

TEST(LullBands, areDrawnInTheConvertedViewAndForParameterColumnsToo)
{
    Plot plot({0, 0});
    plot.points({});
    plot.record.lullFlags = {true, false};
    plot.view.curLayer = kConverted;
    EXPECT_EQ(plot.drawn().front(), box(0, 1));
    plot.view.curLayer = kUnconverted;
    plot.view.curSensor = -1;
    EXPECT_THAT(plot.drawn(), ElementsAre(box(0, 1)));
}

// ---- reference line

TEST(ReferenceLine, runsBlueAcrossTheCompanionAreaBeforeItsTrace)
{
    Plot plot({0, 0, 0});
    plot.surfaces()[1].width = 77;
    plot.reference("2.5");
    // 110 - 2.5 x 10 - 110 / 20 = 79.5, where the trace would show 2.5
    EXPECT_THAT(plot.drawnBeforeTrace(1), ElementsAre(DrawOp{"line", {0, 79.5, 77, 79.5}, colors::kBlue, {}}));
}

TEST(ReferenceLine, isMeasuredFromTheBottomOfTheRange)
{
    Plot plot({0, 0, 0});
    plot.range(1, "-5", "5");
    plot.reference("0");
    EXPECT_EQ(plot.drawn(1).front(), (DrawOp{"line", {0, 54.5, 4, 54.5}, colors::kBlue, {}})); // 110 - 50 - 5.5
}

TEST(ReferenceLine, liesStrictlyWithinTheRange)
{
    for (const auto* ref : {"0", "10", "-1", "11"}) {
        Plot plot({0, 0});
        plot.reference(ref);
        EXPECT_THAT(plot.drawnBeforeTrace(1), IsEmpty()) << ref;
    }
}

TEST(ReferenceLine, needsANumberAndItsCheckBox)
{
    for (const auto* ref : {"", "x", "5x", "1,5"}) {
        Plot plot({0, 0});
        plot.reference(ref);
        EXPECT_THAT(plot.drawnBeforeTrace(1), IsEmpty()) << ref;
    }
    Plot plot({0, 0});
    plot.reference("5");
    EXPECT_THAT(plot.drawnBeforeTrace(0), IsEmpty());
    plot.setChecked(Control::refCheck, false);
    EXPECT_THAT(plot.drawnBeforeTrace(1), IsEmpty());
}

// ---- baseline points

TEST(BaselinePoints, areJoinedByARedLineWithADiscAtEach)
{
    Plot plot({0, 1, 2, 3, 4});
    plot.points({0, 3});
    EXPECT_THAT(plot.drawnBeforeTrace(),
                ElementsAre(moveTo(0, -1), moveTo(0, 104.5), dot(0, 104.5), redTo(3, 74.5), dot(3, 74.5)));
}

TEST(BaselinePoints, theLineComesFromThePointBeforeTheView)
{
    Plot plot({0, 1, 2, 3, 4, 5, 6, 7});
    plot.points({0, 1, 4});
    plot.view.HScroll1.Value = 3; // row 1 lies 2 units left of the edge
    EXPECT_THAT(plot.drawnBeforeTrace(), ElementsAre(moveTo(0, -1), moveTo(-2, 94.5), redTo(1, 64.5), dot(1, 64.5)));
}

TEST(BaselinePoints, theFirstVisibleRowIsSearchedFirst)
{
    Plot plot({0, 1, 2, 3, 4});
    plot.points({0, 2});
    plot.view.HScroll1.Value = 2;
    EXPECT_THAT(plot.drawnBeforeTrace(), ElementsAre(moveTo(0, -1), moveTo(0, 84.5), redTo(0, 84.5), dot(0, 84.5)));
}

TEST(BaselinePoints, theLineToThePointAfterTheViewEndsOneRowLate)
{
    Plot plot({0, 1, 2, 3, 4, 5, 6, 7});
    plot.points({2, 6, 7});
    plot.view.zoomFactor = 2; // rows 0 to 2; row 6 lies at 12, the line ends at (2 - 0 + 1) x 2 + (6 - 2) x 2 = 14
    EXPECT_THAT(plot.drawnBeforeTrace(), ElementsAre(moveTo(0, -1), moveTo(4, 84.5), dot(4, 84.5), redTo(6, 84.5)))
        << "the last visible row is itself the nearest point";
    plot.sensors.setPoint(0, 2, false);
    plot.sensors.setPoint(0, 1, true);
    EXPECT_THAT(plot.drawnBeforeTrace(), ElementsAre(moveTo(0, -1), moveTo(2, 94.5), dot(2, 94.5), redTo(14, 44.5)));
}

TEST(BaselinePoints, withNoPointBeforeTheLineToTheNextStartsAtTheTopLeftCorner)
{
    Plot plot({0, 1, 2, 3, 4, 5, 6, 7});
    plot.points({6});
    // (4 - 0 + 1) x 1 + (6 - 4) x 1 = 7
    EXPECT_THAT(plot.drawnBeforeTrace(), ElementsAre(moveTo(0, -1), redTo(7, 44.5)));
}

TEST(BaselinePoints, nothingFollowsTheLastPointWhenTheRecordEndsInView)
{
    Plot plot({0, 1, 2, 3, 4});
    plot.points({4});
    EXPECT_THAT(plot.drawnBeforeTrace(), ElementsAre(moveTo(0, -1), moveTo(4, 64.5), dot(4, 64.5)));
}

TEST(BaselinePoints, aPointThatLiesAtMinusOneBreaksTheLine)
{
    Plot plot({0, 10.55, 2, 3}); // 104.5 - 105.5 = -1
    plot.points({0, 1, 2});
    EXPECT_THAT(plot.drawnBeforeTrace(), ElementsAre(moveTo(0, -1), moveTo(0, 104.5), dot(0, 104.5), redTo(1, -1),
                                                     dot(1, -1), moveTo(2, 84.5), dot(2, 84.5)));
}

TEST(BaselinePoints, aMissingReadingCountsAsItsNumber)
{
    Plot plot({0, kGap});
    plot.points({1});
    EXPECT_THAT(plot.drawnBeforeTrace(), ElementsAre(moveTo(0, -1), moveTo(1, -64000), dot(1, -64000)));
}

TEST(BaselinePoints, theCurrentPointIsALargeYellowDisc)
{
    Plot plot({0, 1, 2});
    plot.points({});
    plot.view.markRow = 2;
    EXPECT_THAT(plot.drawnBeforeTrace(), ElementsAre(highlight(2, 84.5, 5), moveTo(0, -1)));
}

TEST(BaselinePoints, aPointInHandIsASmallYellowDiscInsteadOfTheCurrentOne)
{
    Plot plot({0, 1, 2});
    plot.points({});
    plot.view.markRow = 2;
    plot.view.dragRow = 0;
    EXPECT_THAT(plot.drawnBeforeTrace(), ElementsAre(highlight(0, 104.5, 3), moveTo(0, -1)));
}

TEST(BaselinePoints, aHighlightBesideTheDataIsNotDrawn)
{
    Plot plot({0, 1, 2});
    plot.points({});
    plot.view.markRow = 3;
    EXPECT_THAT(plot.drawnBeforeTrace(), ElementsAre(moveTo(0, -1)));
}

TEST(BaselinePoints, aParameterColumnShowsNeitherPointsNorTraceInTheInputView)
{
    Plot plot({0, 1, 2});
    plot.points({0, 2});
    plot.view.curSensor = -1;
    plot.view.markRow = 1;
    EXPECT_THAT(plot.drawn(0, true), ElementsAre(erase()));
    plot.view.curLayer = kConverted;
    EXPECT_EQ(plot.drawn().size(), 4U) << "its converted layer has a trace";
}

TEST(BaselinePoints, areForTurboTheMainAreaAndTheInputView)
{
    Plot plot({0, 1, 2});
    plot.points({0, 2});
    plot.view.markRow = 1;
    EXPECT_THAT(plot.drawnBeforeTrace(1), IsEmpty());
    plot.view.curLayer = kConverted;
    EXPECT_THAT(plot.drawnBeforeTrace(0), IsEmpty());
    plot.view.curLayer = kUnconverted;
    plot.view.Turbo = false;
    EXPECT_THAT(plot.drawnBeforeTrace(0), IsEmpty());
}

TEST(BaselinePoints, aSensorWithoutMarksYetHasATraceOnly)
{
    Plot plot({0, 1, 2});
    plot.points({});
    plot.view.curSensor = 1;
    EXPECT_THAT(plot.drawnBeforeTrace(), ElementsAre(moveTo(0, -1)));
}

TEST(Redraw, drawsBandsThenTheHighlightThenPointsThenTheTrace)
{
    Plot plot({0, 1});
    plot.points({0});
    plot.record.lullFlags = {true, false};
    plot.view.markRow = 0;
    EXPECT_THAT(plot.drawn(0, true),
                ElementsAre(erase(), box(0, 1), highlight(0, 104.5, 5), moveTo(0, -1), moveTo(0, 104.5), dot(0, 104.5),
                            moveTo(0, 104.5), lineTo(0, 104.5), lineTo(1, 94.5)));
}

TEST(Redraw, aLongRecordKeepsItsNeighbouringPointsHoweverFarTheyAre)
{
    Plot plot(std::vector<double>(1'000'000, 5.0));
    plot.points({0, 999'999});
    plot.view.HScroll1.Value = 500'000; // (4 + 1) + (999,999 - 500,004) = 500,000
    EXPECT_THAT(plot.drawnBeforeTrace(), ElementsAre(moveTo(0, -1), moveTo(-500'000, 54.5), redTo(500'000, 54.5)));
}

} // namespace

} // namespace tarvelint::test
