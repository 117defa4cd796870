// SPDX-License-Identifier: MIT
#include "app/file_commands.h"

#include "app/shell_window.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarvelint::test {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

/// A window with the saved record open and something changed in it.
class Unsaved : public Shell {
public:
    Unsaved()
    {
        openText(kSavedRecord);
        window.markChanged();
        fakeUi.fileDialogs.clear();
    }
};

// Names

TEST(SavedName, followsTheTypeWithFourCharactersCut)
{
    const std::vector<std::tuple<std::string, FileType, std::string>> table = {
        {"/d/data.csv", FileType::space, "/d/data.asc"},
        {"/d/run.data", FileType::space, "/d/run..asc"}, // always four, whatever the extension's length
        {"/d/run", FileType::space, "/d/run.asc"},
        {"/d/run", FileType::tab, "/d/run.txt"},
        {"/d/run", FileType::comma, "/d/run.csv"},
        {"/d/a.b.csv", FileType::comma, "/d/a.b.csv"},
        {"/2026.11/run", FileType::comma, "/2026.11/run.csv"}, // dots of folders do not count
        {"/2026.11/run.csv", FileType::tab, "/2026.11/run.txt"},
        {"run.dat", FileType::comma, "run.csv"},
        {"/d/a.b", FileType::comma, "/d/a.csv"}, // the cut would empty the name: at its last "."
        {"/d/ab.c", FileType::comma, "/d/ab.csv"},
        {"/d/ab.cs", FileType::comma, "/d/a.csv"},   // five characters leave one
        {"/d/.csv", FileType::comma, "/d/.csv.csv"}, // begins with its only ".": not cut
        {"/d/.hidden", FileType::tab, "/d/.hidden.txt"},
        {"/d/.run.csv", FileType::tab, "/d/.run.txt"},
        {"/d/run.", FileType::tab, "/d/run.txt"}}; // "run." has four characters
    for (const auto& [path, type, saved] : table) EXPECT_EQ(savedName(path, type), saved) << path;
}

TEST(SavedName, cutsCharactersAndNotBytes)
{
    EXPECT_EQ(savedName("/d/m\xC3\xA4rz\xC3\xA4.cs", FileType::comma), "/d/m\xC3\xA4r"
                                                                       "z.csv"); // märzä.cs
    EXPECT_EQ(savedName("/d/\xC3\xA9.dt", FileType::comma), "/d/\xC3\xA9.csv");  // four characters: at the last "."
}

// The dialogs

TEST(SaveDialog, bearsTheCommandsTitleAndItsFilters)
{
    Unsaved shell;
    shell.fakeUi.saveChoices = {std::nullopt, std::nullopt};
    shell.save();
    shell.command([&] { shell.window.files.mnuFileSaveAs_Click(); });
    ASSERT_EQ(shell.fakeUi.fileDialogs.size(), 2U);
    EXPECT_EQ(shell.fakeUi.fileDialogs[0].title, "Save:");
    EXPECT_EQ(shell.fakeUi.fileDialogs[1].title, "Save As:");
    const auto& filters = shell.fakeUi.fileDialogs[0].filters;
    ASSERT_EQ(filters.size(), 3U);
    EXPECT_EQ(filters[0].text, "Space Delimited (*.asc)");
    EXPECT_EQ(filters[1].text, "Tab delimited (*.txt)");
    EXPECT_EQ(filters[2].text, "_Comma Delimited (*.csv)");
}

TEST(SaveDialog, theFirstSaveAsksTheSecondDoesNotAndSaveAsAlwaysDoes)
{
    Unsaved shell;
    shell.fakeUi.saveChoices = {ChosenFile{"/data/a.csv", FileType::comma}, ChosenFile{"/data/b.csv", FileType::comma}};
    shell.save();
    EXPECT_EQ(shell.fakeUi.fileDialogs.size(), 1U);
    shell.save();
    EXPECT_EQ(shell.fakeUi.fileDialogs.size(), 1U);
    shell.command([&] { shell.window.files.mnuFileSaveAs_Click(); });
    EXPECT_EQ(shell.fakeUi.fileDialogs.size(), 2U);
    EXPECT_EQ(shell.window.file.savePath, "/data/b.csv");
}

