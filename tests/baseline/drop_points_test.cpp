// SPDX-License-Identifier: MIT
#include "points_window.h"

#include <gtest/gtest.h>

#include <random>

namespace tarvelint::test {
namespace {

/// The rule step by step: each point of the rows is unmarked by itself, and without any the first row once.
void dropOneByOne(PointsWindow& window, std::int32_t first, std::int32_t last)
{
    bool found = false;
    for (std::int32_t r = first; r <= last; ++r) {
        if (!window.sensors.isPoint(0, r)) continue;
        setPoint(window.record, window.sensors, 0, r, -1, true);
        found = true;
    }
    if (!found) setPoint(window.record, window.sensors, 0, first, -1, true);
}

/// A random column with gaps, points and a stretch of rows, the same for the same number.
struct RandomStretch {
    PointsWindow window;
    std::int32_t first;
    std::int32_t last;

    explicit RandomStretch(unsigned seed) : RandomStretch(std::mt19937(seed)) {}
    explicit RandomStretch(std::mt19937 random) : window(readings(random))
    {
        const std::int32_t lines = window.record.lines;
        std::uniform_int_distribution<std::int32_t> row(0, lines - 1);
        std::bernoulli_distribution isPoint(std::uniform_real_distribution(0.0, 0.6)(random));
        for (std::int32_t r = 0; r < lines; ++r)
            if (isPoint(random)) window.sensors.setPoint(0, r, true);
        first = row(random);
        last = std::uniform_int_distribution(first, lines - 1)(random);
    }
    static Column readings(std::mt19937& random)
    {
        Column column(static_cast<std::size_t>(std::uniform_int_distribution(1, 40)(random)));
        std::bernoulli_distribution isGap(0.25);
        std::uniform_real_distribution value(-2.0, 20.0);
        for (double& cell : column) cell = isGap(random) ? blank : value(random);
        return column;
    }
};

TEST(DropPoints, givesWhatTheSingleStepsGiveOnRandomColumns)
{
    for (unsigned seed = 1; seed <= 20000; ++seed) {
        RandomStretch stepwise(seed);
        RandomStretch atOnce(seed);
        dropOneByOne(stepwise.window, stepwise.first, stepwise.last);
        dropPoints(atOnce.window.record, atOnce.window.sensors, 0, atOnce.first, atOnce.last);
        ASSERT_EQ(atOnce.window.baseline(), stepwise.window.baseline()) << "seed " << seed;
        ASSERT_EQ(atOnce.window.converted(), stepwise.window.converted()) << "seed " << seed;
        ASSERT_EQ(atOnce.window.marks(), stepwise.window.marks()) << "seed " << seed;
    }
}

TEST(DropPoints, ofAHugeColumnFullOfPointsTakesItsRowsOnce)
{
    // Step by step these would be 200,000 segments of up to 200,000 rows.
    PointsWindow window(Column(200000, 10));
    for (std::int32_t r = 0; r < 200000; ++r) window.sensors.setPoint(0, r, true);
    dropPoints(window.record, window.sensors, 0, 1, 199998);
    EXPECT_EQ(window.marks(), (Rows{0, 199999}));
    EXPECT_EQ(window.baseline()[100000], 10);
}

TEST(EditedPoints, areThoseThatWereAddedMovedOrRemoved)
{
    PointsWindow window(Column(10, 5));
    window.mark({2, 7});
    window.points.setPoint(2, 2, false); // dropped on its own row
    window.points.setPoint(5, -1, true); // only recomputes
    window.points.setPoint(7, -1, false);
    EXPECT_FALSE(window.sensors.areEdited());
    window.points.setPoint(4, 2, false);
    EXPECT_TRUE(window.sensors.areEdited());
    window.makeSensors({0});
    EXPECT_FALSE(window.sensors.areEdited());
    window.points.setPoint(4, -1, false);
    EXPECT_TRUE(window.sensors.areEdited());
    window.makeSensors({0});
    window.mark({4});
    window.points.setPoint(4, -1, true);
    EXPECT_TRUE(window.sensors.areEdited());
}

} // namespace
} // namespace tarvelint::test
