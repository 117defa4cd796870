// SPDX-License-Identifier: MIT
#include "data/file_format.h"

#include "record_fixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <tuple>

namespace tarvelint::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

// ---- fields

TEST(SplitFields, runsOfBlanksCountAsOneAndLeadingOnesAreIgnored)
{
    EXPECT_THAT(splitFields("  1.5   2.5 ", ' '), ElementsAre("1.5", "2.5"));
}

TEST(SplitFields, runsOfTabsCountAsOneAndLeadingOnesAreIgnored)
{
    EXPECT_THAT(splitFields("\t\t1.5\t\t\t2.5\t", '\t'), ElementsAre("1.5", "2.5"));
}

TEST(SplitFields, adjacentCommasEncloseAnEmptyField)
{
    EXPECT_THAT(splitFields("1.5,,2.5", ','), ElementsAre("1.5", "", "2.5"));
    EXPECT_THAT(splitFields(",1", ','), ElementsAre("", "1"));
}

TEST(SplitFields, aTrailingDelimiterMakesNoFurtherField)
{
    EXPECT_THAT(splitFields("Day,Time,S1,", ','), ElementsAre("Day", "Time", "S1"));
    EXPECT_THAT(splitFields("a,,", ','), ElementsAre("a", ""));
    EXPECT_THAT(splitFields(",", ','), ElementsAre(""));
}

TEST(SplitFields, otherDelimitersBelongToTheField)
{
    EXPECT_THAT(splitFields("Day of year,S 1", ','), ElementsAre("Day of year", "S 1"));
    EXPECT_THAT(splitFields("Day of year\tS,1", '\t'), ElementsAre("Day of year", "S,1"));
}

TEST(SplitFields, anEmptyLineHasNoField)
{
    EXPECT_THAT(splitFields("", ','), IsEmpty());
    EXPECT_THAT(splitFields("", ' '), IsEmpty());
    EXPECT_THAT(splitFields("   ", ' '), IsEmpty());
}

TEST(TakeField, leavesTheRestBehindTheDelimiter)
{
    std::string_view rest = "1,2,3";
    EXPECT_EQ(takeField(rest, ','), "1");
    EXPECT_EQ(rest, "2,3");
}

// ---- reading a header

TEST(IsHeaderLine, exactlyWhenTheTitleStandsAtTheFirstCharacter)
{
    EXPECT_TRUE(isHeaderLine("Tarvelint output: today,converted"));
    EXPECT_TRUE(isHeaderLine("Tarvelint"));
    EXPECT_FALSE(isHeaderLine(" Tarvelint output"));
    EXPECT_FALSE(isHeaderLine("tarvelint output"));
    EXPECT_FALSE(isHeaderLine("Tarvelin"));
    EXPECT_FALSE(isHeaderLine(""));
}

/// A header as the writer makes it, with one item replaced.
std::string header(const std::string& layers, const std::string& columns = "3 columns",
                   const std::string& rows = "10 rows each", const std::string& labels = "without labels",
                   const std::string& blank = "blank='.'")
{
    return "Tarvelint output: Friday, 20 November 2026," + layers + ',' + columns + ',' + rows + ',' + labels + ',' +
           blank;
}

std::string refusal(const std::string& line, char delimiter = ',')
{
    try {
        static_cast<void>(parseHeader(line, delimiter));
    } catch (const FormatFault& fault) {
        return fault.what();
    }
    return "";
}

TEST(ParseHeader, readsEveryItem)
{
    const FileHeader read =
        parseHeader(header("unconverted-baseline", "3 columns", "10 rows each", "with labels", "blank='-77'"), ',');
    EXPECT_EQ(read.layers, layersOf(6));
    EXPECT_EQ(read.columns, 3);
    EXPECT_EQ(read.rows, 10);
    EXPECT_TRUE(read.withLabels);
    EXPECT_FALSE(read.blankIsDot);
    EXPECT_EQ(read.blank, -77);
}

TEST(ParseHeader, findsTheLayerWords)
{
    const std::vector<std::pair<std::string, int>> table{{"converted", 1},
                                                         {"baseline", 2},
                                                         {"baseline-converted", 3},
                                                         {"unconverted", 4},
                                                         {"unconverted-converted", 5},
                                                         {"unconverted-baseline", 6},
                                                         {"unconverted-baseline-converted", 7}};
    for (const auto& [layers, code] : table)
        EXPECT_EQ(parseHeader(header(layers), ',').layers, layersOf(code)) << layers;
}

