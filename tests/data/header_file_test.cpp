// SPDX-License-Identifier: MIT
#include "data/data_file_reader.h"

#include "record_fixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarvelint::test {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;

/// A header line of three items that vary; the rest is as the writer makes it.
std::string header(const std::string& layers, int columns, int rows, const std::string& labels = "with labels",
                   const std::string& blank = "blank='.'")
{
    return "Tarvelint output: today," + layers + ',' + std::to_string(columns) + " columns," + std::to_string(rows) +
           " rows each," + labels + ',' + blank + "\r\n";
}

// ---- files with header

TEST(WithHeader, theShapeComesFromTheHeader)
{
    const auto loaded = load(header("unconverted", 2, 3) + "Day,S1,\r\n1,10,\r\n2,20,\r\n3,.,\r\n\r\n");
    EXPECT_TRUE(loaded.hadHeader);
    EXPECT_TRUE(loaded.hadLabelsLine);
    EXPECT_EQ(loaded.data.columns, 2);
    EXPECT_EQ(loaded.data.lines, 3);
    EXPECT_EQ(loaded.data.lullFlags.size(), 3U);
    EXPECT_EQ(loaded.data.labels, (Labels{"Day", "S1"}));
    EXPECT_EQ(loaded.column(kUnconverted, 1), (Column{10, 20, kMissing}));
    EXPECT_EQ(loaded.warning, "");
}

/// Two rows of one column in every block: 11, 12 unconverted; 21, 22 baseline; 31, 32 converted.
Loaded loadLayers(const std::string& layers, bool withLabels, bool zeroOut = false)
{
    std::string text = header(layers, 1, 2, withLabels ? "with labels" : "without labels", "blank='-9'");
    const std::string labels = withLabels ? "S1,\r\n" : "";
    if (layers.find("unconverted") != std::string::npos) text += labels + "11,\r\n12,\r\n\r\n";
    if (layers.find("baseline") != std::string::npos) text += labels + "21,\r\n22,\r\n\r\n";
    if (layers.find("-converted") != std::string::npos || layers == "converted") text += labels + "31,\r\n32,\r\n\r\n";
    return load(text, ',', settings(99999, zeroOut));
}

TEST(WithHeader, layersAreReadAndFilledAsTheLayerCodeSays)
{
    const Column unconverted{11, 12};
    const Column baseline{21, 22};
    const Column converted{31, 32};
    const Column filled{-9, -9};
    const Column untouched{0, 0};
    struct Case {
        std::string layers;
        Column first, second, third;
    };
    const std::vector<Case> table{
        {"converted", untouched, filled, converted},
        {"baseline", untouched, baseline, filled},
        {"baseline-converted", untouched, baseline, converted},
        {"unconverted", unconverted, filled, filled},
        {"unconverted-converted", unconverted, filled, converted},
        {"unconverted-baseline", unconverted, baseline, untouched},
        {"unconverted-baseline-converted", unconverted, baseline, converted},
    };
    for (const auto& expected : table)
        for (const bool withLabels : {false, true}) {
            const auto loaded = loadLayers(expected.layers, withLabels);
            EXPECT_EQ(loaded.column(kUnconverted, 0), expected.first) << expected.layers;
            EXPECT_EQ(loaded.column(kBaseline, 0), expected.second) << expected.layers;
            EXPECT_EQ(loaded.column(kConverted, 0), expected.third) << expected.layers;
        }
}

TEST(WithHeader, theLayersTheFileHeldAreTold)
{
    EXPECT_EQ(loadLayers("baseline-converted", true).layers, (LayerSet{.baseline = true, .converted = true}));
    EXPECT_EQ(loadLayers("unconverted-converted", false).layers, (LayerSet{.unconverted = true, .converted = true}));
    EXPECT_EQ(load("1,2\n").layers, LayerSet{.unconverted = true}); // a plain table holds readings only
}

TEST(WithHeader, zeroOutFillsAnAbsentConvertedLayerWithZero)
{
    EXPECT_EQ(loadLayers("unconverted", true, true).column(kConverted, 0), (Column{0, 0}));
    EXPECT_EQ(loadLayers("unconverted", true, true).column(kBaseline, 0), (Column{-9, -9}));
    EXPECT_EQ(loadLayers("baseline", true, true).column(kConverted, 0), (Column{0, 0}));
    EXPECT_EQ(loadLayers("unconverted-converted", true, true).column(kConverted, 0), (Column{31, 32}));
}

