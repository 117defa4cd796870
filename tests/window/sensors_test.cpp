// SPDX-License-Identifier: MIT
#include "window/sensors.h"

#include <gtest/gtest.h>

namespace tarvelint::test {
namespace {

/// Two sensors in columns 2 and 4 of a record of six rows, points of the first at rows 1 and 4.
Sensors twoSensors()
{
    Sensors sensors;
    sensors.assign({2, 4}, 6);
    sensors.setPoint(0, 1, true);
    sensors.setPoint(0, 4, true);
    return sensors;
}

TEST(Sensors, areNoneBeforeZeroFlowIsLookedFor)
{
    const Sensors sensors;
    EXPECT_EQ(sensors.count(), 0);
    EXPECT_FALSE(sensors.has(0));
    EXPECT_EQ(sensors.ordinalOf(0), -1);
    EXPECT_FALSE(sensors.isPoint(0, 0));
    EXPECT_EQ(sensors.pointUpTo(0, 5), std::nullopt);
    EXPECT_EQ(sensors.pointFrom(0, 0), std::nullopt);
}

TEST(Sensors, haveAColumnEachAndAreFoundByIt)
{
    const Sensors sensors = twoSensors();
    EXPECT_EQ(sensors.count(), 2);
    EXPECT_EQ(sensors.column(0), 2);
    EXPECT_EQ(sensors.column(1), 4);
    EXPECT_EQ(sensors.ordinalOf(4), 1);
    EXPECT_EQ(sensors.ordinalOf(3), -1);
    EXPECT_FALSE(sensors.has(-1));
    EXPECT_FALSE(sensors.has(2));
}

TEST(Sensors, pointsAreMarkedBySensorAndRow)
{
    Sensors sensors = twoSensors();
    EXPECT_TRUE(sensors.isPoint(0, 4));
    EXPECT_FALSE(sensors.isPoint(1, 4));
    EXPECT_FALSE(sensors.isPoint(0, 5));
    sensors.setPoint(0, 4, false);
    EXPECT_FALSE(sensors.isPoint(0, 4));
    EXPECT_TRUE(sensors.isPoint(0, 1));
}

TEST(Sensors, aPointOfOneIsNoneOfItsNeighbours)
{
    Sensors sensors = twoSensors();
    sensors.setPoint(0, 5, true); // its last row, with the neighbour's first row next in memory
    EXPECT_EQ(sensors.pointUpTo(1, 5), std::nullopt);
    sensors.setPoint(0, 5, false);
    sensors.setPoint(0, 4, false);
    sensors.setPoint(1, 0, true);
    EXPECT_EQ(sensors.pointFrom(0, 2), std::nullopt);
}

TEST(Sensors, noPointStandsOutsideTheRecord)
{
    const Sensors sensors = twoSensors();
    EXPECT_FALSE(sensors.isPoint(0, -1));
    EXPECT_FALSE(sensors.isPoint(0, 6));
    EXPECT_FALSE(sensors.isPoint(2, 1));
    EXPECT_FALSE(sensors.isPoint(-1, 1));
}

TEST(Sensors, thePointUpToARowIsTheLastThereOrBefore)
{
    const Sensors sensors = twoSensors();
    EXPECT_EQ(sensors.pointUpTo(0, 0), std::nullopt);
    EXPECT_EQ(sensors.pointUpTo(0, 1), 1);
    EXPECT_EQ(sensors.pointUpTo(0, 3), 1);
    EXPECT_EQ(sensors.pointUpTo(0, 4), 4);
    EXPECT_EQ(sensors.pointUpTo(0, 99), 4);
    EXPECT_EQ(sensors.pointUpTo(0, -1), std::nullopt);
    EXPECT_EQ(sensors.pointUpTo(1, 5), std::nullopt);
}

TEST(Sensors, thePointFromARowIsTheFirstThereOrAfter)
{
    const Sensors sensors = twoSensors();
    EXPECT_EQ(sensors.pointFrom(0, -7), 1);
    EXPECT_EQ(sensors.pointFrom(0, 1), 1);
    EXPECT_EQ(sensors.pointFrom(0, 2), 4);
    EXPECT_EQ(sensors.pointFrom(0, 5), std::nullopt);
    EXPECT_EQ(sensors.pointFrom(0, 99), std::nullopt);
    EXPECT_EQ(sensors.pointFrom(1, 0), std::nullopt);
}

TEST(Sensors, newOnesHaveNoPoints)
{
    Sensors sensors = twoSensors();
    sensors.assign({2}, 7);
    EXPECT_EQ(sensors.count(), 1);
    EXPECT_EQ(sensors.lines(), 7);
    EXPECT_EQ(sensors.pointFrom(0, 0), std::nullopt);
    sensors.clear();
    EXPECT_EQ(sensors.count(), 0);
}

} // namespace
} // namespace tarvelint::test