TEST(ParseHeader, searchesEachLayerWordBehindTheOneBefore)
{
    EXPECT_EQ(parseHeader(header("converted-baseline"), ',').layers, layersOf(2));
    EXPECT_EQ(parseHeader(header("baseline-unconverted"), ',').layers, layersOf(4));
}

TEST(ParseHeader, isCaseSensitive)
{
    EXPECT_EQ(parseHeader(header("Unconverted"), ',').layers, layersOf(1)); // only the "converted" inside
    EXPECT_EQ(refusal(header("UNCONVERTED")), "no U-B-C info in the header!");
}

TEST(ParseHeader, stopsAtTheFirstFaultInTheFixedOrder)
{
    // Each line cures the fault of the line above and still has all later ones.
    const std::vector<std::pair<std::string, std::string>> table{
        {"Tarvelint output", "no U-B-C info in the header!"},
        {"Tarvelint converted", "No column number in header!"},
        {"Tarvelint converted,3 columns", "No row number in the header!"},
        {"Tarvelint converted,3 columns,4 rows each", "No labels info in the header!"},
        {"Tarvelint converted,3 columns,4 rows each,with labels", "No blank character info in header!"},
        {"Tarvelint converted,3 columns,4 rows each,with labels,blank='.", "Lost that last quote somewhere!"},
        {"Tarvelint converted,3 columns,4 rows each,with labels,blank='.'", ""},
    };
    for (const auto& [line, text] : table) EXPECT_EQ(refusal(line), text) << line;
}

TEST(ParseHeader, faultsBelongToTheApplicationsTitle)
{
    try {
        static_cast<void>(parseHeader("Tarvelint", ','));
        FAIL();
    } catch (const FormatFault& fault) {
        EXPECT_EQ(fault.title(), "");
    }
}

TEST(ParseHeader, aBlankWithoutQuotesIsNoBlank)
{
    EXPECT_EQ(refusal(header("converted", "3 columns", "4 rows each", "with labels", "blank=99999")),
              "No blank character info in header!");
}

TEST(ParseHeader, theClosingQuoteIsTheLastCharacter)
{
    EXPECT_EQ(refusal(header("converted") + ','), "Lost that last quote somewhere!");
    EXPECT_EQ(refusal(header("converted") + ' '), "Lost that last quote somewhere!");
}

TEST(ParseHeader, countsAreReadWithoutDelimitersBlanksAndGroupingCommas)
{
    EXPECT_EQ(parseHeader(header("converted", "1,024 columns", "1,000,000 rows"), ',').columns, 1024);
    EXPECT_EQ(parseHeader(header("converted", "1,024 columns", "1,000,000 rows"), ',').rows, 1000000);
    EXPECT_EQ(parseHeader(header("converted", "3\tcolumns", "1\t000 rows"), ',').rows, 1000);
    EXPECT_EQ(parseHeader("Tarvelint\tconverted\t 3 columns\t\t4  rows\twith\tblank='.'", '\t').columns, 3);
    EXPECT_EQ(parseHeader("Tarvelint converted  3  columns  4  rows  with  blank='.'", ' ').rows, 4);
}

TEST(ParseHeader, aColumnCountThatDoesNotFitSixteenBitsNamesItself)
{
    EXPECT_EQ(parseHeader(header("converted", "32767 columns"), ',').columns, 32767);
    EXPECT_THAT(refusal(header("converted", "32768 columns")), HasSubstr("number of columns in the header, \"32768\""));
}

TEST(ParseHeader, aRowCountThatDoesNotFitThirtyTwoBitsNamesItself)
{
    EXPECT_EQ(parseHeader(header("converted", "3 columns", "2147483647 rows"), ',').rows, 2147483647);
    EXPECT_THAT(refusal(header("converted", "3 columns", "2147483648 rows")),
                HasSubstr("number of rows in the header, \"2147483648\""));
}

TEST(ParseHeader, countsThatAreNoNumberOrBelowOneNameThemselves)
{
    for (const std::string bad : {"0", "-3", "many", "", "0.5", "1E400"}) {
        EXPECT_THAT(
            refusal(header("converted", bad + " columns")),
            HasSubstr(
                "number of columns in the header, \"" + bad +
                "\", is not a whole number from 1 to 32,767. Correct the first line of the file in a text editor, "
                "or delete it to read the file as a plain table."));
        EXPECT_THAT(refusal(header("converted", "3 columns", bad + " rows")),
                    HasSubstr("number of rows in the header, \"" + bad + "\", is not"));
    }
}