TEST(SaveDialog, theContentsAreAskedAtEverySaveAndKeepTheirBoxes)
{
    Unsaved shell;
    shell.saveAs("/data/a.csv");
    shell.window.file.choices.baseline = false;
    int asked = 0;
    shell.fakeUi.onSaveContents = [&] {
        ++asked;
        EXPECT_FALSE(shell.window.file.choices.baseline);
        EXPECT_FALSE(shell.window.forms.typeFrm->confirmed); // also closing it by its frame cancels
    };
    shell.command([&] { shell.window.files.mnuFileSave_Click(); });
    EXPECT_EQ(asked, 1);
}

TEST(SaveDialog, cancelAtEachPlaceChangesNothing)
{
    for (const bool inContents : {true, false}) {
        Unsaved shell;
        shell.fakeUi.onSaveContents = [&] {
            if (!inContents) shell.window.forms.typeFrm->OKButton_Click();
        };
        if (!inContents) shell.fakeUi.saveChoices = {std::nullopt};
        shell.command([&] { shell.window.files.mnuFileSave_Click(); });
        EXPECT_FALSE(shell.window.record.saveCheck);
        EXPECT_EQ(shell.window.file.savePath, "");
        EXPECT_EQ(shell.window.file.fileDelimiter, FileType::comma);
        EXPECT_EQ(shell.window.caption(), "Tarvelint: /data/run.csv");
        EXPECT_EQ(shell.files.contents.size(), 1U);
        EXPECT_THAT(shell.fakeUi.messages, IsEmpty());
    }
}

TEST(SaveDialog, anEmptyNameStops)
{
    Unsaved shell;
    shell.saveAs("");
    EXPECT_FALSE(shell.window.record.saveCheck);
    EXPECT_EQ(shell.window.file.savePath, "");
}

// Replacing another file than the one the dialog asked about

TEST(SaveReplacing, asksWhenTheCutNameIsAnotherExistingFile)
{
    Unsaved shell;
    shell.files.contents["/data/old.csv"] = "precious";
    shell.fakeUi.answers = {Answer::no};
    shell.fakeUi.saveChoices = {ChosenFile{"/data/old.dat", FileType::comma}, std::nullopt};
    shell.save();
    ASSERT_EQ(shell.fakeUi.messages.size(), 1U);
    EXPECT_THAT(shell.fakeUi.messages[0].text, StartsWith("/data/old.csv already exists."));
    EXPECT_EQ(shell.fakeUi.messages[0].title, "Save:");
    EXPECT_EQ(shell.fakeUi.fileDialogs.size(), 2U); // No leads back to the dialog
    EXPECT_EQ(shell.files.contents["/data/old.csv"], "precious");
    EXPECT_EQ(shell.window.file.savePath, "");
}

TEST(SaveReplacing, yesReplacesIt)
{
    Unsaved shell;
    shell.files.contents["/data/old.csv"] = "precious";
    shell.fakeUi.answers = {Answer::yes};
    shell.saveAs("/data/old.dat");
    EXPECT_THAT(shell.files.contents["/data/old.csv"], StartsWith("Tarvelint output: "));
}

TEST(SaveReplacing, doesNotAskTwiceAboutTheNameTheDialogConfirmedNorAboutANewOne)
{
    Unsaved shell;
    shell.files.contents["/data/old.csv"] = "confirmed";
    shell.saveAs("/data/old.csv");
    shell.saveAs("/data/new.dat");
    EXPECT_THAT(shell.fakeUi.messages, IsEmpty());
    EXPECT_TRUE(shell.files.exists("/data/new.csv"));
}

// Writing

TEST(SaveFile, writesHeaderAndLayersInOrderAndMarksTheRecordSaved)
{
    Unsaved shell;
    shell.saveAs("/data/out.csv");
    EXPECT_EQ(shell.files.contents["/data/out.csv"],
              "Tarvelint output: Friday, 20 November 2026,unconverted-baseline-converted,3 columns,2 rows each,"
              "with labels,blank='.'\r\n"
              "Day,Time,S1,\r\n180,0,9,\r\n180,30,.,\r\n\r\n"
              "Day,Time,S1,\r\n180,0,10,\r\n180,30,10,\r\n\r\n"
              "Day,Time,S1,\r\n180,0,7.5,\r\n180,30,.,\r\n");
    EXPECT_TRUE(shell.window.record.saveCheck);
    EXPECT_EQ(shell.window.file.savePath, "/data/out.csv");
    EXPECT_EQ(shell.window.caption(), "Tarvelint: /data/out.csv");
    EXPECT_TRUE(shell.window.isEnabled(Control::mnuFileSave));
}