TEST(WithHeader, ofBaselineAndConvertedTheConvertedLayerIsFilledBeforeItIsRead)
{
    // The short row of the converted block keeps what the fill left in its second cell.
    const auto loaded = load(header("baseline-converted", 2, 1, "without labels", "blank='-9'") + "1,2,\n\n3\n\n");
    EXPECT_EQ(loaded.row(0, kConverted), (Column{3, -9}));
}

TEST(WithHeader, onlyConvertedReadsTheThirdLayerOnly)
{
    const auto loaded = loadLayers("converted", true);
    EXPECT_THAT(loaded.progress.statuses, ElementsAre("Setting up memory", "reading converted data"));
}

TEST(WithHeader, everyBlockTellsItsStatusAndItsRows)
{
    const auto loaded = loadLayers("unconverted-baseline-converted", true);
    EXPECT_THAT(loaded.progress.statuses, ElementsAre("Setting up memory", "reading unconverted data",
                                                      "reading baseline data", "reading converted data"));
    EXPECT_THAT(loaded.progress.rows, ElementsAre(1, 2, 1, 2, 1, 2));
}

TEST(WithHeader, labelsArePaddedAndCutToTheColumns)
{
    EXPECT_EQ(load(header("unconverted", 3, 1) + "Day\n1,2,3\n").data.labels, (Labels{"Day", "2", "3"}));
    EXPECT_EQ(load(header("unconverted", 1, 1) + "Day,Time\n1\n").data.labels, Labels{"Day"});
}

TEST(WithHeader, anEmptyLabelsLineNumbersTheColumns)
{
    EXPECT_EQ(load(header("unconverted", 2, 1) + "\n1,2\n").data.labels, (Labels{"1", "2"}));
}

TEST(WithHeader, withoutLabelsTheDelimitersOfTheFirstRowCountTheColumns)
{
    const auto loaded = load(header("unconverted", 9, 2, "without labels") + "1,2,3,\n4,5,6,\n");
    EXPECT_EQ(loaded.data.columns, 3);
    EXPECT_EQ(loaded.data.labels, (Labels{"1", "2", "3"}));
    EXPECT_FALSE(loaded.hadLabelsLine);
    EXPECT_EQ(loaded.row(1), (Column{4, 5, 6}));
}

TEST(WithHeader, withoutLabelsAndTrailingDelimitersAColumnIsLost)
{
    const auto loaded = load(header("unconverted", 3, 1, "without labels") + "1,2,3\n");
    EXPECT_EQ(loaded.data.columns, 2);
    EXPECT_EQ(loaded.row(0), (Column{1, 2}));
}

TEST(WithHeader, withoutLabelsEveryDelimiterOfARunCounts)
{
    // Five blanks in the first row; its two numbers stand in the first two of the five columns.
    const auto loaded = load("Tarvelint unconverted 2 columns 1 rows without blank='.'\n 1   2 \n", ' ');
    EXPECT_EQ(loaded.data.columns, 5);
    EXPECT_EQ(loaded.row(0), (Column{1, 2, kMissing, 0, 0}));
}

TEST(WithHeader, dotsBecomeTheSettingWhichBecomesBlank)
{
    const auto loaded = load(header("unconverted", 3, 1) + "a,b,c\n.,1,oak\n", ',', settings(5), -4000);
    EXPECT_EQ(loaded.row(0), (Column{-4000, 1, -4000}));
    EXPECT_THAT(loaded.row(0, kBaseline), Each(-4000));
    EXPECT_EQ(loaded.data.blank, -4000);
    EXPECT_EQ(loaded.settingAsked, 1);
}

TEST(WithHeader, dotsBecome99999ByDefault)
{
    const auto loaded = load(header("unconverted", 2, 1) + "a,b\n.,x\n");
    EXPECT_EQ(loaded.row(0), (Column{99999, 99999}));
    EXPECT_EQ(loaded.data.blank, 99999);
}

TEST(WithHeader, theNumberInTheHeaderBecomesBlank)
{
    const auto loaded = load(header("unconverted", 3, 1, "with labels", "blank='-1'") + "a,b,c\n.,-1,\n");
    EXPECT_EQ(loaded.row(0), (Column{-1, -1, -1}));
    EXPECT_EQ(loaded.data.blank, -1); // a number like any other: dots are a flag of their own
    EXPECT_EQ(loaded.settingAsked, 0);
}

TEST(WithHeader, leadingEmptyLinesDoNotCount)
{
    const auto loaded = load("\r\n\r\n" + header("unconverted-baseline", 1, 1) + "a\n1\n\na\n2\n");
    EXPECT_EQ(loaded.column(kUnconverted, 0), Column{1});
    EXPECT_EQ(loaded.column(kBaseline, 0), Column{2});
}

