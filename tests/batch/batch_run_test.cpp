// SPDX-License-Identifier: MIT
#include "batch/batch_run.h"

#include "app/shell_window.h"
#include "batch/console.h"
#include "batch_bench.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <vector>

namespace tarvelint::test {
namespace {

/// Day, time, PAR, VPD and two sensors over two nights: rows 0 to 9 and 30 to 39 are calm and dark, the readings of the
/// night peak at rows 5 and 35; sensor B misses row 20.
std::string twoNights(char delimiter)
{
    std::string text;
    const auto field = [&](const std::string& value) { text += value + delimiter; };
    for (const char* label : {"Day", "Time", "PAR", "VPD", "A", "B"}) field(label);
    text += "\r\n";
    for (int row = 0; row < 40; ++row) {
        const bool night = row < 10 || row >= 30;
        field("1");
        field(std::to_string(row));
        field(night ? "0" : "500");
        field(night ? "0.01" : "1.5");
        const int reading = row == 5 || row == 35 ? 1000 : night ? 990 : 800;
        field(std::to_string(reading));
        field(row == 20 ? "99999" : std::to_string(reading));
        text += "\r\n";
    }
    return text;
}

class BatchRun : public BatchBench {
protected:
    BatchOptions options;

    BatchRun()
    {
        files.contents["in.csv"] = twoNights(',');
        options.input = "in.csv";
        options.output = "out.csv";
        options.vpdColumn = 4;
    }
    int run(bool terminal = false) { return BatchBench::run(options, terminal); }
    [[nodiscard]] const std::string& written() { return files.contents["out.csv"]; }

    /// Runs the two nights with these arguments besides; the summary.
    std::string summaryWith(const std::vector<const char*>& more, ExitStatus expected = kDone)
    {
        options = optionsOf({"--vpd-column", "4"}, more).value_or(BatchOptions{});
        out.str({});
        EXPECT_EQ(run(), expected) << err.str();
        return out.str();
    }

