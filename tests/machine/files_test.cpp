// SPDX-License-Identifier: MIT
#include "machine/files.h"

#include "machine/nobody.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <fstream>
#include <iostream>
#include <iterator>
#include <optional>

namespace tarvelint::test {
namespace {

using testing::HasSubstr;
using Kind = FileFailure::Kind;

/// A folder of its own for each test.
class DiskFilesTest : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(m_folder.isValid()); }

    [[nodiscard]] std::string path(const std::string& name) const { return m_folder.path().toStdString() + "/" + name; }
    static void put(const std::string& path, const std::string& text) { std::ofstream(path, std::ios::binary) << text; }
    static std::string get(const std::string& path)
    {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    /// Names in the folder; leftovers of a save would stand here.
    [[nodiscard]] QStringList names() const
    {
        return QDir(m_folder.path()).entryList(QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot);
    }
    [[nodiscard]] std::optional<FileFailure> failureToCreate(const std::string& path)
    {
        try {
            files.createSafely(path)->commit();
        } catch (const FileFailure& failure) {
            return failure;
        }
        return std::nullopt;
    }
    [[nodiscard]] std::optional<FileFailure> failureToRead(const std::string& path)
    {
        try {
            static_cast<void>(files.openForReading(path));
        } catch (const FileFailure& failure) {
            return failure;
        }
        return std::nullopt;
    }

    QTemporaryDir m_folder;
    DiskFiles files;
};

// Reading

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
    const auto failure = failureToRead(path("none.csv"));
    ASSERT_TRUE(failure);
    EXPECT_STREQ(failure->what(), "No such file or directory");
    EXPECT_EQ(failure->kind(), Kind::other);
}

TEST_F(DiskFilesTest, aFolderIsNoRecord)
{
    const auto failure = failureToRead(m_folder.path().toStdString());
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
    ASSERT_EQ(::chmod(m_folder.path().toUtf8().constData(), 0755), 0);
    ASSERT_EQ(::chmod(path("secret.csv").c_str(), 0), 0);
    ASSERT_EQ(::chmod(path("public.csv").c_str(), 0644), 0);
    EXPECT_EXIT(readAsNobody(path("secret.csv")), testing::ExitedWithCode(2), "^Permission denied$");
    EXPECT_EXIT(readAsNobody(path("public.csv")), testing::ExitedWithCode(1), "");
}

// Writing

TEST_F(DiskFilesTest, theOldFileIsWholeUntilCommitReplacesIt)
{
    put(path("a.csv"), "old");
    const auto file = files.createSafely(path("a.csv"));
    file->write("new, and longer");
    EXPECT_EQ(get(path("a.csv")), "old");
    file->commit();
    EXPECT_EQ(get(path("a.csv")), "new, and longer");
    EXPECT_EQ(names(), QStringList{QStringLiteral("a.csv")});
}

TEST_F(DiskFilesTest, withoutCommitNothingIsLeftBehind)
{
    put(path("a.csv"), "old");
    {
        const auto file = files.createSafely(path("a.csv"));
        file->write(std::string(100000, 'x'));
        const auto other = files.createSafely(path("b.csv"));
        other->write("x");
    }
    EXPECT_EQ(get(path("a.csv")), "old");
    EXPECT_EQ(names(), QStringList{QStringLiteral("a.csv")});
}

TEST_F(DiskFilesTest, aReplacedFileKeepsItsPermissions)
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

TEST_F(DiskFilesTest, aLinkStaysALinkAndItsTargetIsReplaced)
{
    put(path("a.csv"), "old");
    ASSERT_EQ(::symlink(path("a.csv").c_str(), path("link.csv").c_str()), 0);
    const auto file = files.createSafely(path("link.csv"));
    file->write("new");
    file->commit();
    EXPECT_EQ(get(path("a.csv")), "new");
    EXPECT_TRUE(QFileInfo(QString::fromStdString(path("link.csv"))).isSymLink());
}