TEST(WithHeader, anyDelimiterWillDo)
{
    for (const char delimiter : {' ', '\t', ','}) {
        const std::string d(1, delimiter);
        const auto loaded =
            load("Tarvelint output: today" + d + "unconverted" + d + "2 columns" + d + "1 rows each" + d +
                     "with labels" + d + "blank='.'\r\nDay" + d + "S1" + d + "\r\n1.5" + d + "." + d + "\r\n\r\n",
                 delimiter);
        EXPECT_EQ(loaded.row(0), (Column{1.5, kMissing}));
        EXPECT_EQ(loaded.data.labels, (Labels{"Day", "S1"}));
    }
}

TEST(WithHeader, theHeadersFaultsComeThrough)
{
    EXPECT_EQ(refusal("Tarvelint\n1,2\n"), "no U-B-C info in the header!");
    EXPECT_THAT(refusal(header("unconverted", 40000, 1) + "a\n1\n"), HasSubstr("number of columns"));
}

TEST(WithHeader, ofATextThatCannotBeUsed40CharactersAreShown)
{
    const auto refused = [](std::size_t length) {
        const std::string blank = "blank='" + std::string(length, '9') + '\'';
        return refusal(header("unconverted", 1, 1, "with labels", blank) + "a\n1\n");
    };
    const std::string shown(40, '9');
    EXPECT_THAT(refused(40), HasSubstr("record.csv: The missing value in the header, \"" + shown + "\", is neither"));
    EXPECT_THAT(refused(41),
                HasSubstr("record.csv: The missing value in the header, \"" + shown + "...\", is neither"));
}

TEST(WithHeader, moreRowsThanTheFileHasBytesNameTheFile)
{
    EXPECT_THAT(refusal(header("unconverted", 1, 2000000000) + "a\n1\n"),
                HasSubstr("\"record.csv\" is shorter than its header says: 2000000000 rows"));
}

TEST(WithHeader, asManyRowsAsTheFileHasBytesAreTheMost)
{
    const std::string text = header("unconverted", 1, 500) + "a\n";
    const auto filledUpTo = [&](std::size_t bytes) { return text + std::string(bytes - text.size(), '\n'); };
    EXPECT_EQ(refusal(filledUpTo(500)), "");
    EXPECT_THAT(refusal(filledUpTo(499)), HasSubstr("is shorter than its header says: 500 rows"));
}

TEST(WithHeader, aGridThatNoMemoryHoldsNamesTheFile)
{
    // 2,000,000 empty rows of 32,767 columns: 65,534,000,000 cells.
    EXPECT_THAT(refusal(header("unconverted", 32767, 2000000) + std::string(2000001, '\n')),
                HasSubstr("\"record.csv\" does not fit into memory."));
}

/// All three layers of a record whose rows are empty lines, so that no cell is written; made up to `bytes` with more of
/// such lines.
std::string emptyRows(int columns, int rows, std::size_t bytes = 0)
{
    std::string text = header("unconverted-baseline-converted", columns, rows);
    text.append(3U * (static_cast<std::size_t>(rows) + 2), '\n');
    if (text.size() < bytes) text.append(bytes - text.size(), '\n');
    return text;
}

TEST(WithHeader, aGridOf16777216CellsMayStandInAFileOfAnySize)
{
    EXPECT_EQ(refusal(emptyRows(1024, 16384)), "");                                         // 2^24 cells
    EXPECT_THAT(refusal(emptyRows(257, 65281)), HasSubstr("\" does not fit into memory.")); // 2^24 + 1
}

TEST(WithHeader, aLargerGridNeedsOneByteForFiveCells)
{
    EXPECT_EQ(refusal(emptyRows(1000, 20000, 4'000'000)), "");
    EXPECT_THAT(refusal(emptyRows(1000, 20000, 3'999'999)), HasSubstr("\" does not fit into memory."));
}

TEST(WithHeader, memoryThatRunsOutBecomesAFault)
{
    std::istringstream stream(header("unconverted", 1, 1) + "a\n1\n");
    DataSet data;
    RecordingProgress progress;
    DataFileReader reader(stream, "record.csv", ',', data, progress, []() -> std::int32_t { throw std::bad_alloc(); });
    EXPECT_THROW(reader.load(), FormatFault);
}

TEST(WithHeader, moreThan32767DelimitersInTheFirstRowNameTheirLine)
{
    const std::string top = '\n' + header("unconverted", 3, 1, "without labels");
    EXPECT_EQ(load(top + std::string(32767, ',') + '\n').data.columns, 32767);
    EXPECT_THAT(refusal(top + std::string(32768, ',') + '\n'),
                HasSubstr("\"record.csv\" has 32768 delimiters in line 3, and 32,767 columns is the most"));
}

