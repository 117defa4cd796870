// SPDX-License-Identifier: MIT
#include "baseline/points_window.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <utility>
#include <vector>

namespace tarvelint::test {
namespace {

// Setting and moving a point

TEST(SetPoint, theFirstPointClearsAllRowsButItsOwn)
{
    PointsWindow window({4, 5, 6, 7});
    window.points.setPoint(2, -1, false);
    EXPECT_EQ(window.marks(), Rows{2});
    EXPECT_EQ(window.baseline(), (Column{cleared, cleared, untouched, cleared}));
    EXPECT_EQ(window.converted(), (Column{blank, blank, untouched, blank}));
}

TEST(SetPoint, aPointInTheFirstRowHasNothingToItsLeft)
{
    PointsWindow window({4, 5, 6});
    window.points.setPoint(0, -1, false);
    EXPECT_EQ(window.baseline(), (Column{untouched, cleared, cleared}));
}

TEST(SetPoint, aPointInTheLastRowHasNothingToItsRight)
{
    PointsWindow window({4, 5, 6});
    window.points.setPoint(2, -1, false);
    EXPECT_EQ(window.baseline(), (Column{cleared, cleared, untouched}));
}

TEST(SetPoint, aRecordOfOneRowTakesAPoint)
{
    PointsWindow window(Column{4});
    window.points.setPoint(0, -1, false);
    EXPECT_EQ(window.marks(), Rows{0});
    EXPECT_EQ(window.baseline(), Column{untouched});
}

TEST(SetPoint, aPointBetweenTwoRecomputesOnlyTheSegmentsBesideIt)
{
    PointsWindow window({9, 1, 2, 3, 4, 3, 2, 1, 9});
    window.mark({0, 1, 7, 8});
    window.points.setPoint(4, -1, false); // lines 1..4 in row 1 to 4, 4..1 in row 4 to 7
    EXPECT_EQ(window.marks(), (Rows{0, 1, 4, 7, 8}));
    EXPECT_EQ(window.baseline(), (Column{untouched, 1, 2, 3, 4, 3, 2, 1, untouched}));
    EXPECT_EQ(window.converted(), (Column{untouched, 0, 0, 0, 0, 0, 0, 0, untouched}));
}

TEST(SetPoint, theSecondPointDrawsItsSegmentAndClearsBeyond)
{
    PointsWindow window({9, 4, 2, 4, 9});
    window.mark({1});
    window.points.setPoint(3, -1, false);
    EXPECT_EQ(window.baseline(), (Column{untouched, 4, 4, 4, cleared}));
    EXPECT_EQ(window.converted(), (Column{untouched, 0, 119, 0, blank})); // 119 x (4/2 - 1)^1.23
}

TEST(SetPoint, movingTakesTheMarkFromTheOldRow)
{
    PointsWindow window({4, 4, 4, 4, 4});
    window.mark({0, 2, 4});
    window.points.setPoint(3, 2, false);
    EXPECT_EQ(window.marks(), (Rows{0, 3, 4}));
    EXPECT_EQ(window.baseline(), Column(5, 4));
}

TEST(SetPoint, movingPastANeighbourLeavesTheSegmentAtTheOldRow)
{
    PointsWindow window({4, 4, 4, 4, 4, 4});
    window.mark({0, 1, 2});
    window.points.setPoint(4, 1, false);
    EXPECT_EQ(window.marks(), (Rows{0, 2, 4}));
    EXPECT_EQ(window.baseline(), (Column{untouched, untouched, 4, 4, 4, cleared}));
}

TEST(SetPoint, movingToItsOwnRowKeepsThePoint)
{
    PointsWindow window({4, 4, 4});
    window.mark({1});
    window.points.setPoint(1, 1, false);
    EXPECT_EQ(window.marks(), Rows{1});
}

TEST(SetPoint, aPointOnAMissingReadingIsMarkedAndDrawsNothing)
{
    PointsWindow window({4, blank, 4});
    window.mark({0, 2});
    window.points.setPoint(1, -1, false);
    EXPECT_EQ(window.marks(), (Rows{0, 1, 2}));
    EXPECT_EQ(window.baseline(), Column(3, untouched));
}

TEST(SetPoint, pointsOfOtherSensorsNeitherCountNorChange)
{
    PointsWindow window(std::vector<Column>{{4, 4, 4}, {4, 4, 4}});
    window.sensors.setPoint(1, 0, true);
    window.points.setPoint(2, -1, false);
    EXPECT_EQ(window.baseline(), (Column{cleared, cleared, untouched}));
    EXPECT_TRUE(window.sensors.isPoint(1, 0));
    EXPECT_FALSE(window.sensors.isPoint(1, 2));
    EXPECT_EQ(window.column(kBaseline, 1), Column(3, untouched));
}

TEST(SetPoint, marksTheRecordAsChanged)
{
    PointsWindow window({4, 4, 4});
    window.points.setPoint(1, -1, false);
    EXPECT_FALSE(window.record.saveCheck);
}

// Deleting a point

TEST(SetPoint, deletingBetweenTwoJoinsTheirSegments)
{
    PointsWindow window({2, 9, 9, 9, 6});
    window.mark({0, 2, 4});
    window.points.setPoint(2, -1, true);
    EXPECT_EQ(window.marks(), (Rows{0, 4}));
    EXPECT_EQ(window.baseline(), (Column{2, 3, 4, 5, 6}));
    EXPECT_FALSE(window.record.saveCheck);
}

TEST(SetPoint, deletingTheLastOfSeveralClearsAfterItsNeighbour)
{
    PointsWindow window({4, 4, 4, 4});
    window.mark({1, 2});
    window.points.setPoint(2, -1, true);
    EXPECT_EQ(window.baseline(), (Column{untouched, untouched, cleared, cleared}));
    EXPECT_EQ(window.converted(), (Column{untouched, untouched, blank, blank}));
}

TEST(SetPoint, deletingTheFirstOfSeveralClearsBeforeItsNeighbour)
{
    PointsWindow window({4, 4, 4, 4});
    window.mark({1, 2});
    window.points.setPoint(1, -1, true);
    EXPECT_EQ(window.baseline(), (Column{cleared, cleared, untouched, untouched}));
    EXPECT_EQ(window.converted(), (Column{blank, blank, untouched, untouched}));
}

TEST(SetPoint, deletingTheOnlyPointClearsEveryRowAndNoneBeyond)
{
    PointsWindow window(std::vector<Column>{{4, 4, 4}, {4, 4, 4}});
    window.mark({1});
    window.points.setPoint(1, -1, true);
    EXPECT_EQ(window.marks(), Rows{});
    EXPECT_EQ(window.baseline(), Column(3, cleared));
    EXPECT_EQ(window.converted(), Column(3, blank));
    EXPECT_EQ(window.column(kBaseline, 1), Column(3, untouched));
}

TEST(SetPoint, deletingWhereThereIsNoPointRecomputesTheSegment)
{
    PointsWindow window({2, 9, 9, 9, 6});
    window.mark({0, 4});
    window.points.setPoint(1, -1, true);
    EXPECT_EQ(window.marks(), (Rows{0, 4}));
    EXPECT_EQ(window.baseline(), (Column{2, 3, 4, 5, 6}));
}

TEST(SetPoint, deletingTakesNoMarkFromTheOtherRow)
{
    PointsWindow window({4, 4, 4});
    window.mark({0, 1, 2});
    window.points.setPoint(1, 0, true);
    EXPECT_EQ(window.marks(), (Rows{0, 2}));
}

// Where no point can be set

TEST(SetPoint, nothingHappensOnAColumnThatIsNoSensor)
{
    PointsWindow window({4, 4, 4});
    window.view.curSensor = -1;
    window.points.setPoint(1, -1, false);
    window.points.setPoint(1, -1, true);
    EXPECT_TRUE(window.nothingHappened());
}

TEST(SetPoint, nothingHappensBeforePointsExist)
{
    PointsWindow window({4, 4, 4});
    window.sensors.clear();
    window.points.setPoint(1, -1, false);
    window.points.setPoint(1, -1, true);
    EXPECT_TRUE(window.nothingHappened());
}

TEST(SetPoint, nothingHappensWithPointsOfAnotherRecordsLength)
{
    PointsWindow window({4, 4, 4});
    window.sensors.assign({0}, 2);
    window.points.setPoint(1, -1, false);
    EXPECT_TRUE(window.nothingHappened());
}

TEST(SetPoint, nothingHappensForRowsOutsideTheData)
{
    PointsWindow window({4, 4, 4});
    window.mark({1});
    for (const std::int32_t row : {-1, 3, INT32_MAX, INT32_MIN}) {
        window.points.setPoint(row, 1, false);
        window.points.setPoint(row, 1, true);
    }
    window.points.setPoint(0, 3, false);
    EXPECT_EQ(window.marks(), Rows{1});
    EXPECT_TRUE(window.nothingHappened());
}

// Straight line over the selection

TEST(Interpolate, fillsTheSelectionWithAStraightLine)
{
    PointsWindow window({1, 9, 9, 4, 9});
    window.select(0, 3);
    window.points.interpolate();
    EXPECT_EQ(window.readings(), (Column{1, 2, 3, 4, 9}));
    EXPECT_FALSE(window.record.saveCheck);
    EXPECT_EQ(window.fakeUi.beeps, 0);
}

TEST(Interpolate, aSelectionOfOneRowOnlyBeeps)
{
    PointsWindow window({1, 9, 4});
    window.select(1, 1);
    window.points.interpolate();
    EXPECT_EQ(window.fakeUi.beeps, 1);
    EXPECT_EQ(window.readings(), (Column{1, 9, 4}));
    EXPECT_TRUE(window.nothingHappened());
}

TEST(Interpolate, theEndRowTakesTheAccumulatedSum)
{
    PointsWindow window({1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 2});
    window.select(0, 10);
    window.points.interpolate();
    EXPECT_EQ(window.readings()[10], tenTenthsFrom(1));
    EXPECT_GT(window.readings()[10], 2);
}

TEST(Interpolate, aMissingEndTakesPartAsANumber)
{
    PointsWindow window({blank, 5, 1});
    window.select(0, 2);
    window.points.interpolate();
    EXPECT_EQ(window.readings(), (Column{99999, 50000, 1})); // step (1 - 99999) / 2 = -49999
}

TEST(Interpolate, aMissingReadingInsideIsFilled)
{
    PointsWindow window({1, blank, 3});
    window.select(0, 2);
    window.points.interpolate();
    EXPECT_EQ(window.readings(), (Column{1, 2, 3}));
}

TEST(Interpolate, onlyTheLayerAndColumnOnViewChange)
{
    PointsWindow window(std::vector<Column>{{1, 1, 1}, {1, 1, 1}});
    window.view.curLayer = kConverted;
    window.choose(1);
    window.record.values(kConverted, 1, 2) = -9;
    window.select(0, 2);
    window.points.interpolate();
    EXPECT_EQ(window.column(kConverted, 1), (Column{untouched, -8, -9}));
    EXPECT_EQ(window.column(kBaseline, 1), Column(3, untouched));
    EXPECT_EQ(window.column(kUnconverted, 1), Column(3, 1));
    EXPECT_EQ(window.converted(), Column(3, untouched));
}

TEST(Interpolate, aSlopeThatOverflowsFillsWithMissing)
{
    PointsWindow window({1e308, 0, -1e308});
    window.select(0, 2);
    window.points.interpolate();
    EXPECT_EQ(window.readings(), (Column{1e308, blank, blank}));
}

TEST(Interpolate, onReadingsUnderTurboThePointsInsideGo)
{
    PointsWindow window({2, 5, 4, 2, 6, 5, 2});
    window.view.Turbo = true;
    window.mark({0, 2, 3, 4, 6});
    window.select(2, 4);
    window.points.interpolate(); // readings 4, 5, 6; the line is then 2 from row 0 to row 6
    EXPECT_EQ(window.readings(), (Column{2, 5, 4, 5, 6, 5, 2}));
    EXPECT_EQ(window.marks(), (Rows{0, 6}));
    EXPECT_EQ(window.baseline(), Column(7, 2));
    EXPECT_EQ(window.converted(), Column(7, 0));
}

TEST(Interpolate, onReadingsUnderTurboWithoutAPointInsideItsSegmentIsRecomputed)
{
    PointsWindow window({4, 4, 2, 9, 2, 4, 4});
    window.view.Turbo = true;
    window.mark({0, 6});
    window.select(2, 4);
    window.points.interpolate();
    EXPECT_EQ(window.marks(), (Rows{0, 6}));
    EXPECT_EQ(window.baseline(), Column(7, 4));
    EXPECT_EQ(window.converted(), (Column{0, 0, 119, 119, 119, 0, 0})); // 119 x (4/2 - 1)^1.23
}

TEST(Interpolate, onTheConvertedLayerUnderTurboThePointsStay)
{
    PointsWindow window({2, 5, 4, 2});
    window.view.Turbo = true;
    window.view.curLayer = kConverted;
    window.mark({0, 1, 3});
    window.select(0, 3);
    window.points.interpolate();
    EXPECT_EQ(window.marks(), (Rows{0, 1, 3}));
    EXPECT_EQ(window.baseline(), Column(4, untouched));
}

TEST(Interpolate, withoutTurboThePointsStay)
{
    PointsWindow window({2, 5, 4, 2});
    window.mark({0, 1, 3});
    window.select(0, 3);
    window.points.interpolate();
    EXPECT_EQ(window.marks(), (Rows{0, 1, 3}));
    EXPECT_EQ(window.baseline(), Column(4, untouched));
}

TEST(Interpolate, underTurboAColumnThatIsNoSensorIsOnlyFilled)
{
    PointsWindow window({1, 5, 3});
    window.view.Turbo = true;
    window.view.curSensor = -1;
    window.select(0, 2);
    window.points.interpolate();
    EXPECT_EQ(window.readings(), (Column{1, 2, 3}));
    EXPECT_EQ(window.baseline(), Column(3, untouched));
}

TEST(Interpolate, anEmptySelectionRowsOutsideOrNoColumnDoNothing)
{
    PointsWindow window({1, 9, 3});
    for (const auto& [first, last] : std::vector<std::pair<std::int32_t, std::int32_t>>{{2, 0}, {0, 3}, {-1, 2}}) {
        window.select(first, last);
        window.points.interpolate();
    }
    window.choose(-1);
    window.select(0, 2);
    window.points.interpolate();
    EXPECT_EQ(window.readings(), (Column{1, 9, 3}));
    EXPECT_TRUE(window.nothingHappened());
    EXPECT_EQ(window.fakeUi.beeps, 0);
}

TEST(BaselinePoints, theBaselinePassesThroughItsPointsWhenNoReadingIsMissing)
{
    std::mt19937 random(7); // fixed: the same records in every run
    for (int round = 0; round < 50; ++round) {
        Column readings(60);
        for (auto& reading : readings) reading = std::uniform_real_distribution<>(1, 20)(random);
        PointsWindow window(readings);
        for (int i = 0; i < 6; ++i) window.points.setPoint(std::uniform_int_distribution<>(0, 59)(random), -1, false);
        const Rows marks = window.marks();
        if (marks.size() < 2) continue;
        for (const auto row : marks)
            EXPECT_NEAR(window.baseline()[static_cast<std::size_t>(row)], readings[static_cast<std::size_t>(row)],
                        1e-9);
    }
}

} // namespace
} // namespace tarvelint::test
