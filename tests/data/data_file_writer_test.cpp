// SPDX-License-Identifier: MIT
#include "data/data_file_writer.h"

#include "record_fixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

namespace tarvelint::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

const HeaderStyle kStyle{.longDate = "Friday, 20 November 2026", .grouping = ","};

/// Layer 1 as given; layers 2 and 3 hold 100 and 200 more.
DataSet record(const std::vector<Column>& rows)
{
    DataSet data;
    data.allocate(static_cast<std::int16_t>(rows.front().size()), static_cast<std::int32_t>(rows.size()));
    for (std::int32_t r = 0; r < data.lines; ++r)
        for (std::int32_t c = 0; c < data.columns; ++c)
            for (int layer = 1; layer <= kLayers; ++layer)
                data.values(layer, c, r) =
                    rows[static_cast<std::size_t>(r)][static_cast<std::size_t>(c)] + 100 * (layer - 1);
    for (std::int32_t c = 0; c < data.columns; ++c) data.labels.push_back("S" + std::to_string(c + 1));
    return data;
}

FileContents only(int layer)
{
    FileContents contents;
    contents.unconverted = layer == 1;
    contents.baseline = layer == 2;
    contents.converted = layer == 3;
    contents.header = false;
    return contents;
}

std::string written(const DataSet& data, const FileContents& choices, char delimiter = ',')
{
    StringSink sink;
    RecordingProgress progress;
    writeDataFile(data, choices, delimiter, kStyle, sink, progress);
    return sink.text;
}

/// The text of a single cell in a file of one column and one row.
std::string cell(double value, bool dots = true, std::int32_t blank = 99999)
{
    DataSet data = record({{value}});
    data.blank = blank;
    FileContents choices = only(kUnconverted);
    choices.dots = dots;
    const std::string text = written(data, choices);
    return text.substr(0, text.find(','));
}

// ---- lines and blocks

TEST(WriteDataFile, everyLineEndsWithDelimiterAndCrLf)
{
    EXPECT_EQ(written(record({{1, 2}, {3, 4}}), only(kUnconverted)), "1,2,\r\n3,4,\r\n\r\n");
    EXPECT_EQ(written(record({{1, 2}}), only(kUnconverted), ' '), "1 2 \r\n\r\n");
    EXPECT_EQ(written(record({{1, 2}}), only(kUnconverted), '\t'), "1\t2\t\r\n\r\n");
}

TEST(WriteDataFile, allLayersStandInOrderWithLabelsAndAnEmptyLineAfterTheFirstTwo)
{
    FileContents choices;
    choices.labels = true;
    EXPECT_EQ(written(record({{1, 2}, {3, 4}}), choices),
              "Tarvelint output: Friday, 20 November 2026,unconverted-baseline-converted,2 columns,2 rows each,"
              "with labels,blank='.'\r\n"
              "S1,S2,\r\n1,2,\r\n3,4,\r\n\r\n"
              "S1,S2,\r\n101,102,\r\n103,104,\r\n\r\n"
              "S1,S2,\r\n201,202,\r\n203,204,\r\n");
}

TEST(WriteDataFile, onlyTheChosenLayersAreWritten)
{
    EXPECT_EQ(written(record({{1}}), only(kBaseline)), "101,\r\n\r\n");
    EXPECT_EQ(written(record({{1}}), only(kConverted)), "201,\r\n");
    FileContents choices = only(kConverted);
    choices.unconverted = true;
    EXPECT_EQ(written(record({{1}}), choices), "1,\r\n\r\n201,\r\n");
}

TEST(WriteDataFile, noLayerWritesTheHeaderNamingConvertedAndNoData)
{
    FileContents choices;
    choices.unconverted = choices.baseline = choices.converted = false;
    EXPECT_EQ(written(record({{1, 2}}), choices),
              "Tarvelint output: Friday, 20 November 2026,converted,2 columns,1 rows each,without labels,"
              "blank='.'\r\n");
    choices.header = false;
    EXPECT_EQ(written(record({{1, 2}}), choices), "");
}