    /// The same job done by hand in a window.
    std::string writtenByWindow(bool labels, FileType type = FileType::comma)
    {
        FakeUi ui;
        FakeApplication application;
        Engine window(ui, ui, {settings, style, files, clock}, application);
        window.lifecycle.Form_Load();
        ui.openChoices.push_back(ChosenFile{options.input, type});
        window.boundary.command([&] { window.files.mnuFileOpen_Click(); });
        for (int column1 = 1; column1 <= 4; ++column1) window.forms.labelFrm->setCheckBox(column1, true);
        window.forms.labelFrm->boxes.turboCheck = true;
        window.forms.labelFrm->boxes.vpdBox = "4";
        window.forms.labelFrm->boxes.saveBox = labels;
        window.boundary.command([&] { window.forms.labelFrm->OKButton_Click(); });
        ui.onSaveContents = [&] { window.forms.typeFrm->OKButton_Click(); };
        ui.saveChoices.push_back(ChosenFile{"window", type});
        window.boundary.command([&] { window.files.mnuFileSave_Click(); });
        EXPECT_TRUE(ui.messages.empty());
        return files.contents[window.file.savePath];
    }
};

TEST_F(BatchRun, writesTheBytesThatTheWindowWrites)
{
    ASSERT_EQ(run(), kDone) << err.str();
    EXPECT_EQ(written(), writtenByWindow(false));
    EXPECT_NE(written().find("unconverted-baseline-converted"), std::string::npos);
}

TEST_F(BatchRun, writesTheBytesThatTheWindowWritesAlsoBetweenTabsAndBlanks)
{
    for (const FileType type : {FileType::tab, FileType::space}) {
        files.contents["in.dat"] = twoNights(delimiterOf(type));
        options.input = "in.dat";
        options.inputType = options.outputType = type;
        ASSERT_EQ(run(), kDone) << err.str();
        EXPECT_EQ(written(), writtenByWindow(false, type));
        EXPECT_NE(written().find(delimiterOf(type) + std::string("40 rows each") + delimiterOf(type)),
                  std::string::npos);
    }
}

TEST_F(BatchRun, labelsAreWrittenWhenAskedFor)
{
    options.choices.labels = true;
    ASSERT_EQ(run(), kDone);
    EXPECT_EQ(written(), writtenByWindow(true));
    EXPECT_NE(written().find("\r\nDay,Time,PAR,VPD,A,B,\r\n"), std::string::npos);
}

TEST_F(BatchRun, saysOneLineASensorWithPointsRowsConvertedAndRowsMissing)
{
    ASSERT_EQ(run(), kDone);
    // Night one is flagged from row 3 on (lull time 3) and peaks at row 5. Night two peaks at row 35, from where
    // looking ahead runs off the data, which puts the point on row 39: rows 5 to 39 are converted, 35 of them; B misses
    // one.
    EXPECT_EQ(out.str(), "A: 2 points, 35 rows converted, 5 readings left unconverted, 0 rows missing\n"
                         "B: 2 points, 34 rows converted, 5 readings left unconverted, 1 rows missing\n");
    EXPECT_TRUE(err.str().empty());
}

TEST_F(BatchRun, aSensorWithoutTwoPointsIsAWarningThatNamesTheLowestVpdAndPar)
{
    options.zeroFlow.vpdLimit = 0.001F;
    EXPECT_EQ(run(), kDataFault);
    EXPECT_EQ(
        err.str(),
        "tarvelint-batch: A: 0 points are too few for a baseline, so nothing was converted; the lowest VPD is 0.01 "
        "(limit 0.001), the lowest PAR 0 (limit 0.01)\n"
        "tarvelint-batch: B: 0 points are too few for a baseline, so nothing was converted; the lowest VPD is 0.01 "
        "(limit 0.001), the lowest PAR 0 (limit 0.01)\n"
        "tarvelint-batch: in.csv: no sensor was converted\n");
}

TEST_F(BatchRun, warnsAlsoWhenItIsToBeQuiet)
{
    options.zeroFlow.vpdLimit = 0.001F;
    options.quiet = true;
    EXPECT_EQ(run(), kDataFault);
    EXPECT_NE(err.str().find("A: 0 points are too few"), std::string::npos);
    EXPECT_TRUE(out.str().empty());
}

TEST_F(BatchRun, theOutputIsWrittenAlsoWhenNoSensorWasConverted)
{
    options.zeroFlow.vpdLimit = 0.001F;
    EXPECT_EQ(run(), kDataFault);
    EXPECT_NE(written().find("unconverted-baseline-converted"), std::string::npos);
}

TEST_F(BatchRun, oneSensorConvertedIsEnough)
{
    std::string& text = files.contents["in.csv"];
    for (auto at = text.find(",1000,\r"); at != std::string::npos; at = text.find(",1000,\r", at + 1))
        text.replace(at, 6, ",99999");
    for (auto at = text.find(",990,\r"); at != std::string::npos; at = text.find(",990,\r", at + 1))
        text.replace(at, 5, ",99999"); // B has no reading at night
    EXPECT_EQ(run(), kDone) << err.str();
    EXPECT_NE(err.str().find("B: 0 points"), std::string::npos);
    EXPECT_EQ(err.str().find("A: "), std::string::npos);
    EXPECT_EQ(err.str().find("no sensor"), std::string::npos);
}

TEST_F(BatchRun, aVpdThatIsMissingThroughoutIsSaid)
{
    std::string& text = files.contents["in.csv"];
    for (const std::string vpd : {",0.01,", ",1.5,"})
        for (auto at = text.find(vpd); at != std::string::npos; at = text.find(vpd, at + 1))
            text.replace(at, vpd.size(), ",99999,");
    EXPECT_EQ(run(), kDataFault);
    EXPECT_NE(err.str().find("the lowest VPD is missing throughout (limit 0.05)"), std::string::npos) << err.str();
}

TEST_F(BatchRun, aFileNameOfOneLetterStandsInItsMessage)
{
    options.input = "a";
    files.contents["a"] = "Tarvelint output: today,6 columns,40 rows each,without labels,blank='.'\r\n";
    EXPECT_EQ(run(), kDataFault);
    EXPECT_EQ(err.str(), "tarvelint-batch: a: no U-B-C info in the header!\n");
}

TEST_F(BatchRun, aFileNamedLikeAWordOfTheMessageStandsInFrontOfIt)
{
    options.input = "has";
    files.contents["has"] = twoNights(',');
    options.vpdColumn = 11;
    EXPECT_EQ(run(), kDataFault);
    EXPECT_EQ(err.str(), "tarvelint-batch: has: The VPD column \"11\" does not exist: the file has 6 columns. Type a "
                         "number from 1 to 6.\n");
}

TEST_F(BatchRun, whatWouldSteerATerminalIsTakenOutOfLabels)
{
    std::string& text = files.contents["in.csv"];
    text.replace(text.find(",A,"), 3, ",\x1B[2J\xC2\x9B\x7F,");
    options.equation.emplace("X/0");
    ASSERT_EQ(run(), kDone) << err.str();
    EXPECT_EQ(out.str().substr(0, out.str().find(':')), "?[2J???");
    EXPECT_EQ((out.str() + err.str()).find('\x1B'), std::string::npos);
    EXPECT_NE(err.str().find("?[2J???: equation errors"), std::string::npos) << err.str();
}

TEST_F(BatchRun, labelsInOtherScriptsArePrintedAsTheyAre)
{
    EXPECT_EQ(printable("\xC3\xA4pfel \xC2\xB5mol \xE6\x9C\xA8"), "\xC3\xA4pfel \xC2\xB5mol \xE6\x9C\xA8");
}

TEST_F(BatchRun, aSummaryThatCannotBeWrittenIsAFault)
{
    out.setstate(std::ios::badbit);
    EXPECT_EQ(run(), kDataFault);
    EXPECT_NE(err.str().find("The summary cannot be written; the file out.csv is complete."), std::string::npos);
    EXPECT_FALSE(written().empty());
}

TEST_F(BatchRun, aRecordOfParametersOnlyIsAFault)
{
    options.parameters = "1-6";
    EXPECT_EQ(run(), kDataFault);
    EXPECT_NE(err.str().find("Every column is marked \"Do not convert\""), std::string::npos) << err.str();
}

TEST_F(BatchRun, quietSaysNothing)
{
    options.quiet = true;
    ASSERT_EQ(run(true), kDone);
    EXPECT_TRUE(out.str().empty());
    EXPECT_TRUE(err.str().empty());
}

TEST_F(BatchRun, progressShowsOnATerminalOnly)
{
    clock.step = std::chrono::milliseconds(50);
    ASSERT_EQ(run(true), kDone);
    EXPECT_NE(err.str().find("reading data"), std::string::npos);
    EXPECT_NE(err.str().find("Status: writing file"), std::string::npos);
    err.str("");
    ASSERT_EQ(run(false), kDone);
    EXPECT_TRUE(err.str().empty());
}

// What the zero-flow arguments do to a run

TEST_F(BatchRun, aLowerVpdLimitLeavesNoCalmRow)
{
    EXPECT_EQ(summaryWith({"--vpd-limit", "0.001"}, kDataFault),
              "A: 0 points, 0 rows converted, 40 readings left unconverted, 0 rows missing\n"
              "B: 0 points, 0 rows converted, 39 readings left unconverted, 1 rows missing\n");
}

TEST_F(BatchRun, aLowerParLimitLeavesNoDarkRow)
{
    EXPECT_EQ(summaryWith({"--par-limit", "-1"}, kDataFault),
              "A: 0 points, 0 rows converted, 40 readings left unconverted, 0 rows missing\n"
              "B: 0 points, 0 rows converted, 39 readings left unconverted, 1 rows missing\n");
}

TEST_F(BatchRun, aLongerLullTimeFlagsLaterRows)
{
    // Flags stand on the rows after the sixth, 6 to 9 and 36 to 39. Their readings are all equal: the first point is
    // row 6, the second goes off the end to row 39. Rows 6 to 39 are 34; B misses one.
    EXPECT_EQ(summaryWith({"--lull-time", "6"}),
              "A: 2 points, 34 rows converted, 6 readings left unconverted, 0 rows missing\n"
              "B: 2 points, 33 rows converted, 6 readings left unconverted, 1 rows missing\n");
}

TEST_F(BatchRun, theParColumnSaysWhichRowsAreDark)
{
    // Time taken for light: rows 0 to 9 are "dark", the second night is not. Column 3 is then one more sensor.
    EXPECT_EQ(summaryWith({"--par-column", "2", "--par-limit", "9"}, kDataFault),
              "PAR: 1 points, 0 rows converted, 40 readings left unconverted, 0 rows missing\n"
              "A: 1 points, 0 rows converted, 40 readings left unconverted, 0 rows missing\n"
              "B: 1 points, 0 rows converted, 39 readings left unconverted, 1 rows missing\n");
}

TEST_F(BatchRun, withoutAConvertedLayerOnlyRowsBetweenPointsCountAsConverted)
{
    options.choices.converted = false;
    options.choices.labels = true;
    ASSERT_EQ(run(), kDone);
    files.contents["again.csv"] = written();
    options.input = "again.csv";
    out.str({});
    ASSERT_EQ(run(), kDone) << err.str();
    EXPECT_EQ(out.str(), "A: 2 points, 35 rows converted, 5 readings left unconverted, 0 rows missing\n"
                         "B: 2 points, 34 rows converted, 5 readings left unconverted, 1 rows missing\n");
}

TEST_F(BatchRun, aFileOfThisProgramIsHonoured)
{
    ASSERT_EQ(run(), kDone);
    files.contents["again.csv"] = written();
    const std::string first = written();
    options.input = "again.csv";
    ASSERT_EQ(run(), kDone) << err.str();
    EXPECT_EQ(written(), first);
}

TEST_F(BatchRun, withoutAnUnconvertedLayerItIsAFault)
{
    options.choices.unconverted = false;
    ASSERT_EQ(run(), kDone);
    files.contents["again.csv"] = written();
    options.input = "again.csv";
    options.output = "other.csv";
    EXPECT_EQ(run(), kDataFault);
    EXPECT_NE(err.str().find("again.csv holds no unconverted layer"), std::string::npos) << err.str();
    EXPECT_FALSE(files.contents.contains("other.csv"));
}

TEST_F(BatchRun, aVpdColumnThatTheFileDoesNotHaveIsAFaultThatNamesIt)
{
    options.vpdColumn = 11;
    EXPECT_EQ(run(), kDataFault);
    EXPECT_NE(err.str().find("VPD column \"11\""), std::string::npos) << err.str();
    EXPECT_NE(err.str().find("6 columns"), std::string::npos) << err.str();
    EXPECT_FALSE(files.contents.contains("out.csv"));
}

TEST_F(BatchRun, parametersNameTheColumnsThatAreNotConverted)
{
    options.parameters = "1-4,B";
    ASSERT_EQ(run(), kDone);
    EXPECT_EQ(out.str(), "A: 2 points, 35 rows converted, 5 readings left unconverted, 0 rows missing\n");
}

TEST_F(BatchRun, missingValuesAreTheNumberAskedFor)
{
    options.blank = -7;
    options.choices.dots = false;
    options.choices.baseline = options.choices.unconverted = options.choices.header = false;
    ASSERT_EQ(run(), kDone);
    EXPECT_EQ(written().substr(0, written().find("\r\n")), "-7,-7,-7,-7,-7,-7,");
}

TEST_F(BatchRun, aFullDiskLeavesTheOldFileWhole)
{
    files.contents["out.csv"] = "precious";
    files.diskRoom = 100;
    EXPECT_EQ(run(), kDataFault);
    EXPECT_EQ(written(), "precious");
    EXPECT_NE(err.str().find("out.csv cannot be written: No space left on device"), std::string::npos) << err.str();
}

TEST_F(BatchRun, aMissingOrFaultyInputIsAFault)
{
    options.input = "nowhere.csv";
    EXPECT_EQ(run(), kDataFault);
    EXPECT_NE(err.str().find("nowhere.csv"), std::string::npos);
    files.contents["in.csv"] = "Tarvelint output: today,6 columns,40 rows each,without labels,blank='.'\r\n";
    options.input = "in.csv";
    EXPECT_EQ(run(), kDataFault);
    EXPECT_NE(err.str().find("no U-B-C info in the header!"), std::string::npos) << err.str();
    EXPECT_NE(err.str().find("tarvelint-batch: in.csv: "), std::string::npos) << "the fixed text names no file";
}

TEST_F(BatchRun, aFaultyCountInTheHeaderNamesTheFileOnce)
{
    files.contents["in.csv"] =
        "Tarvelint output: today,unconverted,many columns,40 rows each,without labels,blank='.'\r\n1,2,\r\n";
    EXPECT_EQ(run(), kDataFault);
    const std::string text = err.str();
    EXPECT_NE(text.find("many"), std::string::npos) << text;
    ASSERT_NE(text.find("in.csv"), std::string::npos) << text;
    EXPECT_EQ(text.find("in.csv"), text.rfind("in.csv")) << text;
}

TEST_F(BatchRun, aTruncatedFileIsConvertedAsFarAsItGoesWithAWarning)
{
    ASSERT_EQ(run(), kDone);
    const std::string whole = written();
    files.contents["cut.csv"] = whole.substr(0, whole.find("\r\n", whole.size() / 4) + 2);
    options.input = "cut.csv";
    EXPECT_EQ(run(), kDone);
    EXPECT_NE(err.str().find("cut.csv"), std::string::npos) << err.str();
}

} // namespace
} // namespace tarvelint::test