TEST(SaveFile, writesTheChosenLayersWithTheTypesDelimiter)
{
    Unsaved shell;
    shell.saveAs("/data/out.csv");
    shell.window.file.choices.unconverted = shell.window.file.choices.converted = shell.window.file.choices.dots =
        false;
    shell.saveAs("/data/out.csv", FileType::tab);
    EXPECT_EQ(
        shell.files.contents["/data/out.txt"],
        "Tarvelint output: Friday, 20 November 2026\tbaseline\t3 columns\t2 rows each\twith labels\tblank=99,999\r\n"
        "Day\tTime\tS1\t\r\n180\t0\t10\t\r\n180\t30\t10\t\r\n\r\n");
    EXPECT_EQ(shell.window.file.fileDelimiter, FileType::tab);
}

TEST(SaveFile, withoutAnyLayerWritesTheHeaderOnly)
{
    Unsaved shell;
    shell.saveAs("/data/out.csv");
    shell.window.file.choices = {.unconverted = false, .baseline = false, .converted = false};
    shell.save();
    EXPECT_EQ(shell.files.contents["/data/out.csv"],
              "Tarvelint output: Friday, 20 November 2026,converted,3 columns,2 rows each,with labels,blank='.'\r\n");
}

TEST(SaveFile, untilThenLabelsGoOutExactlyWhenTheFileCameWithThem)
{
    const auto savedFrom = [](const std::string& text) {
        Shell shell;
        shell.openText(text);
        shell.saveAs("/data/out.csv");
        return shell.files.contents["/data/out.csv"];
    };
    EXPECT_THAT(savedFrom(kLoggerRecord), HasSubstr(",with labels,"));
    EXPECT_THAT(savedFrom("180,0,9\r\n180,30,8\r\n"), HasSubstr(",without labels,"));
    EXPECT_THAT(
        savedFrom("Tarvelint output: today,unconverted,2 columns,1 rows each,without labels,blank='.'\r\n7,8,\r\n"),
        HasSubstr(",without labels,"));
}

TEST(SaveFile, labelsFollowTheColumnSetupOnceItsOkWasGiven)
{
    for (const bool save : {true, false}) {
        Shell shell;
        shell.openText(kLoggerRecord);
        shell.window.forms.labelFrm->boxes.saveBox = save;
        shell.window.forms.labelFrm->OKButton_Click();
        shell.saveAs("/data/out.csv");
        EXPECT_THAT(shell.files.contents["/data/out.csv"], HasSubstr(save ? ",with labels," : ",without labels,"));
        EXPECT_EQ(shell.files.contents["/data/out.csv"].find("Day,") != std::string::npos, save);
    }
}

TEST(SaveFile, showsThatItIsWritingAndRestoresPointerStatusAndCounter)
{
    Unsaved shell;
    shell.clock.step = std::chrono::milliseconds(1000);
    std::vector<std::string> seen;
    shell.fakeUi.onPendingEvents = [&] {
        seen.push_back(shell.status());
        EXPECT_EQ(shell.window.pointer(), Pointer::hourglass);
    };
    shell.saveAs("/data/out.csv");
    EXPECT_THAT(seen, testing::Each("Status: writing file"));
    EXPECT_EQ(seen.size(), 6U); // two rows of three layers, each a pause after the last
    EXPECT_EQ(shell.status(), "Mode: select data");
    EXPECT_EQ(shell.window.pointer(), Pointer::cross);
    EXPECT_EQ(shell.window.text(Control::rowLabel), "2");
}

// Failures