TEST(WriteDataFile, withoutDotsTheHeaderGroupsTheBlankAsTheSystemDoes)
{
    FileContents choices;
    choices.dots = false;
    EXPECT_THAT(written(record({{1}}), choices), HasSubstr(",blank=99,999\r\n"));
}

TEST(WriteDataFile, labelsGoOutByteForByte)
{
    DataSet data = record({{1, 2}});
    data.labels = {"H\xF6he", " \xC3\xB6 x"};
    FileContents choices = only(kUnconverted);
    choices.labels = true;
    EXPECT_THAT(written(data, choices), StartsWith("H\xF6he, \xC3\xB6 x,\r\n"));
}

/// The labels line of a file that holds them and one row.
std::string labelsLine(const Labels& labels, char delimiter)
{
    DataSet data = record({Column(labels.size(), 1)});
    data.labels = labels;
    FileContents choices = only(kUnconverted);
    choices.labels = true;
    const std::string text = written(data, choices, delimiter);
    return text.substr(0, text.find("\r\n"));
}

TEST(WriteLabels, aDelimiterInsideALabelBecomesAnUnderscore)
{
    const Labels labels = {"T air", "a,b", "x\ty", ",,"};
    EXPECT_EQ(labelsLine(labels, ','), "T air,a_b,x\ty,__,");
    EXPECT_EQ(labelsLine(labels, '\t'), "T air\ta,b\tx_y\t,,\t");
    EXPECT_EQ(labelsLine(labels, ' '), "T_air a,b x\ty ,, ");
}

TEST(WriteLabels, anEmptyLabelIsTheColumnsNumberWhereDelimitersCountInRuns)
{
    const Labels labels = {"", "S2", ""};
    EXPECT_EQ(labelsLine(labels, ','), ",S2,,");
    EXPECT_EQ(labelsLine(labels, '\t'), "1\tS2\t3\t");
    EXPECT_EQ(labelsLine(labels, ' '), "1 S2 3 ");
}

TEST(WriteLabels, aLineFeedOrNulInsideALabelBecomesAnUnderscore)
{
    EXPECT_EQ(labelsLine({"a\nb", "c\r\nd", std::string("e\0f", 3)}, ','), "a_b,c\r_d,e_f,");
}

TEST(WriteLabels, otherControlCharactersGoBackAsTheyCame)
{
    const std::string text = "a\rb,\x01,\x7F\x1B,\v\f,";
    EXPECT_EQ(labelsLine(load(text + "\n1,2,3,4,\n").data.labels, ','), text);
}

TEST(WriteLabels, theWindowsOwnLabelsStay)
{
    DataSet data = record({{1, 2}});
    data.labels = {"a,b", ""};
    FileContents choices;
    choices.labels = true;
    static_cast<void>(written(data, choices));
    EXPECT_EQ(data.labels, (Labels{"a,b", ""}));
}

TEST(WriteDataFile, aHeaderWithoutLabelsSaysSoAndHasNone)
{
    FileContents choices = only(kUnconverted);
    choices.header = true;
    EXPECT_THAT(written(record({{1}}), choices), HasSubstr(",without labels,blank='.'\r\n1,\r\n"));
}

// ---- cells

TEST(WriteCell, numbersStandInFileText)
{
    EXPECT_EQ(cell(0.5), ".5");
    EXPECT_EQ(cell(-0.25), "-.25");
    EXPECT_EQ(cell(1.5e-7), "1.5E-07");
    EXPECT_EQ(cell(123456), "123456");
    EXPECT_EQ(cell(0), "0");
}

TEST(WriteCell, aMissingValueIsADot)
{
    EXPECT_EQ(cell(99999), ".");
    EXPECT_EQ(cell(-4, true, -4), ".");
    EXPECT_EQ(cell(0, true, 0), ".");
    EXPECT_EQ(cell(-0.0, true, 0), ".");
    EXPECT_EQ(cell(-2147483648.0, true, -2147483647 - 1), ".");
}