TEST(ParseHeader, aCountIsCheckedAtItsPlaceInTheOrder)
{
    EXPECT_THAT(refusal("Tarvelint converted,many columns"), HasSubstr("number of columns"));
    EXPECT_THAT(refusal("Tarvelint converted,3 columns,many rows"), HasSubstr("number of rows"));
}

TEST(ParseHeader, wordsInTheWrongOrderLeaveNoCount)
{
    EXPECT_THAT(refusal("Tarvelint 3 columns,converted,4 rows,with,blank='.'"), HasSubstr("number of columns"));
    EXPECT_THAT(refusal("Tarvelint 4 rows,converted,3 columns,with,blank='.'"), HasSubstr("number of rows"));
}

TEST(ParseHeader, aLongOrUnprintableCountIsShownShort)
{
    EXPECT_THAT(refusal(header("converted", std::string(500, '9') + " columns")),
                HasSubstr('"' + std::string(40, '9') + "...\""));
    EXPECT_THAT(refusal(header("converted", "\x01 columns")), HasSubstr("\"?\""));
    EXPECT_THAT(refusal(header("converted", "f\xC3\xBCnf columns")), HasSubstr("\"f\xC3\xBCnf\""));
}

TEST(ParseHeader, withoutGoesBeforeWith)
{
    EXPECT_FALSE(parseHeader(header("converted"), ',').withLabels);
    EXPECT_TRUE(parseHeader(header("converted", "3 columns", "4 rows", "with labels"), ',').withLabels);
    EXPECT_FALSE(parseHeader(header("converted", "3 columns", "4 rows", "with without"), ',').withLabels);
}

FileHeader withBlank(const std::string& blank)
{
    return parseHeader(header("converted", "3 columns", "4 rows", "with labels", blank), ',');
}

TEST(ParseHeader, aDotIsAFlagAndMinusOneANumber)
{
    EXPECT_TRUE(withBlank("blank='.'").blankIsDot);
    EXPECT_FALSE(withBlank("blank='-1'").blankIsDot);
    EXPECT_EQ(withBlank("blank='-1'").blank, -1);
}

TEST(ParseHeader, onlyTheCharacterBehindTheQuoteMakesTheDot)
{
    EXPECT_TRUE(withBlank("blank='.5'").blankIsDot);
    EXPECT_FALSE(withBlank("blank='0.5'").blankIsDot);
}

TEST(ParseHeader, theBlankIsRoundedHalfToEvenInto32Bits)
{
    EXPECT_EQ(withBlank("blank='2.5'").blank, 2);
    EXPECT_EQ(withBlank("blank='3.5'").blank, 4);
    EXPECT_EQ(withBlank("blank='-2147483648'").blank, -2147483647 - 1);
}

TEST(ParseHeader, aQuotedBlankThatIsNoNumberOrDoesNotFitNamesItself)
{
    for (const std::string bad : {"abc", "2147483648", "99,999", "1E400"})
        EXPECT_THAT(refusal(header("converted", "3 columns", "4 rows", "with", "blank='" + bad + "'")),
                    HasSubstr("missing value in the header, \"" + bad + '"'));
    EXPECT_THAT(refusal(header("converted", "3 columns", "4 rows", "with", "blank=''")), HasSubstr("\"\""));
}

TEST(ParseHeader, anOpeningQuoteAtTheVeryEndHoldsNoBlank)
{
    EXPECT_THAT(refusal(header("converted", "3 columns", "4 rows", "with", "blank='")), HasSubstr("missing value"));
}

// ---- writing a header

FileContents choose(bool unconverted, bool baseline, bool converted)
{
    return {{.unconverted = unconverted, .baseline = baseline, .converted = converted}, false};
}

std::string compose(const FileContents& choices, char delimiter = ',', std::string_view grouping = ",")
{
    return composeHeader(choices, delimiter, 1024, 48000, 99999, "Friday, 20 November 2026", grouping);
}

TEST(ComposeHeader, joinsItsItemsWithTheDelimiterAndNothingElse)
{
    EXPECT_EQ(compose(choose(true, true, true)),
              "Tarvelint output: Friday, 20 November 2026,unconverted-baseline-converted,1024 columns,"
              "48000 rows each,without labels,blank='.'");
    EXPECT_EQ(compose(choose(true, false, false), '\t'),
              "Tarvelint output: Friday, 20 November 2026\tunconverted\t1024 columns\t48000 rows each\t"
              "without labels\tblank='.'");
}

