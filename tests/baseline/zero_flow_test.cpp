// SPDX-License-Identifier: MIT
#include "baseline/zero_flow.h"

#include "baseline/baseline_points.h"
#include "support/test_window.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace tarvelint::test {
namespace {

using Column = std::vector<double>;
using Rows = std::vector<std::int32_t>;

constexpr double blank = 99999;

/// Sensor columns whose rows are all flagged until a test says otherwise; every column is a sensor column.
class BaseWindow : public TestWindow {
public:
    BaselinePoints points{*this};
    bool converts = false; ///< the real segment computation runs as well

    explicit BaseWindow(const std::vector<Column>& columns)
    {
        setReadings(columns);
        data.lullFlags.assign(static_cast<std::size_t>(data.lines), true);
        sensors = data.columns;
    }
    void flagOnly(const Rows& rows)
    {
        data.lullFlags.assign(static_cast<std::size_t>(data.lines), false);
        for (const auto row : rows) data.lullFlags[static_cast<std::size_t>(row)] = true;
    }
    void turboCalc(std::int32_t column, std::int32_t lPoint, std::int32_t rPoint) override
    {
        TestWindow::turboCalc(column, lPoint, rPoint);
        EXPECT_EQ(text(Control::statusPanel1), "Converting all data...");
        if (converts) points.turboCalc(column, lPoint, rPoint);
    }
    [[nodiscard]] Rows pointsOf(std::int32_t sensor)
    {
        ZeroFlow(*this).getBase();
        Rows rows;
        for (std::int32_t r = 0; r < data.lines; ++r)
            if (basePoints(sensor, r)) rows.push_back(r);
        return rows;
    }
};

/// `lines` rows of 1 with other readings at some rows.
Column flat(std::size_t lines, const std::vector<std::pair<std::size_t, double>>& others = {})
{
    Column readings(lines, 1);
    for (const auto& [row, reading] : others) readings[row] = reading;
    return readings;
}

/// Only the rows with a reading of their own are flagged.
Rows pointsOnFlagged(std::size_t lines, const std::vector<std::pair<std::size_t, double>>& flaggedReadings)
{
    BaseWindow window({flat(lines, flaggedReadings)});
    Rows rows;
    for (const auto& entry : flaggedReadings) rows.push_back(static_cast<std::int32_t>(entry.first));
    window.flagOnly(rows);
    return window.pointsOf(0);
}

TEST(GetBase, aPointStandsOnTheHighestReadingOfALull)
{
    EXPECT_EQ(pointsOnFlagged(90, {{10, 5}, {11, 7}, {12, 8}, {13, 6}}), Rows{12});
}

TEST(GetBase, rowsOutsideLullsBearNoPoint)
{
    BaseWindow window({flat(90, {{30, 50}})});
    window.flagOnly({20});
    EXPECT_EQ(window.pointsOf(0), Rows{20});
}

TEST(GetBase, aHigherReading24RowsOnTakesThePoint)
{
    EXPECT_EQ(pointsOnFlagged(90, {{0, 5}, {24, 6}}), Rows{24});
}

TEST(GetBase, aHigherReading25RowsOnIsAPointOfItsOwn)
{
    EXPECT_EQ(pointsOnFlagged(90, {{0, 5}, {25, 6}}), (Rows{0, 25}));
}

TEST(GetBase, lowerReadingsWithin24RowsAreSkipped)
{
    EXPECT_EQ(pointsOnFlagged(90, {{0, 5}, {1, 4}, {24, 4}, {30, 3}}), (Rows{0, 30}));
}

TEST(GetBase, anEqualReadingDoesNotTakeThePoint)
{
    EXPECT_EQ(pointsOnFlagged(90, {{3, 5}, {4, 5}}), Rows{3});
}

TEST(GetBase, theReadingToBeatIsHeldIn32Bits)
{
    // 0.7 is 0.69999998807... in 32 bits: an equal reading exceeds it. 0.1 is 0.10000000149...: 0.1000000001 does not.
    EXPECT_EQ(pointsOnFlagged(90, {{3, 0.7}, {4, 0.7}}), Rows{4});
    EXPECT_EQ(pointsOnFlagged(90, {{3, 0.1}, {4, 0.1000000001}}), Rows{3});
}

TEST(GetBase, readingsBeyond32BitsCompareAsInfinite)
{
    EXPECT_EQ(pointsOnFlagged(90, {{3, 1e300}, {4, 1e301}}), Rows{3});
    EXPECT_EQ(pointsOnFlagged(90, {{3, -1e300}, {4, -1e301}}), Rows{4});
}

TEST(GetBase, aMissingReadingCountsAsHigherAndBearsNoPoint)
{
    // The candidate in row 3 gives way to the missing row 5; after that the search starts again in row 6.
    EXPECT_EQ(pointsOnFlagged(90, {{3, 8}, {5, blank}, {6, 7}}), Rows{6});
}

TEST(GetBase, whenTheRecordEndsWithinReachThePointGoesToTheLastRow)
{
    EXPECT_EQ(pointsOnFlagged(20, {{5, 8}}), Rows{19}); // row 19 is not even flagged
}

TEST(GetBase, aMissingLastRowThenBearsNoPoint)
{
    BaseWindow window({flat(20, {{5, 8}, {19, blank}})});
    window.flagOnly({5});
    EXPECT_EQ(window.pointsOf(0), Rows{});
}

TEST(GetBase, aLookAheadThatJustFitsKeepsTheCandidate)
{
    EXPECT_EQ(pointsOnFlagged(25, {{0, 8}}), Rows{0});  // the 24 rows 1 to 24 exist
    EXPECT_EQ(pointsOnFlagged(24, {{0, 8}}), Rows{23}); // row 24 does not
}

TEST(GetBase, everySensorHasItsOwnPoints)
{
    BaseWindow window({flat(60, {{5, 9}}), flat(60, {{8, 9}})});
    window.flagOnly({5, 6, 7, 8});
    EXPECT_EQ(window.pointsOf(0), Rows{5});
    EXPECT_EQ(window.pointsOf(1), Rows{8});
}

TEST(GetBase, earlierPointsGo)
{
    BaseWindow window({flat(60)});
    window.flagOnly({5});
    window.basePoints.allocate(3, 60);
    window.basePoints.set(0, 40, true);
    EXPECT_EQ(window.pointsOf(0), Rows{5});
    EXPECT_EQ(window.basePoints.sensors(), 1);
}

TEST(GetBase, withoutAColumnSetUpEveryColumnIsASensor)
{
    BaseWindow window({flat(3), flat(3), flat(3)});
    ZeroFlow(window).getBase();
    EXPECT_EQ(window.sensorCols, (Rows{1, 2, 3}));
}

TEST(GetBase, parameterColumnsAreLeftOut)
{
    BaseWindow window({flat(60), flat(60, {{5, 9}}), flat(60), flat(60)});
    window.data.labels = {"VPD", "A", "PAR", "B"};
    window.labelFrm = std::make_unique<ColumnSetup>(window);
    window.labelFrm->Form_Load();
    window.labelFrm->setCheckBox(1, true);
    window.labelFrm->setCheckBox(3, true);
    window.labelFrm->OKButton_Click();
    window.sensors = 2;
    window.flagOnly({4, 5});
    EXPECT_EQ(window.pointsOf(0), Rows{5});
    EXPECT_EQ(window.sensorCols, (Rows{2, 4}));
}

TEST(GetBase, aCountOfSensorsThatDoesNotFitTheColumnsIsSafe)
{
    BaseWindow many({flat(60)});
    many.sensors = 3;
    EXPECT_EQ(many.pointsOf(2), Rows{});
    EXPECT_EQ(many.sensorCols, (Rows{1, 0, 0}));

    BaseWindow few({flat(60), flat(60)});
    few.sensors = 1;
    ZeroFlow(few).getBase();
    EXPECT_EQ(few.sensorCols, Rows{1});

    BaseWindow none({flat(60)});
    none.sensors = -1;
    ZeroFlow(none).getBase();
    EXPECT_EQ(none.sensorCols, Rows{});
}

TEST(GetBase, anEmptyRecordHasNoPoints)
{
    BaseWindow window({});
    ZeroFlow(window).getBase();
    EXPECT_EQ(window.basePoints.lines(), 0);
    EXPECT_TRUE(window.calls.empty());
}

// Conversion between the points

TEST(GetBase, consecutivePointsOfASensorAreJoined)
{
    BaseWindow window({flat(130), flat(130)});
    window.flagOnly({10, 50, 100});
    ZeroFlow(window).getBase();
    EXPECT_THAT(window.calls, testing::UnorderedElementsAre("turboCalc 0 10 50", "turboCalc 0 50 100",
                                                            "turboCalc 1 10 50", "turboCalc 1 50 100"));
}

TEST(GetBase, segmentsOfALongRecordFollowEachOtherInOrder)
{
    BaseWindow window({flat(5000)});
    window.flagOnly({1000, 1023, 1100, 3500, 4096});
    ZeroFlow(window).getBase(); // rows 1000 and 1023 are one lull
    EXPECT_EQ(window.calls,
              (std::vector<std::string>{"turboCalc 0 1000 1100", "turboCalc 0 1100 3500", "turboCalc 0 3500 4096"}));
}

TEST(GetBase, aSinglePointGivesNoBaseline)
{
    BaseWindow window({flat(60)});
    window.flagOnly({10});
    EXPECT_EQ(window.pointsOf(0), Rows{10});
    EXPECT_TRUE(window.calls.empty());
}

TEST(GetBase, rowsBeforeTheFirstAndAfterTheLastPointStayAsTheyWere)
{
    BaseWindow window({flat(90)});
    window.converts = true;
    window.flagOnly({10, 40});
    ZeroFlow(window).getBase();
    Column expected(90, 0);
    std::fill(expected.begin() + 10, expected.begin() + 41, 1);
    EXPECT_EQ(window.column(kBaseline, 0), expected);
}

TEST(GetBase, tellsWhatItIsDoing)
{
    BaseWindow window({flat(60)});
    // What the panel shows already is not told again: one change is left when the first text stands there beforehand.
    window.setStatus(1, "Determining baseline points...");
    window.fakeUi.changes.clear();
    ZeroFlow(window).getBase();
    EXPECT_EQ(std::ranges::count(window.fakeUi.changes, Control::statusPanel1), 1);
    EXPECT_EQ(window.text(Control::statusPanel1), "Converting all data...");

    window.fakeUi.changes.clear();
    ZeroFlow(window).getBase();
    EXPECT_EQ(std::ranges::count(window.fakeUi.changes, Control::statusPanel1), 2);
}

TEST(GetBase, marksTheRecordAsChanged)
{
    BaseWindow window({flat(60)});
    ZeroFlow(window).getBase();
    EXPECT_FALSE(window.data.saveCheck);
}

TEST(GetBase, pointsStandOnFlaggedRowsAtLeast25RowsApart)
{
    std::mt19937 random(11); // fixed: the same records in every run
    std::size_t pairs = 0;
    for (int round = 0; round < 50; ++round) {
        Column readings(400);
        for (auto& reading : readings) reading = random() % 10 == 0 ? blank : static_cast<double>(random() % 100) / 7;
        BaseWindow window({readings});
        for (std::size_t r = 0; r < readings.size(); ++r) window.data.lullFlags[r] = random() % 3 == 0;
        const Rows rows = window.pointsOf(0);
        for (std::size_t i = 0; i < rows.size(); ++i) {
            const auto row = static_cast<std::size_t>(rows[i]);
            EXPECT_TRUE(window.data.lullFlags[row] || row == readings.size() - 1);
            EXPECT_NE(readings[row], blank);
            if (i == 0) continue;
            EXPECT_GE(rows[i] - rows[i - 1], 25);
            ++pairs;
        }
    }
    EXPECT_GT(pairs, 50U);
}

} // namespace
} // namespace tarvelint::test
