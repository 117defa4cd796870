// SPDX-License-Identifier: MIT
#include "machine/disk_folder.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

/// Which file a save replaces or creates.
namespace tarvelint::test {
namespace {

namespace fs = std::filesystem;
using Kind = FileFailure::Kind;

class SafeFileName : public DiskFolder {
protected:
    void save(const std::string& target)
    {
        const auto file = files.createSafely(target);
        file->write("new");
        file->commit();
    }
    /// Links in the test's folder; what they lead to is written as it stands.
    void link(const std::string& name, const std::string& target)
    {
        ASSERT_EQ(::symlink(target.c_str(), path(name).c_str()), 0);
    }
    void makeFolders(const std::string& names) { fs::create_directories(path(names)); }
};

// ---- links

TEST_F(SafeFileName, aRelativeLinkInALinkedFolderStartsFromTheFolderItReallyLiesIn)
{
    // "season" is a link to deep/2024. Seen from there "../a.csv" is deep/a.csv, and not the a.csv beside "season".
    makeFolders("deep/2024");
    put(path("a.csv"), "another file");
    put(path("deep/a.csv"), "old");
    link("deep/2024/link.csv", "../a.csv");
    link("season", "deep/2024");
    save(path("season/link.csv"));
    EXPECT_EQ(get(path("a.csv")), "another file");
    EXPECT_EQ(get(path("deep/a.csv")), "new");
    EXPECT_TRUE(fs::is_symlink(path("deep/2024/link.csv")));
    EXPECT_EQ(names("deep/2024"), Names{"link.csv"});
    EXPECT_EQ(names("deep"), (Names{"2024", "a.csv"}));
    EXPECT_EQ(names(), (Names{"a.csv", "deep", "season"}));
}

TEST_F(SafeFileName, theFolderAboveALinkedFolderIsTheOneAboveItsTarget)
{
    makeFolders("deep/2024");
    put(path("a.csv"), "another file");
    put(path("deep/a.csv"), "old");
    link("season", "deep/2024");
    save(path("season/../a.csv"));
    save(path("season/../b.csv"));
    EXPECT_EQ(get(path("a.csv")), "another file");
    EXPECT_EQ(get(path("deep/a.csv")), "new");
    EXPECT_EQ(names("deep"), (Names{"2024", "a.csv", "b.csv"}));
}

TEST_F(SafeFileName, aChainOfLinksIsFollowedToItsEnd)
{
    makeFolders("one");
    makeFolders("two/three");
    put(path("two/a.csv"), "old");
    link("first.csv", "one/second.csv");
    link("one/second.csv", path("two/three/third.csv"));
    link("two/three/third.csv", "../a.csv");
    save(path("first.csv"));
    EXPECT_EQ(get(path("two/a.csv")), "new");
    for (const char* still : {"first.csv", "one/second.csv", "two/three/third.csv"})
        EXPECT_TRUE(fs::is_symlink(path(still))) << still;
    EXPECT_EQ(names("two"), (Names{"a.csv", "three"}));
}

TEST_F(SafeFileName, aLinkToNothingCreatesWhatItNames)
{
    makeFolders("sub");
    link("link.csv", "sub/again.csv");
    link("sub/again.csv", "../a.csv");
    save(path("link.csv"));
    EXPECT_EQ(get(path("a.csv")), "new");
    EXPECT_FALSE(fs::is_symlink(path("a.csv")));
    EXPECT_TRUE(fs::is_symlink(path("link.csv")));
    EXPECT_EQ(names(), (Names{"a.csv", "link.csv", "sub"}));
}

TEST_F(SafeFileName, aLinkIntoAFolderThatIsNotThereIsRefused)
{
    link("link.csv", "nowhere/a.csv");
    const auto failure = failureToCreate(files, path("link.csv"));
    ASSERT_TRUE(failure);
    EXPECT_STREQ(failure->what(), "No such file or directory");
    EXPECT_EQ(names(), Names{"link.csv"});
}

TEST_F(SafeFileName, linksInACircleAreAnError)
{
    link("one.csv", "two.csv");
    link("two.csv", "one.csv");
    link("self.csv", "self.csv");
    for (const char* name : {"one.csv", "self.csv"}) {
        const auto failure = failureToCreate(files, path(name));
        ASSERT_TRUE(failure) << name;
        EXPECT_STREQ(failure->what(), "Too many levels of symbolic links");
        EXPECT_EQ(failure->kind(), Kind::other);
    }
    EXPECT_EQ(names(), (Names{"one.csv", "self.csv", "two.csv"}));
}

TEST_F(SafeFileName, aLinkToAFolderIsAFolder)
{
    makeFolders("sub");
    link("link.csv", "sub");
    for (const char* name : {"link.csv", "link.csv/", "sub/", "sub/.", "sub/.."}) {
        const auto failure = failureToCreate(files, path(name));
        ASSERT_TRUE(failure) << name;
        EXPECT_STREQ(failure->what(), "Is a directory") << name;
    }
    EXPECT_TRUE(names("sub").empty());
    EXPECT_EQ(names(), (Names{"link.csv", "sub"}));
}

TEST_F(SafeFileName, aLinkThatOnlyReadsLikeANameIsNotTakenForOne)
{
    // An open file that has been deleted is a link to "... (deleted)" in /proc, which may be the name of another one.
    put(path("a.csv"), "old");
    const int open = ::open(path("a.csv").c_str(), O_RDWR | O_CLOEXEC);
    ASSERT_GE(open, 0);
    fs::remove(path("a.csv"));
    put(path("a.csv (deleted)"), "another file");
    const auto failure = failureToCreate(files, "/proc/self/fd/" + std::to_string(open));
    ::close(open);
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->kind(), Kind::other);
    EXPECT_EQ(get(path("a.csv (deleted)")), "another file");
}

// ---- names

TEST_F(SafeFileName, bytesThatAreNotUtf8AreKept)
{
    const std::string name = "M\xE4rz\xFF.csv"; // in Latin-1, with a byte that no UTF-8 text has
    for (int time = 1; time <= 2; ++time) {     // created, then replaced
        save(path(name));
        EXPECT_EQ(names(), Names{name}) << time;
    }
    EXPECT_TRUE(files.exists(path(name)));
    EXPECT_FALSE(files.exists(path("M\xEF\xBF\xBDrz\xEF\xBF\xBD.csv"))); // what a toolkit makes of it
    EXPECT_EQ(get(path(name)), "new");
    EXPECT_EQ(files.openForReading(path(name))->get(), 'n');
}

TEST_F(SafeFileName, foldersAndLinksNeedNotBeUtf8Either)
{
    makeFolders("Stra\xDF"
                "e");
    link("Verkn\xFCpfung", "Stra\xDF"
                           "e/\xE4.csv");
    save(path("Verkn\xFCpfung"));
    EXPECT_EQ(names("Stra\xDF"
                    "e"),
              Names{"\xE4.csv"});
}

TEST_F(SafeFileName, theLongestNameThereIsCanBeSaved)
{
    const std::string longest(255, 'x');
    for (int time = 1; time <= 2; ++time) save(path(longest));
    EXPECT_EQ(names(), Names{longest});
    const auto failure = failureToCreate(files, path(longest + "x"));
    ASSERT_TRUE(failure);
    EXPECT_STREQ(failure->what(), "File name too long");
}

TEST_F(SafeFileName, aNameWithoutFolderIsInTheCurrentOne)
{
    const fs::path before = fs::current_path();
    fs::current_path(folder());
    save("a.csv");
    save("a.csv");
    fs::current_path(before);
    EXPECT_EQ(names(), Names{"a.csv"});
    EXPECT_EQ(get(path("a.csv")), "new");
}

TEST_F(SafeFileName, anEmptyNameIsRefusedBeforeAnythingIsMadeInTheCurrentFolder)
{
    bool opened = false;
    SaveCalls calls;
    calls.open = [&](const char*, int, mode_t) {
        opened = true;
        errno = EIO;
        return -1;
    };
    DiskFiles watched(calls);
    const auto failure = failureToCreate(watched, "");
    ASSERT_TRUE(failure);
    EXPECT_STREQ(failure->what(), "No such file or directory");
    EXPECT_FALSE(opened);
}

TEST_F(SafeFileName, aNewNameThatEndsAsAFolderIsRefused)
{
    const auto failure = failureToCreate(files, path("new/"));
    ASSERT_TRUE(failure);
    EXPECT_STREQ(failure->what(), "No such file or directory");
    EXPECT_TRUE(names().empty());
}

} // namespace
} // namespace tarvelint::test