TEST(WriteCell, missingIsComparedAsText)
{
    // 99999 + 2^-36 is another double, but its 15 digits are those of 99999.
    EXPECT_EQ(cell(99999 + 0x1p-36), ".");
    EXPECT_EQ(cell(99999.0000000001), "99999.0000000001");
    EXPECT_EQ(cell(1e-20, true, 0), "1E-20");
}

TEST(WriteCell, withoutDotsTheNumberIsWritten)
{
    EXPECT_EQ(cell(99999, false), "99999");
    EXPECT_EQ(cell(-4, false, -4), "-4");
}

TEST(WriteCell, anotherNumberIsNoDot)
{
    EXPECT_EQ(cell(99998), "99998");
    EXPECT_EQ(cell(99999.5), "99999.5");
    EXPECT_EQ(cell(-99999), "-99999");
}

// ---- progress and failures

TEST(WriteDataFile, theInterfaceBreathesOncePerRow)
{
    StringSink sink;
    RecordingProgress progress;
    FileContents choices;
    choices.baseline = false;
    writeDataFile(record({{1}, {2}, {3}}), choices, ',', kStyle, sink, progress);
    EXPECT_THAT(progress.rows, ElementsAre(1, 2, 3, 1, 2, 3));
}

TEST(WriteDataFile, whatTheSinkThrowsPassesThrough)
{
    struct FullDisk : TextSink {
        void write(std::string_view) override { throw std::out_of_range("No space left on device"); }
    } sink;
    RecordingProgress progress;
    EXPECT_THROW(writeDataFile(record({{1}}), {}, ',', kStyle, sink, progress), std::out_of_range);
}

TEST(WriteDataFile, whatTheProgressThrowsPassesThrough)
{
    struct GivingUp : Progress {
        void status(const std::string&) override {}
        void row(std::int32_t) override { throw std::out_of_range("window closed"); }
    } progress;
    StringSink sink;
    EXPECT_THROW(writeDataFile(record({{1}}), {}, ',', kStyle, sink, progress), std::out_of_range);
}

TEST(WriteDataFile, aLongRecordGoesOutInPieces)
{
    DataSet data;
    data.allocate(2, 50000);
    data.labels = {std::string(300000, 'x'), "S2"};
    StringSink sink;
    RecordingProgress progress;
    FileContents choices = only(kUnconverted);
    choices.labels = true;
    writeDataFile(data, choices, ',', kStyle, sink, progress);
    EXPECT_EQ(sink.text.size(), 300000U + 1 + 3 + 2 + 50000U * 6 + 2); // "0,0,\r\n" a row
    EXPECT_LE(sink.largestPiece, 256U << 10U);
}

TEST(WriteDataFile, noNumberIsCutWhereOnePieceEnds)
{
    // A line takes 24 bytes, which do not divide a piece: the number at its end would not fit.
    DataSet data;
    data.allocate(1, 50000);
    std::string expected;
    for (std::int32_t row = 0; row < data.lines; ++row) {
        data.values(kUnconverted, 0, row) = -1.23456789012345e-7;
        expected += "-1.23456789012345E-07,\r\n";
    }
    EXPECT_EQ(written(data, only(kUnconverted)), expected + "\r\n");
}

// ---- written and read again

class RoundTrip : public testing::TestWithParam<int> {
protected:
    std::mt19937 m_random{static_cast<std::mt19937::result_type>(GetParam())};

    int pick(int most) { return static_cast<int>(m_random() % static_cast<unsigned>(most + 1)); }
    bool toss() { return pick(1) == 1; }

    /// A number with few enough digits to survive its text, in every size and form, or a missing value.
    double number(const DataSet& data)
    {
        const std::int64_t mantissa = static_cast<std::int64_t>(m_random()) * (toss() ? 1 : -1);
        switch (pick(4)) {
        case 0: return data.blank;
        case 1: return static_cast<double>(mantissa);
        case 2: return static_cast<double>(mantissa) / 1e9;
        case 3: return static_cast<double>(pick(200) - 100);
        default: return std::stod(std::to_string(mantissa) + 'e' + std::to_string(pick(500) - 250));
        }
    }

