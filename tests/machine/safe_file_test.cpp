// SPDX-License-Identifier: MIT
#include "machine/files.h"

#include "machine/disk_folder.h"
#include "machine/nobody.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>

namespace tarvelint::test {
namespace {

using testing::HasSubstr;
using Kind = FileFailure::Kind;

class SafeFileTest : public DiskFolder {};

TEST_F(SafeFileTest, theOldFileIsWholeUntilCommitReplacesIt)
{
    put(path("a.csv"), "old");
    const auto file = files.createSafely(path("a.csv"));
    file->write("new, and longer");
    EXPECT_EQ(get(path("a.csv")), "old");
    file->commit();
    EXPECT_EQ(get(path("a.csv")), "new, and longer");
    EXPECT_EQ(names(), Names{"a.csv"});
}

TEST_F(SafeFileTest, withoutCommitNothingIsLeftBehind)
{
    put(path("a.csv"), "old");
    {
        const auto file = files.createSafely(path("a.csv"));
        file->write(std::string(100000, 'x'));
        const auto other = files.createSafely(path("b.csv"));
        other->write("x");
    }
    EXPECT_EQ(get(path("a.csv")), "old");
    EXPECT_EQ(names(), Names{"a.csv"});
}

TEST_F(SafeFileTest, aReplacedFileKeepsItsPermissions)
{
    put(path("a.csv"), "old");
    ASSERT_EQ(::chmod(path("a.csv").c_str(), 0640), 0);
    const auto file = files.createSafely(path("a.csv"));
    file->write("new");
    file->commit();
    struct stat status = {};
    ASSERT_EQ(::stat(path("a.csv").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0640U);
}

TEST_F(SafeFileTest, aLinkStaysALinkAndItsTargetIsReplaced)
{
    put(path("a.csv"), "old");
    ASSERT_EQ(::symlink(path("a.csv").c_str(), path("link.csv").c_str()), 0);
    const auto file = files.createSafely(path("link.csv"));
    file->write("new");
    file->commit();
    EXPECT_EQ(get(path("a.csv")), "new");
    EXPECT_TRUE(std::filesystem::is_symlink(path("link.csv")));
}

TEST_F(SafeFileTest, aFolderIsNotOverwritten)
{
    const auto failure = failureToCreate(files, folder());
    ASSERT_TRUE(failure);
    EXPECT_STREQ(failure->what(), "Is a directory");
    EXPECT_EQ(failure->kind(), Kind::other);
}

TEST_F(SafeFileTest, whatIsNoRegularFileIsRefused)
{
    ASSERT_EQ(::mkfifo(path("pipe").c_str(), 0600), 0);
    for (const std::string& target : {std::string("/dev/null"), std::string("/dev/full"), path("pipe")}) {
        const auto failure = failureToCreate(files, target);
        ASSERT_TRUE(failure) << target;
        EXPECT_EQ(failure->what(), target + " is not a regular file");
    }
    EXPECT_EQ(names(), Names{"pipe"});
}

TEST_F(SafeFileTest, aMissingFolderIsNamedByTheSystem)
{
    const auto failure = failureToCreate(files, path("no/such/a.csv"));
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->kind(), Kind::other);
    EXPECT_THAT(failure->what(), HasSubstr("No such file or directory"));
}

/// Exit code of a child: 1 when the file could be created, 2 refused as in use, 3 refused otherwise.
[[noreturn]] void createAsNobody(const std::string& path)
{
    becomeNobody();
    DiskFiles files;
    try {
        files.createSafely(path)->commit();
    } catch (const FileFailure& failure) {
        ::_exit(failure.kind() == Kind::inUse ? 2 : 3);
    }
    ::_exit(1);
}

TEST_F(SafeFileTest, aReadOnlyTargetIsRefusedAsInUseAlthoughItsFolderCouldBeWritten)
{
    put(path("a.csv"), "old");
    ASSERT_EQ(::chmod(path("a.csv").c_str(), 0444), 0);
    ASSERT_EQ(::chmod(folder().c_str(), 0777), 0);
    EXPECT_EXIT(createAsNobody(path("a.csv")), testing::ExitedWithCode(2), "");
    EXPECT_EXIT(createAsNobody(path("b.csv")), testing::ExitedWithCode(1), ""); // the folder itself lets it
    EXPECT_EQ(get(path("a.csv")), "old");
}

TEST_F(SafeFileTest, aFolderThatCannotBeWrittenIsRefusedAsInUse)
{
    ASSERT_EQ(::chmod(folder().c_str(), 0555), 0);
    EXPECT_EXIT(createAsNobody(path("b.csv")), testing::ExitedWithCode(2), "");
    ASSERT_EQ(::chmod(folder().c_str(), 0755), 0);
}

TEST_F(SafeFileTest, aFileThatASharedFolderKeepsForItsOwnerIsRefusedAsInUse)
{
    if (::geteuid() != 0) GTEST_SKIP() << "only root can make a file that belongs to somebody else";
    put(path("a.csv"), "old");
    ASSERT_EQ(::chmod(path("a.csv").c_str(), 0666), 0);
    ASSERT_EQ(::chmod(folder().c_str(), 01777), 0);
    EXPECT_EXIT(createAsNobody(path("a.csv")), testing::ExitedWithCode(2), ""); // the last step: may not be replaced
    EXPECT_EQ(get(path("a.csv")), "old");
    EXPECT_EQ(names(), Names{"a.csv"});
}

/// Lets the process write files of at most `bytes`; beyond, writing fails as on a full disk.
class SmallDisk {
public:
    explicit SmallDisk(rlim_t bytes)
    {
        m_handler = std::signal(SIGXFSZ, SIG_IGN);
        ::getrlimit(RLIMIT_FSIZE, &m_before);
        rlimit small = m_before;
        small.rlim_cur = bytes;
        ::setrlimit(RLIMIT_FSIZE, &small);
    }
    ~SmallDisk()
    {
        ::setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;

private:
    rlimit m_before = {};
    void (*m_handler)(int) = nullptr;
};

/// Writes `bytes` over an old file where only 10,000 fit; what it fails with.
std::optional<FileFailure> failureToFill(DiskFiles& files, const std::string& path, std::size_t bytes)
{
    const SmallDisk disk(10000);
    try {
        const auto file = files.createSafely(path);
        for (std::size_t written = 0; written < bytes; written += 1000) file->write(std::string(1000, 'x'));
        file->commit();
    } catch (const FileFailure& failure) {
        return failure;
    }
    return std::nullopt;
}

TEST_F(SafeFileTest, aDiskThatFillsUpIsReportedAndTheOldFileIsWhole)
{
    // 12,000 bytes wait in a buffer until commit; 200,000 fail on the way.
    for (const std::size_t bytes : {std::size_t{12000}, std::size_t{200000}}) {
        put(path("a.csv"), "old");
        const auto failure = failureToFill(files, path("a.csv"), bytes);
        ASSERT_TRUE(failure) << bytes;
        EXPECT_EQ(failure->kind(), Kind::other);
        EXPECT_THAT(failure->what(), HasSubstr("File too large"));
        EXPECT_EQ(get(path("a.csv")), "old");
        EXPECT_EQ(names(), Names{"a.csv"});
    }
    EXPECT_FALSE(failureToFill(files, path("a.csv"), 9000));
}

} // namespace
} // namespace tarvelint::test