TEST_F(DiskFilesTest, aFolderIsNotOverwritten)
{
    const auto failure = failureToCreate(m_folder.path().toStdString());
    ASSERT_TRUE(failure);
    EXPECT_STREQ(failure->what(), "Is a directory");
    EXPECT_EQ(failure->kind(), Kind::other);
}

TEST_F(DiskFilesTest, whatIsNoRegularFileIsRefused)
{
    ASSERT_EQ(::mkfifo(path("pipe").c_str(), 0600), 0);
    for (const std::string& target : {std::string("/dev/null"), std::string("/dev/full"), path("pipe")}) {
        const auto failure = failureToCreate(target);
        ASSERT_TRUE(failure) << target;
        EXPECT_EQ(failure->what(), target + " is not a regular file");
    }
    EXPECT_EQ(names(), QStringList{QStringLiteral("pipe")});
}

TEST_F(DiskFilesTest, aMissingFolderIsNamedByTheSystem)
{
    const auto failure = failureToCreate(path("no/such/a.csv"));
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

TEST_F(DiskFilesTest, aReadOnlyTargetIsRefusedAsInUseAlthoughItsFolderCouldBeWritten)
{
    put(path("a.csv"), "old");
    ASSERT_EQ(::chmod(path("a.csv").c_str(), 0444), 0);
    ASSERT_EQ(::chmod(m_folder.path().toUtf8().constData(), 0777), 0);
    EXPECT_EXIT(createAsNobody(path("a.csv")), testing::ExitedWithCode(2), "");
    EXPECT_EXIT(createAsNobody(path("b.csv")), testing::ExitedWithCode(1), ""); // the folder itself lets it
    EXPECT_EQ(get(path("a.csv")), "old");
}

TEST_F(DiskFilesTest, aFolderThatCannotBeWrittenIsRefusedAsInUse)
{
    ASSERT_EQ(::chmod(m_folder.path().toUtf8().constData(), 0555), 0);
    EXPECT_EXIT(createAsNobody(path("b.csv")), testing::ExitedWithCode(2), "");
    ASSERT_EQ(::chmod(m_folder.path().toUtf8().constData(), 0755), 0);
}

TEST_F(DiskFilesTest, aFileThatASharedFolderKeepsForItsOwnerIsRefusedAsInUse)
{
    if (::geteuid() != 0) GTEST_SKIP() << "only root can make a file that belongs to somebody else";
    put(path("a.csv"), "old");
    ASSERT_EQ(::chmod(path("a.csv").c_str(), 0666), 0);
    ASSERT_EQ(::chmod(m_folder.path().toUtf8().constData(), 01777), 0);
    EXPECT_EXIT(createAsNobody(path("a.csv")), testing::ExitedWithCode(2), ""); // the last step: may not be replaced
    EXPECT_EQ(get(path("a.csv")), "old");
    EXPECT_EQ(names(), QStringList{QStringLiteral("a.csv")});
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

TEST_F(DiskFilesTest, aDiskThatFillsUpIsReportedAndTheOldFileIsWhole)
{
    // 12,000 bytes wait in a buffer until commit; 200,000 fail on the way.
    for (const std::size_t bytes : {std::size_t{12000}, std::size_t{200000}}) {
        put(path("a.csv"), "old");
        const auto failure = failureToFill(files, path("a.csv"), bytes);
        ASSERT_TRUE(failure) << bytes;
        EXPECT_EQ(failure->kind(), Kind::other);
        EXPECT_THAT(failure->what(), HasSubstr("File too large"));
        EXPECT_EQ(get(path("a.csv")), "old");
        EXPECT_EQ(names(), QStringList{QStringLiteral("a.csv")});
    }
    EXPECT_FALSE(failureToFill(files, path("a.csv"), 9000));
}

} // namespace
} // namespace tarvelint::test
