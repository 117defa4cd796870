// SPDX-License-Identifier: MIT
#include "window/record_files.h"

#include "support/doubles.h"

#include <gtest/gtest.h>

namespace tarvelint::test {
namespace {

/// What `likelierType` says about a file of this text: "comma 3", or "" when the chosen type will do.
std::string guess(const std::string& text, FileType chosen)
{
    MemoryFiles files;
    files.contents["/r"] = text;
    const auto likelier = likelierType(files, "/r", chosen);
    if (!likelier) return {};
    const char* const name = likelier->type == FileType::space ? "space "
                             : likelier->type == FileType::tab ? "tab "
                                                               : "comma ";
    return name + std::to_string(likelier->fields);
}

TEST(LikelierType, isTheOneWithMostFieldsWhereTheChosenOneFindsOne)
{
    EXPECT_EQ(guess("1,2,3\n4,5,6\n", FileType::space), "comma 3");
    EXPECT_EQ(guess("1\t2\n3\t4\n", FileType::comma), "tab 2");
    EXPECT_EQ(guess("1 2\n3 4\n", FileType::tab), "space 2");
    EXPECT_EQ(guess("1 2,3,4\n5 6,7,8\n", FileType::tab), "comma 3");
}

TEST(LikelierType, isNotAskedForWhereTheChosenOneSplitsTheRow)
{
    EXPECT_EQ(guess("1 2,3,4\n5 6,7,8\n", FileType::space), "");
    EXPECT_EQ(guess("1\n2\n", FileType::space), "") << "a single column by any type";
}

TEST(LikelierType, looksAtTheFirstRowBelowTheLabels)
{
    EXPECT_EQ(guess("Day,Time\n1,2\n", FileType::space), "comma 2");
    EXPECT_EQ(guess("Day Time\n1,2,3\n", FileType::space), "comma 3") << "the labels split, the row does not";
    EXPECT_EQ(guess("a,b,c\n7\n", FileType::space), "") << "the labels alone would";
}

TEST(LikelierType, leavesFilesOfOneLineAndFilesWithAHeaderAlone)
{
    EXPECT_EQ(guess("1,2,3\n", FileType::space), "");
    EXPECT_EQ(guess("", FileType::space), "");
    EXPECT_EQ(guess("Tarvelint output: today,x\n1,2\n", FileType::space), "");
}

TEST(LikelierType, leavesAFileThatCannotBeReadToItsOpening)
{
    MemoryFiles files;
    EXPECT_FALSE(likelierType(files, "/missing", FileType::space));
}

} // namespace
} // namespace tarvelint::test
