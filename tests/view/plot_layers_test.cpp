// SPDX-License-Identifier: MIT
#include "view/plot_fixture.h"

namespace tarvelint::test {

namespace {

// ---- everything at once

TEST(PlotLayers, bothAreasInOrderAtAZoomOf4AndOfTwoHeights)
{
    Plot plot({0, 1}, {5, kGap});
    plot.points({1});
    plot.record.lullFlags = {false, true};
    plot.reference("5");
    plot.view.zoomFactor = 4;
    plot.view.zoomLevel = 2;
    plot.view.markRow = 1;
    plot.view.selEnd = 1;
    for (auto& area : plot.surfaces()) area.width = 8;
    plot.surfaces()[1].height = 220; // 20 units per data unit, 0 at 209; 220 - 5 x 20 - 11 = 109
    plot.rendering.redraw(0, true);
    plot.rendering.redraw(1, true);
    EXPECT_THAT(plot.surfaces()[0].ops,
                ElementsAre(pen(3), erase(), box(4, 8), highlight(4, 94.5, 5), moveTo(0, -1), moveTo(4, 94.5),
                            dot(4, 94.5), moveTo(0, 104.5), lineTo(0, 104.5), redTo(4, 94.5)));
    EXPECT_THAT(plot.surfaces()[1].ops,
                ElementsAre(pen(3), erase(), DrawOp{"line", {0, 109, 8, 109}, colors::kBlue, {}}, moveTo(0, 109),
                            lineTo(0, 109), redTo(4, 0)));
}

// ---- heights

TEST(PlotLayers, aLullBandIsAsHighAsItsArea)
{
    Plot plot({0, 0});
    plot.points({});
    plot.record.lullFlags = {false, true};
    plot.surfaces()[0].height = 220;
    plot.surfaces()[1].height = 330;
    EXPECT_EQ(plot.drawn().front(), (DrawOp{"box", {1, 0, 2, 220}, colors::kWhite, colors::kWhite}));
}

// ---- beside the view

TEST(PlotLayers, farPointsBesideTheViewAreHeldAt64000)
{
    Plot plot({7000, 0, 0, 0, 0, 0, 0, -7000});
    plot.points({0, 3, 7});
    plot.view.HScroll1.Value = 1; // row 7 lies at 6, and the line ends a row later
    EXPECT_THAT(plot.drawnBeforeTrace(),
                ElementsAre(moveTo(0, -1), moveTo(-1, -64000), redTo(2, 104.5), dot(2, 104.5), redTo(7, 64000)));
}

TEST(PlotLayers, aPointBeforeTheViewThatLiesAtMinusOneReadsAsNone)
{
    Plot plot({10.55, 1, 2, 3, 4, 5}); // 104.5 - 105.5 = -1
    plot.points({0, 2});
    plot.view.HScroll1.Value = 1;
    EXPECT_THAT(plot.drawnBeforeTrace(), ElementsAre(moveTo(0, -1), moveTo(-1, -1), moveTo(1, 84.5), dot(1, 84.5)));
}

TEST(PlotLayers, aHighlightBesideTheViewKeepsItsPlace)
{
    Plot plot({3, 0, 0, 0, 0, 0});
    plot.points({});
    plot.view.zoomFactor = 2;
    plot.view.HScroll1.Value = 2;
    plot.view.markRow = 0;
    EXPECT_EQ(plot.drawn().front(), highlight(-4, 74.5, 5));
    plot.view.dragRow = 5;
    EXPECT_EQ(plot.drawn().front(), highlight(6, 104.5, 3));
}

// ---- gaps

TEST(PlotLayers, aHighlightOnAGapLiesWhereItsNumberDoes)
{
    Plot plot({0, kGap, 0});
    plot.points({});
    plot.view.markRow = 1;
    EXPECT_EQ(plot.drawn().front(), highlight(1, -64000, 5));
}

TEST(PlotLayers, anAreaOfGapsInAManualRangeHasATraceAlongTheTopEdge)
{
    Plot plot({kGap, kGap}, {kGap, kGap});
    for (const int index : {0, 1})
        EXPECT_THAT(plot.drawn(index), ElementsAre(moveTo(0, 0), lineTo(0, 0), lineTo(1, 0)));
}

// ---- selection and pointer

TEST(PlotLayers, theRowUnderThePointerIsCyanOutsideTheSelectionToo)
{
    Plot plot({0, 0, 0});
    plot.view.Sloppy = true;
    plot.view.hoverRow = 0;
    plot.view.selStart = plot.view.selEnd = 2;
    EXPECT_THAT(plot.drawn(),
                ElementsAre(moveTo(0, 104.5), lineTo(0, 104.5, colors::kCyan), lineTo(1, 104.5), lineTo(2, 104.5)));
}

TEST(PlotLayers, aSelectionThatBeganBeforeTheViewIsRedFromTheFirstRow)
{
    Plot plot({0, 0, 0, 0, 0, 0, 0});
    plot.view.HScroll1.Value = 2;
    plot.view.selEnd = 3;
    EXPECT_THAT(plot.drawn(), ElementsAre(moveTo(0, 104.5), redTo(0, 104.5), redTo(1, 104.5), lineTo(2, 104.5),
                                          lineTo(3, 104.5), lineTo(4, 104.5)));
}

} // namespace

} // namespace tarvelint::test