/// A save over an old file that fails: everything as before, and one box.
Message failingSave(const std::function<void(Shell&)>& breakIt)
{
    Unsaved shell;
    shell.files.contents["/data/out.csv"] = "the old file";
    shell.window.setText(Control::rowLabel, "2");
    breakIt(shell);
    shell.saveAs("/data/out.csv");
    EXPECT_FALSE(shell.window.record.saveCheck);
    EXPECT_EQ(shell.files.contents["/data/out.csv"], "the old file");
    EXPECT_EQ(shell.window.caption(), "Tarvelint: /data/run.csv");
    EXPECT_EQ(shell.status(), "Mode: select data");
    EXPECT_EQ(shell.window.pointer(), Pointer::cross);
    EXPECT_EQ(shell.window.text(Control::rowLabel), "2");
    EXPECT_LE(shell.fakeUi.messages.size(), 1U);
    return shell.fakeUi.messages.empty() ? Message{} : shell.fakeUi.messages.front();
}

TEST(SaveFailure, ofAFileInUseHasItsOwnText)
{
    const Message box = failingSave([](Shell& shell) {
        shell.files.failOnCreate.emplace("/data/out.csv", FileFailure(FileFailure::Kind::inUse, "Permission denied"));
    });
    EXPECT_EQ(box.text, "The file is in use by another application");
    EXPECT_EQ(box.title, "Cannot save:");
    EXPECT_EQ(box.buttons, Buttons::ok);
}

TEST(SaveFailure, ofAnyOtherKindIsInTheSystemsWords)
{
    const Message box = failingSave([](Shell& shell) {
        shell.files.failOnCreate.emplace("/data/out.csv", FileFailure(FileFailure::Kind::other, "Is a directory"));
    });
    EXPECT_EQ(box.text, "Is a directory");
    EXPECT_EQ(box.title, "Cannot save:");
}

TEST(SaveFailure, ofADiskThatFillsUpLeavesTheOldFileWhole)
{
    const Message box = failingSave([](Shell& shell) { shell.files.diskRoom = 40; });
    EXPECT_EQ(box.text, "No space left on device");
    EXPECT_EQ(box.title, "Cannot save:");
}

TEST(SaveFailure, leavesWhereTheNextSaveGoesAsItWas)
{
    Unsaved shell;
    shell.files.diskRoom = 40;
    shell.saveAs("/data/out.txt", FileType::tab);
    ASSERT_EQ(shell.fakeUi.messages.size(), 1U);
    EXPECT_EQ(shell.window.file.savePath, "");
    EXPECT_EQ(shell.window.file.fileDelimiter, FileType::comma);
    shell.files.diskRoom = 4000;
    shell.saveAs("/data/first.csv");
    shell.files.diskRoom = 40;
    shell.saveAs("/data/second.txt", FileType::tab);
    shell.files.diskRoom = 4000;
    shell.files.contents["/data/first.csv"] = "";
    shell.save(); // asks for no name
    EXPECT_THAT(shell.files.contents["/data/first.csv"], HasSubstr("180,30,.,\r\n"));
    EXPECT_FALSE(shell.files.contents.contains("/data/second.txt"));
}

TEST(SaveDialog, preselectsTheTypeLastOpenedOrSavedInThisRun)
{
    Unsaved shell;
    shell.saveAs("/data/a.txt", FileType::tab);
    shell.saveAs("/data/b.csv", FileType::comma);
    ASSERT_EQ(shell.fakeUi.fileDialogs.size(), 2U);
    EXPECT_EQ(shell.fakeUi.fileDialogs[0].selected, FileType::comma) << "of the record opened";
    EXPECT_EQ(shell.fakeUi.fileDialogs[1].selected, FileType::tab);
    shell.application.lastFileType = FileType::space; // another window was saved meanwhile
    shell.saveAs("/data/c.csv", FileType::comma);
    EXPECT_EQ(shell.fakeUi.fileDialogs[2].selected, FileType::space);
}

TEST(SaveDialog, aFailedSaveIsNoLastType)
{
    Unsaved shell;
    shell.files.diskRoom = 40;
    shell.saveAs("/data/out.txt", FileType::tab);
    EXPECT_EQ(shell.application.lastFileType, FileType::comma);
}

TEST(SaveFailure, aWindowThatClosesMeanwhileLeavesTheOldFileWholeWithoutAWord)
{
    const Message box = failingSave([](Shell& shell) {
        shell.clock.step = std::chrono::milliseconds(1000);
        shell.fakeUi.onPendingEvents = [] { throw WindowClosing{}; };
    });
    EXPECT_EQ(box.text, "");
}

} // namespace
} // namespace tarvelint::test