// ---- no data

TEST(NoData, aHeaderAloneOrWithLabelsOnlyHoldsNone)
{
    for (const std::string below : {"", "a,b\n"})
        EXPECT_THAT(refusal(header("unconverted", 2, 1) + below), HasSubstr("\"record.csv\" holds no data"));
    EXPECT_THAT(refusal(header("unconverted", 2, 1, "without labels")), HasSubstr("\"record.csv\" holds no data"));
}

TEST(NoData, aFirstRowWithoutDelimiterGivesNoColumn)
{
    EXPECT_THAT(refusal(header("unconverted", 1, 1, "without labels") + "7\n"),
                HasSubstr("\"record.csv\" holds no data: line 2 has no delimiter"));
}

TEST(NoData, labelsAloneHoldNone)
{
    EXPECT_THAT(refusal("Day,Time,S1\n"), HasSubstr("\"record.csv\" holds no data"));
}

TEST(NoData, aFirstLineOfDelimitersOnlyHasNoColumn)
{
    EXPECT_THAT(refusal("   \n1 2\n", ' '), HasSubstr("\"record.csv\" holds no data"));
}

TEST(NoData, noNonEmptyLineIsCorrupt)
{
    for (const std::string& text : {std::string(), std::string("\r\n\r\n"), std::string(10001, '\n') + "1,2\n"})
        EXPECT_EQ(refusal(text), "This file seems to be corrupt!");
}

TEST(NoData, theCorruptFileHasItsOwnTitle)
{
    try {
        static_cast<void>(load(""));
        FAIL();
    } catch (const FormatFault& fault) {
        EXPECT_EQ(fault.title(), "Error reading file:");
    }
}

// ---- files that end too early

TEST(Truncated, theRowsThatAreThereAreKeptAndTheRestIsMissing)
{
    const auto loaded = load(header("unconverted", 2, 4) + "a,b\n1,2\n3,4\n");
    EXPECT_EQ(loaded.column(kUnconverted, 0), (Column{1, 3, kMissing, kMissing}));
    EXPECT_EQ(loaded.column(kUnconverted, 1), (Column{2, 4, kMissing, kMissing}));
    EXPECT_THAT(loaded.column(kBaseline, 0), Each(kMissing));
    EXPECT_THAT(loaded.column(kConverted, 1), Each(kMissing));
}

TEST(Truncated, theWarningCountsLinesAsAnEditorDoes)
{
    const auto loaded = load("\n\n" + header("unconverted", 2, 4) + "a,b\n1,2\n3,4\n");
    EXPECT_THAT(loaded.warning, HasSubstr("\"record.csv\" ends at line 6, although 4 rows per layer were expected."));
}

TEST(Truncated, laterBlocksAreMissingAltogether)
{
    const auto loaded = load(header("unconverted-baseline-converted", 1, 2) + "a\n1\n2\n\na\n5\n");
    EXPECT_EQ(loaded.column(kUnconverted, 0), (Column{1, 2}));
    EXPECT_EQ(loaded.column(kBaseline, 0), (Column{5, kMissing}));
    EXPECT_EQ(loaded.column(kConverted, 0), (Column{kMissing, kMissing}));
    EXPECT_THAT(loaded.warning, HasSubstr("ends at line 7"));
}

TEST(Truncated, aCutBeforeTheSecondBlockMakesAllOfItMissing)
{
    const auto loaded = load(header("unconverted-converted", 1, 2) + "a\n1\n2\n");
    EXPECT_EQ(loaded.column(kConverted, 0), (Column{kMissing, kMissing}));
    EXPECT_EQ(loaded.column(kBaseline, 0), (Column{kMissing, kMissing}));
    EXPECT_THAT(loaded.warning, HasSubstr("ends at line 4"));
}

TEST(Truncated, anAbsentConvertedLayerIsFilledAsEver)
{
    const auto loaded = load(header("unconverted", 1, 3) + "a\n1\n", ',', settings(99999, true));
    EXPECT_EQ(loaded.column(kConverted, 0), (Column{0, 0, 0}));
    EXPECT_EQ(loaded.column(kBaseline, 0), (Column{kMissing, kMissing, kMissing}));
}

TEST(Truncated, aLastLineCutInTheMiddleIsAShortLine)
{
    EXPECT_EQ(load("1,2,3\n4,5.").row(1), (Column{4, 5, 0}));
}

} // namespace
} // namespace tarvelint::test
