// SPDX-License-Identifier: MIT
#include "data/file_format.h"

#include <gtest/gtest.h>

namespace tarvelint::test {
namespace {

TEST(Delimiters, followTheFileTypePicked)
{
    EXPECT_EQ(delimiterOf(FileType::space), ' ');
    EXPECT_EQ(delimiterOf(FileType::tab), '\t');
    EXPECT_EQ(delimiterOf(FileType::comma), ',');
}

TEST(Delimiters, fileTypesAreNumberedAsTheDialogListsThem)
{
    EXPECT_EQ(FileType::space, FileType{1});
    EXPECT_EQ(FileType::tab, FileType{2});
    EXPECT_EQ(FileType::comma, FileType{3});
    for (const FileTypeFacts& facts : kFileTypes) EXPECT_EQ(&factsOf(facts.type), &facts);
}

TEST(Delimiters, followTheExtension)
{
    EXPECT_EQ(fileTypeOfExtension("a.asc"), FileType::space);
    EXPECT_EQ(fileTypeOfExtension("a.TXT"), FileType::tab);
    EXPECT_EQ(fileTypeOfExtension("a.csv"), FileType::comma);
    EXPECT_EQ(fileTypeOfExtension("a.dat"), FileType::comma);
    EXPECT_EQ(fileTypeOfExtension("a"), FileType::comma);
    EXPECT_EQ(fileTypeOfExtension("folder.txt/a"), FileType::comma);
}

} // namespace
} // namespace tarvelint::test
