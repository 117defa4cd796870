// SPDX-License-Identifier: MIT
#include "machine/disk_folder.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <utility>

/// Steps of a save that the system refuses. Root is not stopped by permissions, and a full disk or a mount point is not
/// to be had everywhere: these steps fail on demand, on real files otherwise.
namespace tarvelint::test {
namespace {

using Kind = FileFailure::Kind;

class RefusedSave : public DiskFolder {
protected:
    SaveCalls calls;

    void SetUp() override
    {
        DiskFolder::SetUp();
        put(path("a.csv"), "old");
    }
    [[nodiscard]] std::optional<FileFailure> failureToSave(const std::string& name = "a.csv")
    {
        DiskFiles refusing(calls);
        try {
            const auto file = refusing.createSafely(path(name));
            file->write("new");
            file->commit();
        } catch (const FileFailure& failure) {
            return failure;
        }
        return std::nullopt;
    }
    void expectOldFileOnly(const std::string& step) const
    {
        EXPECT_EQ(get(path("a.csv")), "old") << step;
        EXPECT_EQ(names(), Names{"a.csv"}) << step;
    }
};

int refuse(int code)
{
    errno = code;
    return -1;
}

bool isFolder(int file)
{
    struct stat status = {};
    return ::fstat(file, &status) == 0 && S_ISDIR(status.st_mode);
}

/// A step of a save and how it is made to fail with a code.
struct Step {
    const char* name;
    void (*refuseWith)(SaveCalls& calls, int code);
};

const Step kSteps[] = {
    {"opening the old file",
     [](SaveCalls& calls, int code) {
         calls.open = [code, real = calls.open](const char* path, int flags, mode_t mode) {
             return (flags & (O_CREAT | O_DIRECTORY)) == 0 ? refuse(code) : real(path, flags, mode);
         };
     }},
    {"creating a file beside it",
     [](SaveCalls& calls, int code) {
         calls.open = [code, real = calls.open](const char* path, int flags, mode_t mode) {
             return (flags & O_CREAT) != 0 ? refuse(code) : real(path, flags, mode);
         };
     }},
    {"writing",
     [](SaveCalls& calls, int code) {
         calls.write = [code](int, const void*, std::size_t) -> ssize_t { return refuse(code); };
     }},
    {"syncing", [](SaveCalls& calls, int code) { calls.sync = [code](int) { return refuse(code); }; }},
    {"closing",
     [](SaveCalls& calls, int code) {
         calls.close = [code, real = calls.close](int file) {
             const bool isNew = (::fcntl(file, F_GETFL) & O_ACCMODE) == O_WRONLY && ::lseek(file, 0, SEEK_CUR) > 0;
             real(file);
             return isNew ? refuse(code) : 0;
         };
     }},
    {"renaming",
     [](SaveCalls& calls, int code) { calls.rename = [code](const char*, const char*) { return refuse(code); }; }},
};

TEST_F(RefusedSave, atAnyStepLeavesTheOldFileWholeAndNothingElse)
{
    for (const Step& step : kSteps) {
        calls = SaveCalls();
        step.refuseWith(calls, EIO);
        const auto failure = failureToSave();
        ASSERT_TRUE(failure) << step.name;
        EXPECT_STREQ(failure->what(), "Input/output error") << step.name;
        EXPECT_EQ(failure->kind(), Kind::other) << step.name;
        expectOldFileOnly(step.name);
    }
    calls = SaveCalls();
    EXPECT_FALSE(failureToSave());
    EXPECT_EQ(get(path("a.csv")), "new");
}

TEST_F(RefusedSave, isInUseForFourCodesAndElseInTheSystemsWords)
{
    const std::vector<std::pair<int, const char*>> inUse{{EACCES, "Permission denied"},
                                                         {EPERM, "Operation not permitted"},
                                                         {EBUSY, "Device or resource busy"},
                                                         {ETXTBSY, "Text file busy"}};
    const std::vector<std::pair<int, const char*>> others{{ENOSPC, "No space left on device"},
                                                          {EDQUOT, "Disk quota exceeded"},
                                                          {EROFS, "Read-only file system"},
                                                          {EIO, "Input/output error"}};
    for (const Step& step : kSteps) {
        for (const auto& [codes, kind] : {std::pair(inUse, Kind::inUse), std::pair(others, Kind::other)}) {
            for (const auto& [code, words] : codes) {
                calls = SaveCalls();
                step.refuseWith(calls, code);
                const auto failure = failureToSave();
                ASSERT_TRUE(failure) << step.name << ": " << words;
                EXPECT_EQ(failure->kind(), kind) << step.name << ": " << words;
                EXPECT_STREQ(failure->what(), words) << step.name;
                expectOldFileOnly(step.name);
            }
        }
    }
}

TEST_F(RefusedSave, aProgramThatIsRunningIsInUse)
{
    const std::string program = path("running");
    std::filesystem::copy_file("/bin/sleep", program);
    pid_t child = -1;
    std::string name = "sleep";
    std::string seconds = "600";
    char* arguments[] = {name.data(), seconds.data(), nullptr};
    // Spawning returns once the program has taken the child over: from then on its file is busy.
    ASSERT_EQ(::posix_spawn(&child, program.c_str(), nullptr, nullptr, arguments, ::environ), 0);
    const auto failure = failureToCreate(files, program);
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    ASSERT_TRUE(failure);
    EXPECT_STREQ(failure->what(), "Text file busy");
    EXPECT_EQ(failure->kind(), Kind::inUse);
    EXPECT_FALSE(failureToCreate(files, program)); // and no longer
}

// ---- syncing

TEST_F(RefusedSave, theFileIsSyncedBeforeItTakesThePlaceAndTheFolderAfterwards)
{
    std::string order;
    calls.sync = [&](int file) {
        order += isFolder(file) ? " folder" : get(path("a.csv")) == "old" ? " file" : " too late";
        return 0;
    };
    calls.rename = [&, real = calls.rename](const char* from, const char* to) {
        order += " rename";
        return real(from, to);
    };
    EXPECT_FALSE(failureToSave());
    EXPECT_EQ(order, " file rename folder");
}

TEST_F(RefusedSave, aFileSystemThatCannotSyncCanBeSavedOn)
{
    for (const int code : {EINVAL, ENOTSUP}) {
        put(path("a.csv"), "old");
        calls.sync = [code](int) { return refuse(code); };
        EXPECT_FALSE(failureToSave()) << code;
        EXPECT_EQ(get(path("a.csv")), "new") << code;
    }
}

TEST_F(RefusedSave, aFolderThatCannotBeOpenedOrSyncedDoesNotUndoASaveThatIsDone)
{
    calls.sync = [](int file) { return isFolder(file) ? refuse(EIO) : 0; };
    EXPECT_FALSE(failureToSave());
    EXPECT_EQ(get(path("a.csv")), "new");
    EXPECT_EQ(names(), Names{"a.csv"});

    put(path("a.csv"), "old");
    calls = SaveCalls();
    calls.open = [real = calls.open](const char* path, int flags, mode_t mode) {
        return (flags & O_DIRECTORY) != 0 ? refuse(EACCES) : real(path, flags, mode);
    };
    EXPECT_FALSE(failureToSave());
    EXPECT_EQ(get(path("a.csv")), "new");
}

// ---- what is no refusal

TEST_F(RefusedSave, interruptedAndPartialWritesGoOn)
{
    int asked = 0;
    calls.write = [&, real = calls.write](int file, const void* bytes, std::size_t) -> ssize_t {
        return ++asked % 2 == 1 ? refuse(EINTR) : real(file, bytes, 1); // one byte at every other time
    };
    calls.sync = [interrupted = false](int) mutable { return std::exchange(interrupted, true) ? 0 : refuse(EINTR); };
    EXPECT_FALSE(failureToSave());
    EXPECT_EQ(get(path("a.csv")), "new");
    EXPECT_EQ(asked, 6);
}

TEST_F(RefusedSave, aWriteThatTakesNothingEnds)
{
    calls.write = [](int, const void*, std::size_t) -> ssize_t { return 0; };
    EXPECT_TRUE(failureToSave());
    expectOldFileOnly("writing");
}

TEST_F(RefusedSave, anotherFileThatBearsTheTemporaryNameIsLeftAlone)
{
    int tried = 0;
    calls.open = [&, real = calls.open](const char* path, int flags, mode_t mode) {
        return (flags & O_CREAT) != 0 && ++tried < 4 ? refuse(EEXIST) : real(path, flags, mode);
    };
    EXPECT_FALSE(failureToSave());
    EXPECT_EQ(get(path("a.csv")), "new");
    EXPECT_EQ(tried, 4);

    // The system gives EEXIST to those only who ask for a file of their own; and there is an end to the asking.
    put(path("a.csv"), "old");
    calls.open = [real = SaveCalls().open](const char* path, int flags, mode_t mode) {
        return (flags & (O_CREAT | O_EXCL)) == (O_CREAT | O_EXCL) ? refuse(EEXIST) : real(path, flags, mode);
    };
    EXPECT_TRUE(failureToSave());
    expectOldFileOnly("creating");
}

TEST_F(RefusedSave, noFileIsLeftOpen)
{
    int open = 0;
    calls.open = [&, real = calls.open](const char* path, int flags, mode_t mode) {
        const int file = real(path, flags, mode);
        if (file >= 0) ++open;
        return file;
    };
    calls.close = [&, real = calls.close](int file) {
        --open;
        return real(file);
    };
    EXPECT_FALSE(failureToSave());
    EXPECT_EQ(open, 0);
    calls.rename = [](const char*, const char*) { return refuse(EBUSY); };
    EXPECT_TRUE(failureToSave());
    EXPECT_EQ(open, 0);
    calls.sync = [](int) { return refuse(EIO); };
    EXPECT_TRUE(failureToSave());
    EXPECT_EQ(open, 0);
}

} // namespace
} // namespace tarvelint::test