TEST(ComposeHeader, listsTheLayers)
{
    const std::vector<std::pair<FileContents, std::string>> table{
        {choose(true, true, true), "unconverted-baseline-converted"},
        {choose(true, true, false), "unconverted-baseline"},
        {choose(true, false, true), "unconverted-converted"},
        {choose(true, false, false), "unconverted"},
        {choose(false, true, true), "baseline-converted"},
        {choose(false, true, false), "baseline"},
        {choose(false, false, true), "converted"},
        {choose(false, false, false), "converted"}};
    for (const auto& [choices, layers] : table) EXPECT_THAT(compose(choices), HasSubstr("2026," + layers + ",1024"));
}

TEST(ComposeHeader, saysWhetherLabelsAreWritten)
{
    FileContents choices;
    choices.labels = true;
    EXPECT_THAT(compose(choices), HasSubstr(",with labels,"));
}

TEST(ComposeHeader, withoutDotsTheBlankIsGroupedAndUnquoted)
{
    FileContents choices;
    choices.dots = false;
    EXPECT_THAT(compose(choices, ',', ","), testing::EndsWith(",blank=99,999"));
    EXPECT_THAT(compose(choices, ',', "."), testing::EndsWith(",blank=99.999"));
    EXPECT_THAT(compose(choices, ',', ""), testing::EndsWith(",blank=99999"));
}

TEST(ComposeHeader, withoutDotsTheHeaderIsNotReadBack)
{
    FileContents choices;
    choices.dots = false;
    EXPECT_EQ(refusal(compose(choices)), "No blank character info in header!");
}

TEST(ComposeHeader, isReadBackForEveryChoiceAndDelimiter)
{
    for (const char delimiter : {' ', '\t', ','})
        for (int code = 1; code <= 7; ++code) {
            FileContents choices = choose((code & 4) != 0, (code & 2) != 0, (code & 1) != 0);
            choices.labels = code % 2 == 0;
            const FileHeader read = parseHeader(compose(choices, delimiter), delimiter);
            EXPECT_EQ(read.layers, layersOf(code));
            EXPECT_EQ(read.columns, 1024);
            EXPECT_EQ(read.rows, 48000);
            EXPECT_EQ(read.withLabels, choices.labels);
            EXPECT_TRUE(read.blankIsDot);
        }
}

// ---- layer blocks

using Block = std::tuple<int, std::int64_t, bool, bool>; // layer, skipLines, fillBase, fillOut

std::vector<Block> blocks(int code, std::int32_t lines, bool withLabels)
{
    std::vector<Block> found;
    for (const LayerRead& read : layerReads(layersOf(code), lines, withLabels))
        found.emplace_back(read.layer, read.skipLines, read.fillBase, read.fillOut);
    return found;
}

TEST(LayerReads, followTheTableWithLabels)
{
    // 10 rows, one labels line per block: data begin after 2, 10+2+2 = 14 and 20+3+3 = 26 lines.
    EXPECT_THAT(blocks(1, 10, true), ElementsAre(Block{3, 2, true, false}));
    EXPECT_THAT(blocks(2, 10, true), ElementsAre(Block{2, 2, false, true}));
    EXPECT_THAT(blocks(3, 10, true), ElementsAre(Block{2, 2, false, true}, Block{3, 14, false, false}));
    EXPECT_THAT(blocks(4, 10, true), ElementsAre(Block{1, 2, true, true}));
    EXPECT_THAT(blocks(5, 10, true), ElementsAre(Block{1, 2, false, false}, Block{3, 14, true, false}));
    EXPECT_THAT(blocks(6, 10, true), ElementsAre(Block{1, 2, false, false}, Block{2, 14, false, false}));
    EXPECT_THAT(blocks(7, 10, true),
                ElementsAre(Block{1, 2, false, false}, Block{2, 14, false, false}, Block{3, 26, false, false}));
}

TEST(LayerReads, followTheTableWithoutLabels)
{
    // 10 rows: data begin after 1, 10+2 = 12 and 20+3 = 23 lines.
    EXPECT_THAT(blocks(7, 10, false),
                ElementsAre(Block{1, 1, false, false}, Block{2, 12, false, false}, Block{3, 23, false, false}));
}

TEST(LayerReads, lineNumbersDoNotOverflow)
{
    // 2 x 2147483647 + 3 + 3 = 4294967300
    EXPECT_THAT(blocks(7, 2147483647, true).back(), (Block{3, 4294967300, false, false}));
}

TEST(LayerReads, noLayerAtAllIsAFault)
{
    EXPECT_THAT([] { static_cast<void>(layerReads({}, 10, true)); },
                testing::ThrowsMessage<FormatFault>("Wow, where did that i go?!?"));
}

} // namespace
} // namespace tarvelint::test
