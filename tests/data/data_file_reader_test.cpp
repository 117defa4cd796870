// SPDX-License-Identifier: MIT
#include "data/data_file_reader.h"

#include "record_fixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <numeric>
#include <utility>

namespace tarvelint::test {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::ThrowsMessage;

// ---- files without header

TEST(Headerless, aFirstLineOfWordsIsTheLabelsLine)
{
    const auto loaded = load("Day,Time,S1\n1,0.5,10\n2,1.5,20\n");
    EXPECT_TRUE(loaded.hadLabelsLine);
    EXPECT_FALSE(loaded.hadHeader);
    EXPECT_TRUE(loaded.data.labelsAreText);
    EXPECT_EQ(loaded.data.labels, (Labels{"Day", "Time", "S1"}));
    EXPECT_EQ(loaded.data.lines, 2);
    EXPECT_EQ(loaded.row(0), (Column{1, 0.5, 10}));
    EXPECT_EQ(loaded.row(1), (Column{2, 1.5, 20}));
}

TEST(Headerless, aFirstLineOfNumbersIsRowZero)
{
    const auto loaded = load("1,0.5,10\n2,1.5,20\n");
    EXPECT_FALSE(loaded.hadLabelsLine);
    EXPECT_FALSE(loaded.data.labelsAreText);
    EXPECT_EQ(loaded.data.lines, 2);
    EXPECT_EQ(loaded.row(0), (Column{1, 0.5, 10}));
}

TEST(Headerless, withoutALabelsLineTheColumnsAreNumbered)
{
    EXPECT_EQ(load("7,8,9\n").data.labels, (Labels{"1", "2", "3"}));
}

TEST(Headerless, anEmptyFieldOrALoneDotMakesALabelsLine)
{
    EXPECT_EQ(load("1,,3\n4,5,6\n").data.lines, 1);
    EXPECT_TRUE(load("1,,3\n4,5,6\n").hadLabelsLine);
    EXPECT_TRUE(load("1,.,3\n4,5,6\n").hadLabelsLine);
    EXPECT_EQ(load("1,.,3\n4,5,6\n").data.labels, (Labels{"1", ".", "3"}));
}

TEST(Headerless, aTrailingDelimiterMakesNoExtraColumn)
{
    EXPECT_EQ(load("Day,S1,\n1,10,\n").data.labels, (Labels{"Day", "S1"}));
    EXPECT_FALSE(load("1,10,\n2,20,\n").hadLabelsLine);
    EXPECT_EQ(load("1,10,\n2,20,\n").data.columns, 2);
}

TEST(Headerless, theBaselineAndConvertedLayersAreFilledWithBlank)
{
    const auto loaded = load("1,2\n3,4\n", ',', settings(-77));
    EXPECT_THAT(loaded.row(0, kBaseline), Each(-77));
    EXPECT_THAT(loaded.row(1, kBaseline), Each(-77));
    EXPECT_THAT(loaded.row(1, kConverted), Each(-77));
    EXPECT_EQ(loaded.data.blank, -77);
}

TEST(Headerless, zeroOutFillsTheConvertedLayerWithZero)
{
    const auto loaded = load("1,2\n", ',', settings(-77, true));
    EXPECT_THAT(loaded.row(0, kConverted), Each(0));
    EXPECT_THAT(loaded.row(0, kBaseline), Each(-77));
}

TEST(Headerless, theMissingNumberIsTheBlankHandedIn)
{
    const auto loaded = load("1,2,3\n4,oak,.\n", ',', settings(-1));
    EXPECT_EQ(loaded.row(1), (Column{4, -1, -1}));
    EXPECT_EQ(loaded.settingAsked, 0);
}

TEST(Headerless, emptyLinesInsideAndAfterTheRecordAreRowsOfZeros)
{
    const auto loaded = load("1,2\r\n\r\n3,4\r\n\r\n\r\n");
    EXPECT_EQ(loaded.data.lines, 5);
    EXPECT_EQ(loaded.column(kUnconverted, 0), (Column{1, 0, 3, 0, 0}));
}

TEST(Headerless, leadingEmptyLinesAreNotRows)
{
    const auto loaded = load("\n\n\nDay,S1\n1,2\n3,4\n");
    EXPECT_EQ(loaded.data.labels, (Labels{"Day", "S1"}));
    EXPECT_EQ(loaded.column(kUnconverted, 1), (Column{2, 4}));
}

TEST(Headerless, oneColumnAndOneRowIsARecord)
{
    const auto loaded = load("7");
    EXPECT_EQ(loaded.data.columns, 1);
    EXPECT_EQ(loaded.data.lines, 1);
    EXPECT_EQ(loaded.data.lullFlags, std::vector<bool>{false});
    EXPECT_EQ(loaded.column(kUnconverted, 0), Column{7});
}

TEST(Headerless, aTitleThatIsNotAtTheFirstCharacterIsNoHeader)
{
    const auto loaded = load(" Tarvelint,S1\n1,2\n");
    EXPECT_FALSE(loaded.hadHeader);
    EXPECT_EQ(loaded.data.lines, 1);
}

TEST(Headerless, statusTextsAndRowNumbersAreTold)
{
    const auto loaded = load("Day,S1\n1,2\n3,4\n");
    EXPECT_THAT(loaded.progress.statuses, ElementsAre("Setting up memory", "reading data"));
    EXPECT_THAT(loaded.progress.rows, ElementsAre(1, 2));
}

TEST(Headerless, aSecondLoadIntoTheSameDataSetLeavesNothingOfTheFirst)
{
    auto first = load("1,2,3\n4,5,6\n7,8,9\n");
    const auto second = load("5,6\n7\n", ',', std::move(first.data));
    EXPECT_EQ(second.data.columns, 2);
    EXPECT_EQ(second.data.labels.size(), 2U);
    EXPECT_EQ(second.row(1), (Column{7, 0}));
}

// ---- data lines

/// The second row of a comma-delimited record of three columns.
Column commaRow(const std::string& line)
{
    return load("1,2,3\n" + line + "\n1,2,3\n").row(1);
}
Column blankRow(const std::string& line)
{
    return load("1 2 3\n" + line + "\n1 2 3\n", ' ').row(1);
}

TEST(DataLine, twoCommasEncloseAMissingValue)
{
    EXPECT_EQ(commaRow("1.5,,2.5"), (Column{1.5, kMissing, 2.5}));
}

TEST(DataLine, runsOfBlanksCountAsOneDelimiter)
{
    const auto loaded = load("1 2\n  1.5   2.5 \n", ' ');
    EXPECT_EQ(loaded.row(1), (Column{1.5, 2.5}));
    EXPECT_EQ(load("1\t2\n\t\t1.5\t\t2.5\t\n", '\t').row(1), (Column{1.5, 2.5}));
}

TEST(DataLine, aTrailingDelimiterBehindTheLastFieldIsAllowed)
{
    EXPECT_EQ(commaRow("7,8,9,"), (Column{7, 8, 9}));
    EXPECT_EQ(blankRow("7 8 9 "), (Column{7, 8, 9}));
}

TEST(DataLine, aShortLineLeavesTheOtherCellsZero)
{
    EXPECT_EQ(commaRow("7"), (Column{7, 0, 0}));
    EXPECT_EQ(commaRow("7,8"), (Column{7, 8, 0}));
    EXPECT_EQ(blankRow("7 8"), (Column{7, 8, 0}));
}

TEST(DataLine, nothingBehindTheLastDelimiterIsAnEmptyFieldOfAShortLine)
{
    // The rest of a line that ran out of delimiters is a field, an empty one too.
    EXPECT_EQ(commaRow("7,"), (Column{7, kMissing, 0}));
    EXPECT_EQ(blankRow("7 "), (Column{7, kMissing, 0}));
    EXPECT_EQ(blankRow("   "), (Column{kMissing, 0, 0}));
}

TEST(DataLine, surplusFieldsAreIgnored)
{
    EXPECT_EQ(commaRow("7,8,9,10,oak"), (Column{7, 8, 9}));
    EXPECT_EQ(blankRow("7 8 9 10 oak"), (Column{7, 8, 9}));
}

TEST(DataLine, anEmptyLineIsARowOfZeros)
{
    EXPECT_EQ(commaRow(""), (Column{0, 0, 0}));
}

TEST(DataLine, whatIsNoNumberIsMissing)
{
    EXPECT_EQ(commaRow("oak,.,1E400"), (Column{kMissing, kMissing, kMissing}));
    EXPECT_EQ(commaRow("1x,0x10,1E"), (Column{kMissing, kMissing, kMissing}));
    EXPECT_EQ(commaRow("inf,nan,1D5"), (Column{kMissing, kMissing, kMissing}));
    EXPECT_EQ(commaRow("1 2,--1,1.2.3"), (Column{kMissing, kMissing, kMissing}));
}

TEST(DataLine, everyPlainAndExponentFormIsANumber)
{
    EXPECT_EQ(commaRow("-.25,+3.,1.5E-07"), (Column{-0.25, 3, 1.5e-7}));
    EXPECT_EQ(commaRow("1e3,1E+15,.5"), (Column{1000, 1e15, 0.5}));
}

TEST(DataLine, blanksAndTabsAroundAFieldAreIgnored)
{
    EXPECT_EQ(commaRow(" 1.5,\t2.5 , 3.5\t"), (Column{1.5, 2.5, 3.5}));
    EXPECT_EQ(commaRow("   ,2,3"), (Column{kMissing, 2, 3}));
}

TEST(DataLine, aReadingThatEqualsBlankIsAMissingValue)
{
    const auto loaded = load("1,2\n99999,3\n");
    EXPECT_TRUE(loaded.data.isBlank(loaded.row(1)[0]));
}

TEST(DataLine, anyLineEndWillDo)
{
    const std::vector<Column> expected{{1, 2}, {3, 4}};
    for (const std::string end : {"\n", "\r\n", "\r"})
        for (const std::string& last : {std::string(), end}) {
            const auto loaded = load("\xEF\xBB\xBF"
                                     "1,2" +
                                     end + "3,4" + last);
            EXPECT_EQ((std::vector<Column>{loaded.row(0), loaded.row(1)}), expected);
            EXPECT_EQ(loaded.data.lines, 2);
        }
}

TEST(DataLine, aRecordOfMissingValuesOnlyIsRead)
{
    EXPECT_EQ(load("A,B\n.,.\n,\n").column(kUnconverted, 0), (Column{kMissing, kMissing}));
}

TEST(DataLine, aCommaInATabDelimitedNumberMakesItMissing)
{
    EXPECT_EQ(load("1\t2\n1,5\t2\n", '\t').row(1), (Column{kMissing, 2}));
}

// ---- labels

/// A reader whose parts are called one by one.
struct Reading {
    explicit Reading(const std::string& text = "") : stream(text) {}
    std::istringstream stream;
    DataSet data;
    RecordingProgress progress;
    DataFileReader reader{stream, "record.csv", ',', data, progress, [] { return 0; }};
};

TEST(ReadLabels, setsTheColumnsWhenThereAreNone)
{
    Reading reading;
    reading.reader.readLabels("a,b,c", ',');
    EXPECT_EQ(reading.data.columns, 3);
    EXPECT_EQ(reading.data.labels, (Labels{"a", "b", "c"}));
}

TEST(ReadLabels, keepsTheColumnsThatAreKnown)
{
    Reading reading;
    reading.data.columns = 2;
    reading.reader.readLabels("a b  c", ' ');
    EXPECT_EQ(reading.data.columns, 2);
    EXPECT_EQ(reading.data.labels, (Labels{"a", "b"}));
}

TEST(ReadLabels, missingLabelsBecomeTheColumnsNumber)
{
    Reading reading;
    reading.data.columns = 4;
    reading.reader.readLabels("Day,S1", ',');
    EXPECT_EQ(reading.data.labels, (Labels{"Day", "S1", "3", "4"}));
}

TEST(ReadLabels, saysWhetherAnyFieldIsNoNumber)
{
    Reading reading;
    reading.reader.readLabels("1,b,3", ',');
    EXPECT_TRUE(reading.data.labelsAreText);
    reading.reader.readLabels("1, 2,3E1", ',');
    EXPECT_FALSE(reading.data.labelsAreText);
}

TEST(ReadLabels, aSurplusLabelIsDroppedButLookedAt)
{
    Reading reading;
    reading.data.columns = 1;
    reading.reader.readLabels("1,b", ',');
    EXPECT_TRUE(reading.data.labelsAreText);
    EXPECT_EQ(reading.data.labels, Labels{"1"});
}

TEST(ReadLabels, labelsAreBytes)
{
    EXPECT_EQ(load("H\xF6he,\xC3\xB6 \n1,2\n").data.labels, (Labels{"H\xF6he", "\xC3\xB6 "}));
}

TEST(ReadLabels, thirtyTwoThousandColumnsAreTheMost)
{
    std::string line(2 * 32767 - 1, '1');
    for (std::size_t i = 1; i < line.size(); i += 2) line[i] = ',';
    EXPECT_EQ(load(line).data.columns, 32767);
    EXPECT_THAT(refusal(line + ",1"), HasSubstr("has 32768 columns in its first line, and 32,767 is the most"));
}

TEST(ReadLabels, fortyThousandColumnsNameTheFileAndTheirNumber)
{
    std::string line;
    for (int c = 0; c < 40000; ++c) line += "1\t";
    EXPECT_THAT(refusal(line, '\t'), HasSubstr("\"record.csv\" has 40000 columns"));
}

// ---- one layer by itself

TEST(ReadFile, countsTheLinesAndSizesTheDataSetWhenThereAreNoRows)
{
    Reading one("a,b\n1,2\n3,4\n");
    one.data.columns = 2;
    one.reader.readFile(0, 1, false, false);
    EXPECT_EQ(one.data.lines, 2);
    EXPECT_EQ(columnOf(one.data, kUnconverted, 1), (Column{2, 4}));
    EXPECT_EQ(columnOf(one.data, kBaseline, 1), (Column{0, 0}));
}

TEST(ReadFile, readsIntoTheLayerGiven)
{
    Reading one("1,2\n3,4\n");
    one.data.allocate(2, 2);
    one.reader.readFile(kBaseline, 0, false, false);
    EXPECT_EQ(columnOf(one.data, kBaseline, 0), (Column{1, 3}));
    EXPECT_EQ(columnOf(one.data, kUnconverted, 0), (Column{0, 0}));
    EXPECT_EQ(columnOf(one.data, kConverted, 0), (Column{0, 0}));
}

TEST(ReadFile, aShortLineKeepsEarlierValues)
{
    Reading one("1\n");
    one.data.allocate(2, 1);
    one.data.values(kUnconverted, 1, 0) = 8;
    one.reader.readFile(kUnconverted, 0, false, false);
    EXPECT_EQ(rowOf(one.data, kUnconverted, 0), (Column{1, 8}));
}

TEST(ReadFile, anotherLayerNumberSaysSoAndReadsNothing)
{
    Reading one("1,2\n");
    one.data.allocate(2, 1);
    one.reader.readFile(4, 0, true, true);
    EXPECT_THAT(one.progress.statuses, ElementsAre("readFile: Invalid array dimension"));
    EXPECT_EQ(rowOf(one.data, kUnconverted, 0), (Column{0, 0}));
    EXPECT_EQ(rowOf(one.data, kBaseline, 0), (Column{0, 0}));
    EXPECT_THAT(one.progress.rows, IsEmpty());
}

// ---- files that are none, and long ones

TEST(OddFiles, aNulByteNamesFileAndLine)
{
    EXPECT_THAT(refusal(std::string("1,2\n3,\0\n", 8)), HasSubstr("\"record.csv\" is not a text file: line 2"));
}

TEST(OddFiles, whatTheProgressThrowsPassesThrough)
{
    struct GivingUp : Progress {
        void status(const std::string&) override {}
        void row(std::int32_t) override { throw std::out_of_range("window closed"); }
    } progress;
    std::istringstream stream("1,2\n");
    DataSet data;
    DataFileReader reader(stream, "record.csv", ',', data, progress, [] { return 0; });
    EXPECT_THROW(reader.load(), std::out_of_range);
}

TEST(OddFiles, moreRowsThan32BitsCountNameTheFile)
{
    // Rows are counted from far above the only line, which makes it the last of 2^31 - 1 and then of 2^31.
    Reading reading("1\n");
    reading.data.columns = 1;
    EXPECT_THROW(reading.reader.readFile(0, -2147483646, false, false), std::bad_alloc); // counted, if not believed
    EXPECT_EQ(std::exchange(reading.data.lines, 0), 2147483647);
    EXPECT_THAT([&] { reading.reader.readFile(0, -2147483647, false, false); },
                ThrowsMessage<NamedFault>(
                    "\"record.csv\" has 2147483648 rows, and 2,147,483,647 is the most. Split the file."));
}

TEST(OddFiles, aHeaderlessRecordIsReadTwiceAndNotHeld)
{
    MadeUpStream stream("0.5,1.5\n", 8 * 100000);
    const auto loaded = load(stream, ',');
    EXPECT_EQ(loaded.data.lines, 100000);
    const Column last = loaded.column(kUnconverted, 1);
    EXPECT_EQ(std::accumulate(last.begin(), last.end(), 0.0), 150000);
    // One pass counts, one reads; finding the line ends and the top take a chunk each.
    EXPECT_LE(stream.bytesRead, 2 * 800000 + 3 * (256 << 10));
}

} // namespace
} // namespace tarvelint::test
