// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include <string>

#include <sys/wait.h>
#include <unistd.h>

/// The installed program itself, started as a script starts it.
namespace tarvelint::test {
namespace {

namespace fs = std::filesystem;

class BatchProgram : public testing::Test {
protected:
    fs::path folder;

    void SetUp() override
    {
        std::string pattern = (fs::temp_directory_path() / "tarvelint-batch-XXXXXX").string();
        ASSERT_NE(mkdtemp(pattern.data()), nullptr);
        folder = pattern;
    }
    void TearDown() override { fs::remove_all(folder); }

    /// Exit status of the program; its output lands in "out" and "err" of the folder.
    int run(const std::string& arguments, const std::string& before = "")
    {
        const std::string command = before + " " TARVELINT_BATCH " " + arguments + " >" + (folder / "stdout").string() +
                                    " 2>" + (folder / "stderr").string() + " </dev/null";
        const int status = std::system(command.c_str());
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
    [[nodiscard]] std::string content(const std::string& name) const
    {
        std::ifstream file(folder / name, std::ios::binary);
        std::ostringstream text;
        text << file.rdbuf();
        return text.str();
    }
    [[nodiscard]] std::string path(const std::string& name) const { return (folder / name).string(); }
    const std::string sample = TARVELINT_SAMPLE;
};

TEST_F(BatchProgram, convertsTheSampleAndSaysSo)
{
    ASSERT_EQ(run(sample + " -o " + path("out.csv") + " --vpd-column 4 --parameters 1-5"), 0) << content("stderr");
    EXPECT_EQ(content("out.csv").rfind("Tarvelint output: ", 0), 0U);
    const std::string lines = content("stdout");
    for (const char* sensor : {"S1: ", "S2: ", "S3: ", "S4: ", "S5: ", "S6: ", "S7: ", "S8: "})
        EXPECT_NE(lines.find(sensor), std::string::npos) << lines;
    EXPECT_TRUE(content("stderr").empty()) << content("stderr");
}

TEST_F(BatchProgram, exitsWithTwoForAWrongCommandLineAndOneForDataItCannotUse)
{
    EXPECT_EQ(run("--nonsense"), 2);
    EXPECT_EQ(run(path("nowhere.csv") + " -o " + path("out.csv")), 1);
    EXPECT_EQ(run(folder.string() + " -o " + path("out.csv")), 1);
    EXPECT_FALSE(fs::exists(folder / "out.csv"));
    EXPECT_EQ(run("--version"), 0);
}

TEST_F(BatchProgram, aSummaryThatNobodyCanReadIsAFaultAndTheFileIsThere)
{
    const std::string arguments = sample + " -o " + path("out.csv") + " --vpd-column 4 --parameters 1-5";
    const auto statusWith = [&](const std::string& redirection) {
        fs::remove(folder / "out.csv");
        const int status =
            std::system((TARVELINT_BATCH " " + arguments + " " + redirection + " 2>" + path("stderr")).c_str());
        EXPECT_TRUE(fs::exists(folder / "out.csv"));
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    };
    EXPECT_EQ(statusWith(">/dev/full"), 1);
    EXPECT_NE(content("stderr").find("summary cannot be written"), std::string::npos);
    EXPECT_EQ(statusWith(">&-"), 1);
    EXPECT_EQ(statusWith("--quiet >/dev/full"), 0);
}

TEST_F(BatchProgram, givesTheSameBytesUnderAnyLocaleButForTheDate)
{
    const std::string arguments = " --vpd-column 4 --layers unconverted,converted --no-header";
    ASSERT_EQ(run(sample + " -o " + path("c.csv") + arguments, "LC_ALL=C"), 0);
    ASSERT_EQ(run(sample + " -o " + path("de.csv") + arguments, "LC_ALL=de_DE.UTF-8"), 0);
    EXPECT_EQ(content("c.csv"), content("de.csv"));
    EXPECT_GT(content("c.csv").size(), 100000U);
}

TEST_F(BatchProgram, theUsersSettingsChangeNothing)
{
    fs::create_directories(folder / "none");
    fs::create_directories(folder / "user" / "Tarvelint");
    std::ofstream(folder / "user" / "Tarvelint" / "Tarvelint.ini")
        << "[Settings]\nBlank=-1\nVPDlimit=0.000001\nZero=1\nlullTime=1000\n";
    const std::string arguments = " --vpd-column 4 --no-header --no-dots";
    ASSERT_EQ(run(sample + " -o " + path("plain.csv") + arguments, "XDG_CONFIG_HOME=" + path("none")), 0);
    ASSERT_EQ(run(sample + " -o " + path("user.csv") + arguments, "XDG_CONFIG_HOME=" + path("user")), 0);
    EXPECT_GT(content("plain.csv").size(), 100000U);
    EXPECT_TRUE(content("plain.csv") == content("user.csv"));
}

TEST_F(BatchProgram, anInputThatNeverEndsIsRefusedAtOnce)
{
    ASSERT_EQ(std::system(("mkfifo " + path("pipe")).c_str()), 0);
    for (const std::string& input : {path("pipe"), std::string("/dev/zero")}) {
        EXPECT_EQ(run(input + " -o " + path("out.csv"), "timeout 20"), 1) << input;
        EXPECT_NE(content("stderr").find(input), std::string::npos) << content("stderr");
        EXPECT_FALSE(fs::exists(folder / "out.csv"));
    }
}

TEST_F(BatchProgram, replacesAnExistingOutputOnlyAsAWhole)
{
    std::ofstream(folder / "out.csv") << "precious";
    EXPECT_EQ(run(sample + " -o " + path("out.csv") + " --vpd-column 99"), 1);
    EXPECT_EQ(content("out.csv"), "precious");
    // A limit on file size stands for a disk that fills up while the file is being written.
    EXPECT_EQ(run(sample + " -o " + path("out.csv") + " --vpd-column 4", "trap '' XFSZ; ulimit -f 8;"), 1);
    EXPECT_EQ(content("out.csv"), "precious");
    EXPECT_NE(content("stderr").find("out.csv cannot be written"), std::string::npos) << content("stderr");
    EXPECT_EQ(run(sample + " -o " + path("out.csv") + " --vpd-column 4"), 0);
    EXPECT_NE(content("out.csv"), "precious");
    std::size_t files = 0;
    for ([[maybe_unused]] const auto& entry : fs::directory_iterator(folder)) ++files;
    EXPECT_EQ(files, 3U) << "stdout, stderr and the output: nothing half-written is left";
}

TEST_F(BatchProgram, refusesToReplaceWhatIsNoRegularFile)
{
    EXPECT_EQ(run(sample + " -o " + folder.string() + " --vpd-column 4"), 1);
    ASSERT_EQ(std::system(("mkfifo " + path("pipe")).c_str()), 0);
    EXPECT_EQ(run(sample + " -o " + path("pipe") + " --vpd-column 4"), 1);
    EXPECT_TRUE(fs::is_fifo(folder / "pipe"));
}

TEST_F(BatchProgram, namesThatAreNotUtf8AreReadAndWrittenAsTheyStand)
{
    const std::string input = "M\xE4rz.csv"; // in Latin-1
    const std::string output = "Saftflu\xDF.csv";
    fs::copy_file(sample, folder / input);
    for (const char* time : {"created", "replaced"}) {
        ASSERT_EQ(run(path(input) + " -o " + path(output) + " --vpd-column 4"), 0) << time << content("stderr");
        EXPECT_EQ(content(output).rfind("Tarvelint output: ", 0), 0U) << time;
        std::set<std::string> names;
        for (const auto& entry : fs::directory_iterator(folder)) names.insert(entry.path().filename().native());
        EXPECT_EQ(names, (std::set<std::string>{input, output, "stdout", "stderr"})) << time;
        std::ofstream(folder / output) << "what the second run is to replace";
    }
    // What it cannot use it names by the same bytes.
    fs::remove(folder / input);
    EXPECT_EQ(run(path(input) + " -o " + path(output)), 1);
    EXPECT_NE(content("stderr").find(input), std::string::npos) << content("stderr");
}

TEST_F(BatchProgram, aLinkInALinkedFolderLeadsWhereTheSystemSays)
{
    fs::create_directories(folder / "deep" / "2024");
    fs::create_symlink("../out.csv", folder / "deep" / "2024" / "link.csv");
    fs::create_directory_symlink("deep/2024", folder / "season");
    std::ofstream(folder / "out.csv") << "precious"; // beside "season", and not above what it leads to
    ASSERT_EQ(run(sample + " -o " + path("season/link.csv") + " --vpd-column 4"), 0) << content("stderr");
    EXPECT_EQ(content("out.csv"), "precious");
    EXPECT_EQ(content("deep/out.csv").rfind("Tarvelint output: ", 0), 0U);
}

TEST_F(BatchProgram, theMeasuredRecordsGoThrough)
{
    const fs::path data = fs::path(TARVELINT_SOURCE_DIR) / ".." / "shared" / "data";
    if (!fs::exists(data)) GTEST_SKIP() << "the measured records are not beside this checkout";
    // Column 5 is the sensor. The third record has no weather at all: no lull, no point, nothing converted.
    ASSERT_EQ(run((data / "spruce_15min_2012.csv").string() + " -o " + path("a.csv") + " --vpd-column 4"), 0);
    EXPECT_EQ(content("stdout").rfind("dV_N13: ", 0), 0U) << content("stdout");
    ASSERT_EQ(run((data / "spruce_15min_2013.csv").string() + " -o " + path("b.csv") + " --vpd-column 4"), 0);
    EXPECT_NE(content("b.csv").find(",5 columns,35039 rows each,"), std::string::npos);
    ASSERT_EQ(run((data / "hourly_2014_no_weather.csv").string() + " -o " + path("c.csv") + " --vpd-column 4"), 1);
    EXPECT_EQ(content("stdout"),
              "dT_c1: 0 points, 0 rows converted, 735 readings left unconverted, 166 rows missing\n");
    EXPECT_NE(content("stderr").find("the lowest VPD is missing throughout"), std::string::npos) << content("stderr");
    EXPECT_NE(content("c.csv").find("901 rows each"), std::string::npos);
}

} // namespace
} // namespace tarvelint::test
