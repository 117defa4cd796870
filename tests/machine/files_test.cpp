// SPDX-License-Identifier: MIT
#include "machine/files.h"

#include "machine/disk_folder.h"
#include "machine/nobody.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include <iostream>

namespace tarvelint::test {
namespace {

using Kind = FileFailure::Kind;

class DiskFilesTest : public DiskFolder {};

TEST_F(DiskFilesTest, readsBytesAsTheyAre)
{
    put(path("a.csv"), std::string("1,2\r\n\0\xFF", 7));
    const auto stream = files.openForReading(path("a.csv"));
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(*stream), {}), std::string("1,2\r\n\0\xFF", 7));
}

TEST_F(DiskFilesTest, givesASeekableStream)
{
    put(path("a.csv"), "abcdef");
    const auto stream = files.openForReading(path("a.csv"));
    stream->seekg(3);
    EXPECT_EQ(stream->get(), 'd');
    stream->seekg(0);
    EXPECT_EQ(stream->get(), 'a');
}

TEST_F(DiskFilesTest, namesMayBeUtf8)
{
    const std::string name = path("M\xC3\xA4rz \xE6\xB8\xAC.csv");
    const auto file = files.createSafely(name);
    file->write("x");
    file->commit();
    EXPECT_TRUE(files.exists(name));
    EXPECT_EQ(files.openForReading(name)->get(), 'x');
}

TEST_F(DiskFilesTest, aMissingFileIsRefusedInTheSystemsWords)
{
    EXPECT_FALSE(files.exists(path("none.csv")));
    const auto failure = failureToRead(files, path("none.csv"));
    ASSERT_TRUE(failure);
    EXPECT_STREQ(failure->what(), "No such file or directory");
    EXPECT_EQ(failure->kind(), Kind::other);
}

TEST_F(DiskFilesTest, aFolderIsNoRecord)
{
    const auto failure = failureToRead(files, folder());
    ASSERT_TRUE(failure);
    EXPECT_STREQ(failure->what(), "Is a directory");
}

/// Exit code of a child: 1 when the file could be opened, else 2, with the reason on the error stream.
[[noreturn]] void readAsNobody(const std::string& path)
{
    becomeNobody();
    DiskFiles files;
    try {
        static_cast<void>(files.openForReading(path));
    } catch (const FileFailure& failure) {
        std::cerr << failure.what();
        ::_exit(2);
    }
    ::_exit(1);
}

TEST_F(DiskFilesTest, aFileThatMayNotBeReadIsRefusedInTheSystemsWords)
{
    put(path("secret.csv"), "1,2");
    put(path("public.csv"), "1,2");
    ASSERT_EQ(::chmod(folder().c_str(), 0755), 0);
    ASSERT_EQ(::chmod(path("secret.csv").c_str(), 0), 0);
    ASSERT_EQ(::chmod(path("public.csv").c_str(), 0644), 0);
    EXPECT_EXIT(readAsNobody(path("secret.csv")), testing::ExitedWithCode(2), "^Permission denied$");
    EXPECT_EXIT(readAsNobody(path("public.csv")), testing::ExitedWithCode(1), "");
}

} // namespace
} // namespace tarvelint::test
