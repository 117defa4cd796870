// SPDX-License-Identifier: MIT
#include "machine/files.h"

#include "machine/disk_folder.h"
#include "machine/nobody.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <iostream>

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

mode_t permissionsOf(const std::string& path)
{
    struct stat status = {};
    EXPECT_EQ(::stat(path.c_str(), &status), 0);
    return status.st_mode & 07777U;
}

TEST_F(SafeFileTest, aReplacedFileKeepsItsPermissionsWhateverTheUsualOnesAre)
{
    const mode_t before = ::umask(0027);
    for (const mode_t permissions : {0640U, 0600U, 0666U, 0755U}) {
        put(path("a.csv"), "old");
        ASSERT_EQ(::chmod(path("a.csv").c_str(), permissions), 0);
        const auto file = files.createSafely(path("a.csv"));
        file->write("new");
        file->commit();
        EXPECT_EQ(permissionsOf(path("a.csv")), permissions);
        EXPECT_EQ(get(path("a.csv")), "new");
    }
    ::umask(before);
}

TEST_F(SafeFileTest, aNewFileHasThePermissionsThatAreUsualHere)
{
    const mode_t before = ::umask(0027);
    files.createSafely(path("a.csv"))->commit();
    ::umask(0002);
    files.createSafely(path("b.csv"))->commit();
    ::umask(before);
    EXPECT_EQ(permissionsOf(path("a.csv")), 0640U);
    EXPECT_EQ(permissionsOf(path("b.csv")), 0664U);
}

TEST_F(SafeFileTest, whatIsBeingWrittenCanAtNoTimeBeOpenedByThoseWhoCouldNotReadTheOldFile)
{
    put(path("a.csv"), "old");
    ASSERT_EQ(::chmod(path("a.csv").c_str(), 0600), 0);
    std::vector<mode_t> fromTheStart;
    SaveCalls calls;
    calls.open = [&](const char* name, int flags, mode_t mode) {
        const int file = ::open(name, flags, mode);
        if ((flags & O_CREAT) != 0) fromTheStart.push_back(permissionsOf(name));
        return file;
    };
    const auto file = DiskFiles(calls).createSafely(path("a.csv"));
    EXPECT_EQ(fromTheStart, std::vector<mode_t>{0600U});
    ASSERT_EQ(names().size(), 2U);
    for (const std::string& name : names()) EXPECT_EQ(permissionsOf(path(name)), 0600U) << name;
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
    const auto failure = failureToCreate(files, path("pipe"));
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->what(), path("pipe") + " is not a regular file");
    EXPECT_EQ(names(), Names{"pipe"});
}

TEST_F(SafeFileTest, aMissingFolderIsNamedByTheSystem)
{
    const auto failure = failureToCreate(files, path("no/such/a.csv"));
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->kind(), Kind::other);
    EXPECT_THAT(failure->what(), HasSubstr("No such file or directory"));
}

/// Exit code of a child: 1 when the file could be created, 2 refused as in use, 3 refused otherwise, with the reason on
/// the error stream.
[[noreturn]] void createAsNobody(const std::string& path)
{
    becomeNobody();
    DiskFiles files;
    try {
        files.createSafely(path)->commit();
    } catch (const FileFailure& failure) {
        std::cerr << failure.what();
        ::_exit(failure.kind() == Kind::inUse ? 2 : 3);
    }
    ::_exit(1);
}

// By nobody: root could put a file in the place of the machine's own device, should this ever go wrong.
TEST_F(SafeFileTest, aDeviceIsRefused)
{
    for (const char* device : {"/dev/null", "/dev/full"})
        EXPECT_EXIT(createAsNobody(device), testing::ExitedWithCode(3),
                    "^" + std::string(device) + " is not a regular file$");
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
        for (std::size_t written = 0; written < bytes; written += 1000)
            file->write(std::string(std::min(bytes - written, std::size_t{1000}), 'x'));
        file->commit();
    } catch (const FileFailure& failure) {
        return failure;
    }
    return std::nullopt;
}

TEST_F(SafeFileTest, aDiskThatFillsUpIsReportedAndTheOldFileIsWhole)
{
    for (const std::size_t bytes : {std::size_t{10001}, std::size_t{200000}}) {
        put(path("a.csv"), "old");
        const auto failure = failureToFill(files, path("a.csv"), bytes);
        ASSERT_TRUE(failure) << bytes;
        EXPECT_EQ(failure->kind(), Kind::other);
        EXPECT_THAT(failure->what(), HasSubstr("File too large"));
        EXPECT_EQ(get(path("a.csv")), "old");
        EXPECT_EQ(names(), Names{"a.csv"});
    }
    EXPECT_FALSE(failureToFill(files, path("a.csv"), 10000));
}

} // namespace
} // namespace tarvelint::test
