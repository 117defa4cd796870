// SPDX-License-Identifier: MIT
#include "batch/options.h"

#include <gtest/gtest.h>

#include <sstream>
#include <vector>

namespace tarvelint::test {
namespace {

struct Parsed {
    ParsedCommandLine line;
    std::string out;
    std::string err;
};

Parsed parse(std::vector<const char*> arguments)
{
    arguments.insert(arguments.begin(), "tarvelint-batch");
    std::ostringstream out;
    std::ostringstream err;
    Parsed parsed{parseCommandLine(static_cast<int>(arguments.size()), arguments.data(), out, err), {}, {}};
    parsed.out = out.str();
    parsed.err = err.str();
    return parsed;
}

BatchOptions options(const std::vector<const char*>& arguments)
{
    const Parsed parsed = parse(arguments);
    EXPECT_TRUE(parsed.line.options.has_value()) << parsed.err;
    return parsed.line.options.value_or(BatchOptions{});
}

TEST(BatchOptions, defaultsAreThoseOfTheColumnSetup)
{
    const BatchOptions o = options({"in.csv", "-o", "out.csv"});
    EXPECT_EQ(o.vpdColumn, 11);
    EXPECT_EQ(o.parColumn, 3);
    EXPECT_EQ(o.zeroFlow.vpdLimit, 0.05F);
    EXPECT_EQ(o.zeroFlow.parLimit, 0.01F);
    EXPECT_EQ(o.zeroFlow.lullTime, 3);
    EXPECT_EQ(o.blank, 99999);
    EXPECT_FALSE(o.parameters.has_value());
    EXPECT_FALSE(o.quiet);
}

TEST(BatchOptions, allLayersHeaderAndDotsAreOnAndLabelsOff)
{
    const FileContents c = options({"in.csv", "-o", "out.csv"}).choices;
    EXPECT_TRUE(c.unconverted && c.baseline && c.converted && c.header && c.dots);
    EXPECT_FALSE(c.labels);
}

TEST(BatchOptions, flagsTurnThemAround)
{
    const BatchOptions o = options({"in.csv", "-o", "out.csv", "--no-header", "--labels", "--no-dots", "--quiet"});
    EXPECT_FALSE(o.choices.header);
    EXPECT_TRUE(o.choices.labels);
    EXPECT_FALSE(o.choices.dots);
    EXPECT_TRUE(o.quiet);
}

TEST(BatchOptions, layersNameWhatIsWritten)
{
    const FileContents c = options({"in.csv", "-o", "out.csv", "--layers", "baseline,converted"}).choices;
    EXPECT_FALSE(c.unconverted);
    EXPECT_TRUE(c.baseline);
    EXPECT_TRUE(c.converted);
}

TEST(BatchOptions, theDelimiterFollowsTheExtension)
{
    const BatchOptions o = options({"in.txt", "-o", "out.asc"});
    EXPECT_EQ(o.inputType, FileType::tab);
    EXPECT_EQ(o.outputType, FileType::space);
}

TEST(BatchOptions, aDelimiterThatIsGivenWins)
{
    const BatchOptions o =
        options({"in.csv", "-o", "out.asc", "--input-delimiter", "tab", "--output-delimiter", "comma"});
    EXPECT_EQ(o.inputType, FileType::tab);
    EXPECT_EQ(o.outputType, FileType::comma);
}

TEST(BatchOptions, zeroFlowParametersAreTaken)
{
    const BatchOptions o =
        options({"in.csv", "-o", "out.csv", "--vpd-column", "4", "--par-column", "5", "--vpd-limit", "0.1",
                 "--par-limit", "-1", "--lull-time", "6", "--blank", "-9999", "--parameters", "1-4,Tair"});
    EXPECT_EQ(o.vpdColumn, 4);
    EXPECT_EQ(o.parColumn, 5);
    EXPECT_EQ(o.zeroFlow.vpdLimit, 0.1F);
    EXPECT_EQ(o.zeroFlow.parLimit, -1.0F);
    EXPECT_EQ(o.zeroFlow.lullTime, 6);
    EXPECT_EQ(o.blank, -9999);
    EXPECT_EQ(o.parameters, "1-4,Tair");
}

TEST(BatchOptions, numbersAreDecimalWhateverTheyBeginWith)
{
    const BatchOptions o = options({"in.csv", "-o", "out.csv", "--vpd-column", "010", "--blank", "0777"});
    EXPECT_EQ(o.vpdColumn, 10);
    EXPECT_EQ(o.blank, 777);
}

TEST(BatchOptions, helpAndVersionEndWellAndNameTheProgram)
{
    const Parsed help = parse({"--help"});
    EXPECT_FALSE(help.line.options.has_value());
    EXPECT_EQ(help.line.exitStatus, 0);
    for (const char* option :
         {"--output", "--input-delimiter", "--output-delimiter", "--vpd-column", "--par-column", "--vpd-limit",
          "--par-limit", "--lull-time", "--equation", "--baseline-is-high", "--no-baseline-is-high", "--parameters",
          "--layers", "--no-header", "--labels", "--no-dots", "--blank", "--quiet", "--version"})
        EXPECT_NE(help.out.find(option), std::string::npos) << option;
    const Parsed version = parse({"--version"});
    EXPECT_EQ(version.line.exitStatus, 0);
    EXPECT_EQ(version.out.rfind("tarvelint-batch ", 0), 0U);
}

TEST(BatchOptions, whateverIsWrongOnTheCommandLineIsStatusTwoWithAReason)
{
    const std::vector<std::vector<const char*>> wrong{
        {},
        {"in.csv"},
        {"-o", "out.csv"},
        {"", "-o", "out.csv"},
        {"in.csv", "-o", ""},
        {"in.csv", "-o", "out.csv", "--nonsense"},
        {"in.csv", "more.csv", "-o", "out.csv"},
        {"in.csv", "-o", "out.csv", "--vpd-column", "0"},
        {"in.csv", "-o", "out.csv", "--vpd-column", "-1"},
        {"in.csv", "-o", "out.csv", "--par-column", "three"},
        {"in.csv", "-o", "out.csv", "--par-column", "32768"},
        {"in.csv", "-o", "out.csv", "--vpd-column", "0x4"},
        {"in.csv", "-o", "out.csv", "--vpd-limit", "low"},
        {"in.csv", "-o", "out.csv", "--par-limit", "1e39"},
        {"in.csv", "-o", "out.csv", "--lull-time", "3000000000"},
        {"in.csv", "-o", "out.csv", "--lull-time", "soon"},
        {"in.csv", "-o", "out.csv", "--blank", "2147483648"},
        {"in.csv", "-o", "out.csv", "--layers", "sideways"},
        {"in.csv", "-o", "out.csv", "--layers", ""},
        {"in.csv", "-o", "out.csv", "--input-delimiter", "semicolon"},
    };
    for (const auto& arguments : wrong) {
        const Parsed parsed = parse(arguments);
        EXPECT_FALSE(parsed.line.options.has_value()) << testing::PrintToString(arguments);
        EXPECT_EQ(parsed.line.exitStatus, 2) << testing::PrintToString(arguments);
        EXPECT_FALSE(parsed.err.empty()) << testing::PrintToString(arguments);
    }
}

} // namespace
} // namespace tarvelint::test
