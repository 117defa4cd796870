// SPDX-License-Identifier: MIT
#include "batch/batch_run.h"

#include "batch_bench.h"

#include <gtest/gtest.h>

#include <sstream>

namespace tarvelint::test {
namespace {

/// PAR, VPD and a sensor over two nights; points come to rows 5 and 39, so rows 5 to 39 have a baseline.
class EquationRun : public BatchBench {
protected:
    bool onTerminal = false;
    ExitStatus expected = kDone;

    EquationRun()
    {
        std::string& text = files.contents["in.csv"];
        text = "PAR,VPD,S\r\n";
        for (int row = 0; row < 40; ++row) {
            const bool night = row < 10 || row >= 30;
            text += night ? "0,0.01," : "500,1.5,";
            text += row == 5 || row == 35 || row == 39 ? "1000\r\n" : night ? "990\r\n" : "800\r\n";
        }
    }
    /// The converted layer's rows; "" when the run failed.
    std::string run(std::vector<const char*> more)
    {
        more.insert(more.end(), {"--layers", "converted", "--no-header"});
        return fileOf(more);
    }
    std::string fileOf(const std::vector<const char*>& more)
    {
        const auto options = optionsOf({"--vpd-column", "2", "--par-column", "1", "--parameters", "1,2"}, more);
        if (!options) return {};
        EXPECT_EQ(BatchBench::run(*options, onTerminal), expected) << err.str();
        return files.contents["out.csv"];
    }
};

TEST_F(EquationRun, theDefaultEquationGivesWhatTheFixedConversionGives)
{
    const std::string fixed = run({});
    EXPECT_EQ(run({"--equation", "119*((B/X)-1)^1.23"}), fixed);
    EXPECT_TRUE(err.str().empty());
}

TEST_F(EquationRun, valuesComeFromTheEquationWhereThereIsABaseline)
{
    const std::string rows = run({"--equation", "B-X"});
    // Row 10 is by day: 1000 - 800; rows before the first point have no baseline.
    EXPECT_TRUE(rows.starts_with(".,.,.,\r\n"));
    EXPECT_NE(rows.find(".,.,200,\r\n"), std::string::npos);
}

TEST_F(EquationRun, aRepairedEquationIsShown)
{
    run({"--equation", "2X + B"});
    EXPECT_EQ(err.str(), "tarvelint-batch: the equation reads 2*X+B\n");
    err.str("");
    run({"--equation", "2X + B", "--quiet"});
    EXPECT_TRUE(err.str().empty());
}

// An unset variable of a script looks like this: it is an equation, but not in silence.
TEST_F(EquationRun, anEmptyEquationGivesZerosAndSaysSo)
{
    for (const char* const empty : {"", "  "}) {
        EXPECT_NE(run({"--equation", empty, "--quiet"}).find(".,.,0,\r\n"), std::string::npos);
        EXPECT_EQ(err.str(), "tarvelint-batch: the equation is empty, so every converted value is 0\n");
        err.str("");
    }
}

TEST_F(EquationRun, theSideOfTheBaselineCanBeChosen)
{
    EXPECT_NE(run({"--equation", "X"}).find(".,.,800,\r\n"), std::string::npos);
    const std::string low = run({"--equation", "X", "--no-baseline-is-high"});
    EXPECT_EQ(low.find(".,.,800,\r\n"), std::string::npos); // raised to the baseline
    EXPECT_NE(low.find(".,.,1000,\r\n"), std::string::npos);
    EXPECT_NE(run({"--equation", "X", "--baseline-is-high"}).find(".,.,800,\r\n"), std::string::npos);
}

TEST_F(EquationRun, bothSidesAtOnceAreAWrongCommandLine)
{
    EXPECT_TRUE(run({"--equation", "X", "--baseline-is-high", "--no-baseline-is-high"}).empty());
    EXPECT_NE(err.str().find("--baseline-is-high excludes --no-baseline-is-high"), std::string::npos);
}

TEST_F(EquationRun, aSideTakesNoValue)
{
    for (const char* const side : {"--baseline-is-high=false", "--baseline-is-high=0", "--no-baseline-is-high=false"}) {
        err.str("");
        EXPECT_TRUE(run({"--equation", "X", side}).empty()) << side;
        EXPECT_NE(err.str().find("baseline-is-high"), std::string::npos) << side;
    }
}

// A file that was converted before brings baselines of its own where no night of this run has laid one.
TEST_F(EquationRun, convertsOnTheBaselinesItHasLaidOnly)
{
    files.contents["in.csv"] = fileOf({"--equation", "B-X"});
    expected = kDataFault;                                 // no sensor is converted
    const std::string before = run({"--vpd-limit", "-1"}); // never calm: no points
    EXPECT_NE(before.find(".,.,200,\r\n"), std::string::npos);
    out.str("");
    EXPECT_EQ(run({"--vpd-limit", "-1", "--equation", "X+B"}), before);
    EXPECT_EQ(out.str(), "3: 0 points, 0 rows converted, 40 readings left unconverted, 0 rows missing\n");
    expected = kDone;
    EXPECT_NE(run({"--equation", "X+B"}).find(".,.,1800,\r\n"), std::string::npos);
}

TEST_F(EquationRun, onePointLaysNoBaseline)
{
    std::string text = fileOf({"--equation", "B-X"});
    for (std::size_t at = 0, row = 0; row < 40; ++row) { // the first layer, below the header
        at = text.find('\n', at) + 1;
        if (row >= 30) text.replace(at, 1, "9"); // PAR: no second night
    }
    files.contents["in.csv"] = text;
    expected = kDataFault;
    const std::string before = run({});
    out.str("");
    EXPECT_EQ(run({"--equation", "X+B"}), before);
    EXPECT_EQ(out.str(), "3: 1 points, 0 rows converted, 40 readings left unconverted, 0 rows missing\n");
}

TEST_F(EquationRun, errorsAreCountedOnceASensorWithTheirFirstRow)
{
    run({"--equation", "X/(B-B)", "--quiet"});
    // Rows 6 to 40 as a person counts them, 35 in all.
    EXPECT_EQ(err.str(),
              "tarvelint-batch: S: equation errors: 35, the first in row 6: Division by Zero! This was caused "
              "by (B-B)\n");
}

TEST_F(EquationRun, eachSensorHasItsOwnCount)
{
    std::string& text = files.contents["in.csv"];
    std::string twice;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        line.pop_back(); // the CR
        const std::string reading = line.substr(line.rfind(',') + 1);
        twice += line + ',' + (reading == "S" ? "T" : "1") + "\r\n";
    }
    text = twice;
    run({"--equation", "X/(B-1)", "--quiet"}); // 0 only where the baseline is 1, as it is all along T
    EXPECT_EQ(err.str().find("S: equation errors"), std::string::npos);
    EXPECT_NE(err.str().find("T: equation errors: "), std::string::npos);
    err.str("");
    run({"--equation", "X/0", "--quiet"});
    EXPECT_NE(err.str().find("S: equation errors: 35, the first in row 6"), std::string::npos);
    const auto ofT = err.str().find("T: equation errors: ");
    ASSERT_NE(ofT, std::string::npos);
    EXPECT_LE(std::stoi(err.str().substr(ofT + 20)), 40); // a count of its own, not the sum
}

TEST_F(EquationRun, anEquationWithoutRepairIsTakenAsTypedAndSaysSo)
{
    for (const char* const typed : {")X", "()"}) {
        EXPECT_NE(run({"--equation", typed, "--quiet"}).find(".,.,0,\r\n"), std::string::npos);
        EXPECT_EQ(err.str(), "tarvelint-batch: the equation cannot be repaired, because nothing stands before a \")\"; "
                             "it is taken as typed\n");
        err.str("");
    }
}

TEST_F(EquationRun, anEquationMayBeginWithItsSign)
{
    EXPECT_NE(run({"--equation", "-X"}).find(".,.,-800,\r\n"), std::string::npos);
}

TEST_F(EquationRun, noticesStartALineOfTheirOwnOnATerminal)
{
    clock.step = std::chrono::milliseconds(100); // every row is shown
    onTerminal = true;
    run({"--equation", "X /0"});
    EXPECT_NE(err.str().find("\r\033[Ktarvelint-batch: the equation reads X/0\n"), std::string::npos);
    EXPECT_NE(err.str().find("\r\033[KConverting with the equation "), std::string::npos);
    EXPECT_NE(err.str().find("\r\033[Ktarvelint-batch: S: equation errors"), std::string::npos);
}

TEST_F(EquationRun, anEquationThatIsTooLongIsAWrongCommandLine)
{
    const std::string equation(32768, '1');
    EXPECT_TRUE(run({"--equation", equation.c_str()}).empty());
    EXPECT_NE(err.str().find("32767"), std::string::npos);
}

} // namespace
} // namespace tarvelint::test
