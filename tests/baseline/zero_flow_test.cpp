// SPDX-License-Identifier: MIT
#include "baseline/zero_flow.h"

#include "support/grid.h"

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
using Texts = std::vector<std::string>;

constexpr double blank = 99999;

/// A record whose rows are all flagged until a test says otherwise; every column is a sensor column.
class Flagged {
public:
    Record record;
    Sensors sensors;
    Texts told; ///< what was said to be done

    explicit Flagged(const std::vector<Column>& columns)
    {
        setReadings(record, columns);
        record.lullFlags.assign(static_cast<std::size_t>(record.lines), true);
    }
    void flagOnly(const Rows& rows)
    {
        record.lullFlags.assign(static_cast<std::size_t>(record.lines), false);
        for (const auto row : rows) record.lullFlags[static_cast<std::size_t>(row)] = true;
    }
    std::int32_t getBase()
    {
        return tarvelint::getBase(record, sensors, [this](const char* text) { told.emplace_back(text); });
    }
    [[nodiscard]] Rows pointsOf(std::int32_t sensor)
    {
        getBase();
        Rows rows;
        for (std::int32_t r = 0; r < record.lines; ++r)
            if (sensors.isPoint(sensor, r)) rows.push_back(r);
        return rows;
    }
    [[nodiscard]] Column baseline(std::int32_t column) const { return columnOf(record, kBaseline, column); }
    [[nodiscard]] Rows sensorCols() const
    {
        Rows columns;
        for (std::int32_t i = 0; i < sensors.count(); ++i) columns.push_back(sensors.column(i));
        return columns;
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
    Flagged window({flat(lines, flaggedReadings)});
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
    Flagged window({flat(90, {{30, 50}})});
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
    Flagged window({flat(20, {{5, 8}, {19, blank}})});
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
    Flagged window({flat(60, {{5, 9}}), flat(60, {{8, 9}})});
    window.flagOnly({5, 6, 7, 8});
    EXPECT_EQ(window.pointsOf(0), Rows{5});
    EXPECT_EQ(window.pointsOf(1), Rows{8});
}

TEST(GetBase, earlierPointsGo)
{
    Flagged window({flat(60)});
    window.flagOnly({5});
    window.sensors.assign({0, 1, 2}, 60);
    window.sensors.setPoint(0, 40, true);
    EXPECT_EQ(window.pointsOf(0), Rows{5});
    EXPECT_EQ(window.sensors.count(), 1);
}

TEST(GetBase, withoutAMarkEveryColumnIsASensor)
{
    Flagged window({flat(3), flat(3), flat(3)});
    window.getBase();
    EXPECT_EQ(window.sensorCols(), (Rows{0, 1, 2}));
}

TEST(GetBase, parameterColumnsAreLeftOut)
{
    Flagged window({flat(60), flat(60, {{5, 9}}), flat(60), flat(60)});
    window.record.parameters = {true, false, true, false};
    window.flagOnly({4, 5});
    EXPECT_EQ(window.pointsOf(0), Rows{5});
    EXPECT_EQ(window.sensorCols(), (Rows{1, 3}));
}

TEST(GetBase, aRecordOfParametersOnlyHasNoSensor)
{
    Flagged window({flat(60)});
    window.record.parameters = {true};
    EXPECT_EQ(window.getBase(), 0);
    EXPECT_EQ(window.sensors.count(), 0);
}

TEST(GetBase, anEmptyRecordHasNoPoints)
{
    Flagged window({});
    EXPECT_EQ(window.getBase(), 0);
    EXPECT_EQ(window.sensors.count(), 0);
}

TEST(GetBase, countsThePointsOfAllSensors)
{
    Flagged window({flat(60), flat(60)});
    window.flagOnly({5, 40});
    EXPECT_EQ(window.getBase(), 4);
    window.flagOnly({});
    EXPECT_EQ(window.getBase(), 0);
}

TEST(LayBaselines, placesThePointsInTheLullsItFindsFirst)
{
    Record record;
    Sensors sensors;
    setReadings(record, {{9, 0, 0, 0}, {9, 0, 0, 0}, {5, 5, 6, 5}});
    record.parameters = {true, true, false};
    ZeroFlowSettings settings;
    settings.vpdCol = 0;
    settings.parCol = 1;
    settings.lullTime = 0;
    // Row 1 opens the lull, rows 2 and 3 are flagged; the data end within reach, so the point goes to the last row.
    EXPECT_EQ(layBaselines(record, sensors, settings, [](const char*) {}), 1);
    EXPECT_TRUE(sensors.isPoint(0, 3));
}

// Conversion between the points

/// A baseline of its own for a column with points at `rows`: each line is summed from the reading at its start, and a
/// later line overwrites the end of the one before it.
Column joined(const Column& readings, const Rows& rows)
{
    Column baseline(readings.size(), 0);
    for (std::size_t i = 1; i < rows.size(); ++i) {
        const auto from = static_cast<std::size_t>(rows[i - 1]);
        const auto to = static_cast<std::size_t>(rows[i]);
        const double slope = (readings[to] - readings[from]) / static_cast<double>(to - from);
        double b = readings[from];
        for (std::size_t r = from; r <= to; ++r, b = b + slope) baseline[r] = b;
    }
    return baseline;
}

TEST(GetBase, consecutivePointsOfASensorAreJoined)
{
    const Column first = flat(130, {{10, 5}, {50, 5.7}, {100, 6.1}});
    const Column second = flat(130, {{10, 9}, {50, 3.3}, {100, 4}});
    Flagged window({first, second});
    window.flagOnly({10, 50, 100});
    window.getBase();
    EXPECT_EQ(window.baseline(0), joined(first, {10, 50, 100}));
    EXPECT_EQ(window.baseline(1), joined(second, {10, 50, 100}));
}

TEST(GetBase, segmentsOfALongRecordFollowEachOtherInOrder)
{
    // Sums of these slopes miss the next reading by their rounding: where two lines meet, the later one has the word.
    const Column readings = flat(5000, {{1000, 5.1}, {1100, 6.2}, {3500, 4.3}, {4096, 7.7}});
    Flagged window({readings});
    window.flagOnly({1000, 1023, 1100, 3500, 4096}); // rows 1000 and 1023 are one lull
    window.getBase();
    EXPECT_EQ(window.baseline(0), joined(readings, {1000, 1100, 3500, 4096}));
    EXPECT_EQ(window.baseline(0)[3500], 4.3);
}

TEST(GetBase, aSinglePointGivesNoBaseline)
{
    Flagged window({flat(60)});
    window.flagOnly({10});
    EXPECT_EQ(window.pointsOf(0), Rows{10});
    EXPECT_EQ(window.baseline(0), Column(60, 0));
}

TEST(GetBase, rowsBeforeTheFirstAndAfterTheLastPointStayAsTheyWere)
{
    Flagged window({flat(90)});
    window.flagOnly({10, 40});
    window.getBase();
    Column expected(90, 0);
    std::fill(expected.begin() + 10, expected.begin() + 41, 1);
    EXPECT_EQ(window.baseline(0), expected);
}

TEST(GetBase, tellsWhatItIsDoing)
{
    Flagged window({flat(60)});
    window.getBase();
    EXPECT_EQ(window.told, (Texts{"Determining baseline points...", "Converting all data..."}));
}

TEST(GetBase, pointsStandOnFlaggedRowsAtLeast25RowsApart)
{
    std::mt19937 random(11); // fixed: the same records in every run
    std::size_t pairs = 0;
    for (int round = 0; round < 50; ++round) {
        Column readings(400);
        for (auto& reading : readings) reading = random() % 10 == 0 ? blank : static_cast<double>(random() % 100) / 7;
        Flagged window({readings});
        for (std::size_t r = 0; r < readings.size(); ++r) window.record.lullFlags[r] = random() % 3 == 0;
        const Rows rows = window.pointsOf(0);
        for (std::size_t i = 0; i < rows.size(); ++i) {
            const auto row = static_cast<std::size_t>(rows[i]);
            EXPECT_TRUE(window.record.lullFlags[row] || row == readings.size() - 1);
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