    /// Any bytes that steer the reading somewhere, blanks at the ends and nothing at all included.
    std::string label()
    {
        constexpr std::string_view kLetters("aS1. ,\t\r\n\0_\xF6\"'", 14);
        std::string text;
        for (int length = pick(4); length > 0; --length) text += kLetters[static_cast<std::size_t>(pick(13))];
        return text;
    }

    DataSet randomRecord()
    {
        DataSet data;
        data.allocate(static_cast<std::int16_t>(1 + pick(8)), 1 + pick(30));
        data.blank = pick(3) == 0 ? pick(100) - 50 : 99999;
        for (std::int32_t r = 0; r < data.lines; ++r)
            for (std::int32_t c = 0; c < data.columns; ++c)
                for (int layer = 1; layer <= kLayers; ++layer) data.values(layer, c, r) = number(data);
        for (std::int32_t c = 1; c <= data.columns; ++c) data.labels.push_back(std::to_string(c));
        return data;
    }
};

void expectSameLayer(const DataSet& left, const DataSet& right, int layer)
{
    for (std::int32_t r = 0; r < left.lines; ++r) EXPECT_EQ(rowOf(left, layer, r), rowOf(right, layer, r));
}

TEST_P(RoundTrip, withHeaderGivesTheSameDataSet)
{
    DataSet data = randomRecord();
    FileContents choices;
    choices.labels = toss();
    if (choices.labels)
        for (auto& label : data.labels) label = "S" + label;
    const int code = 1 + pick(6);
    choices.unconverted = (code & 4) != 0;
    choices.baseline = (code & 2) != 0;
    choices.converted = (code & 1) != 0;
    const char delimiter = delimiterOf(static_cast<FileType>(1 + pick(2)));

    const auto back = load(written(data, choices, delimiter), delimiter, {}, data.blank);
    ASSERT_EQ(back.data.columns, data.columns);
    ASSERT_EQ(back.data.lines, data.lines);
    EXPECT_EQ(back.data.labels, data.labels);
    EXPECT_EQ(back.data.blank, data.blank);
    EXPECT_EQ(back.hadLabelsLine, choices.labels);
    EXPECT_EQ(back.warning, "");
    if (choices.unconverted) expectSameLayer(back.data, data, kUnconverted);
    if (choices.baseline) expectSameLayer(back.data, data, kBaseline);
    if (choices.converted) expectSameLayer(back.data, data, kConverted);
}

TEST_P(RoundTrip, withoutHeaderGivesTheSameReadings)
{
    DataSet data = randomRecord();
    FileContents choices = only(kUnconverted);
    choices.labels = true;
    choices.dots = toss();
    for (auto& label : data.labels) label = "S" + label;
    const char delimiter = delimiterOf(static_cast<FileType>(1 + pick(2)));
    DataSet fresh;
    fresh.blank = data.blank;

    const auto back = load(written(data, choices, delimiter), delimiter, std::move(fresh));
    ASSERT_EQ(back.data.lines, data.lines + 1); // the empty line behind the block is a row
    EXPECT_EQ(back.data.labels, data.labels);
    expectSameLayer(data, back.data, kUnconverted);
}

TEST_P(RoundTrip, aLabelOfAnyKindKeepsToItsColumn)
{
    DataSet data = randomRecord();
    for (auto& text : data.labels) text = label();
    data.labels.front() = "Day"; // a line of numbers only would be a row
    FileContents choices = only(kUnconverted);
    choices.labels = true;
    choices.header = toss();
    for (const char delimiter : {',', '\t', ' '}) {
        const auto back = load(written(data, choices, delimiter), delimiter, settings(data.blank), data.blank);
        ASSERT_EQ(back.data.columns, data.columns);
        expectSameLayer(data, back.data, kUnconverted);
        for (std::size_t c = 0; c < data.labels.size(); ++c) {
            std::string expected = data.labels[c];
            for (char& letter : expected)
                if (letter == delimiter || letter == '\n' || letter == 0) letter = '_';
            if (expected.empty() && delimiter != ',') expected = std::to_string(c + 1);
            EXPECT_EQ(back.data.labels[c], expected);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Records, RoundTrip, testing::Range(1, 101));

} // namespace
} // namespace tarvelint::test
