// SPDX-License-Identifier: MIT
#include "app/file_commands.h"

#include "app/shell_window.h"
#include "app/window_progress.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarvelint::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using Texts = std::vector<std::string>;

/// Everything of a window that a failed open must leave alone.
struct Snapshot {
    explicit Snapshot(const Shell& shell)
        : caption(shell.window.caption()), path(shell.window.file.filePath), savePath(shell.window.file.savePath),
          status(shell.status()), status2(shell.status2()), rowLabel(shell.window.text(Control::rowLabel)),
          undo(shell.window.text(Control::mnuEditUndo)), delimiter(shell.window.file.fileDelimiter),
          labels(shell.window.record.labels), entries(shell.entries()), columns(shell.window.record.columns),
          lines(shell.window.record.lines), blank(shell.window.record.blank), chosen(shell.window.view.chosenColumn[0]),
          points(shell.window.sensors.count()), pointer(shell.window.pointer()),
          saveCheck(shell.window.record.saveCheck), hasDialog(shell.window.forms.haveLabelForm())
    {
        for (int layer = 1; layer <= kLayers && lines > 0; ++layer)
            for (std::int32_t r = 0; r < lines; ++r)
                for (std::int32_t c = 0; c < columns; ++c) cells.push_back(shell.window.record.values(layer, c, r));
    }
    bool operator==(const Snapshot&) const = default;

    std::string caption, path, savePath, status, status2, rowLabel, undo;
    std::optional<FileType> delimiter;
    Texts labels, entries;
    std::int16_t columns;
    std::int32_t lines, blank, chosen, points;
    Pointer pointer;
    bool saveCheck, hasDialog;
    std::vector<double> cells;
};

// The dialog

TEST(OpenDialog, bearsItsTitleAndFilters)
{
    Shell shell;
    shell.fakeUi.openChoices.emplace_back(std::nullopt);
    shell.command([&] { shell.window.files.mnuFileOpen_Click(); });
    ASSERT_EQ(shell.fakeUi.fileDialogs.size(), 1U);
    const FileDialog& dialog = shell.fakeUi.fileDialogs.front();
    EXPECT_EQ(dialog.title, "Open");
    ASSERT_EQ(dialog.filters.size(), 3U);
    EXPECT_EQ(dialog.filters[0].text, "Space Delimited (*.asc)");
    EXPECT_EQ(dialog.filters[1].text, "Tab delimited (*.txt)");
    EXPECT_EQ(dialog.filters[2].text, "Comma Delimited (*.csv), (*.dat)");
    EXPECT_EQ(dialog.filters[2].patterns, "*.csv *.dat");
}

TEST(OpenDialog, cancelOrAnEmptyNameStopsWithoutAWord)
{
    Shell shell;
    const Snapshot before(shell);
    shell.fakeUi.openChoices = {std::nullopt, ChosenFile{"", FileType::comma}};
    for (int i = 0; i < 2; ++i) shell.command([&] { shell.window.files.mnuFileOpen_Click(); });
    EXPECT_EQ(Snapshot(shell), before);
    EXPECT_EQ(shell.files.opened, 0);
    EXPECT_THAT(shell.fakeUi.messages, IsEmpty());
}

TEST(OpenDialog, theTypePickedIsTheDelimiterWhateverTheExtension)
{
    Shell shell;
    shell.openText("1\t2\n3\t4\n", FileType::tab, "/data/odd.csv");
    EXPECT_EQ(shell.window.record.columns, 2);
    EXPECT_EQ(shell.window.file.fileDelimiter, FileType::tab);
    shell.openText("1 2 3\n", FileType::space, "/data/odd.txt");
    EXPECT_EQ(shell.window.record.columns, 3);
    EXPECT_EQ(shell.window.file.fileDelimiter, FileType::space);
    shell.openText("1,2\n", FileType::comma, "/data/odd.asc");
    EXPECT_EQ(shell.window.file.fileDelimiter, FileType::comma);
}

TEST(OpenDialog, preselectsTheTypeLastOpenedOrSavedInThisRun)
{
    Shell shell;
    shell.openText("1 2\n3 4\n", FileType::space);
    shell.openText("1\t2\n3\t4\n", FileType::tab);
    shell.openText("1,2\n3,4\n", FileType::comma);
    ASSERT_EQ(shell.fakeUi.fileDialogs.size(), 3U);
    EXPECT_EQ(shell.fakeUi.fileDialogs[0].selected, FileType::space) << "the first of the list";
    EXPECT_EQ(shell.fakeUi.fileDialogs[1].selected, FileType::space);
    EXPECT_EQ(shell.fakeUi.fileDialogs[2].selected, FileType::tab);
    EXPECT_EQ(shell.application.lastFileType, FileType::comma);
}

TEST(OpenDialog, aFileThatCannotBeOpenedIsNoLastType)
{
    Shell shell;
    shell.open("/data/missing.csv", FileType::comma);
    EXPECT_EQ(shell.application.lastFileType, FileType::space);
}

// A type that does not fit the file

/// A comma-delimited record picked as a space-delimited one.
struct Mistaken : Shell {
    void openAnswering(Answer answer)
    {
        fakeUi.answers = {answer};
        openText("Day,Time,S1\n1,2,3\n4,5,6\n", FileType::space, "/data/run.csv");
    }
};

TEST(OpenMistakenType, asksOnceAndNamesBoth)
{
    Mistaken shell;
    shell.openAnswering(Answer::yes);
    ASSERT_EQ(shell.fakeUi.messages.size(), 1U);
    const Message& question = shell.fakeUi.messages.front();
    EXPECT_EQ(question.text, "As \"Space Delimited\" the first row of /data/run.csv is one column, as \"Comma "
                             "Delimited\" it is 3 columns. Open it as \"Comma Delimited\"?");
    EXPECT_EQ(question.buttons, Buttons::yesNoCancel);
}

TEST(OpenMistakenType, yesTakesTheOtherType)
{
    Mistaken shell;
    shell.openAnswering(Answer::yes);
    EXPECT_EQ(shell.window.record.columns, 3);
    EXPECT_EQ(shell.window.file.fileDelimiter, FileType::comma);
    EXPECT_EQ(shell.application.lastFileType, FileType::comma);
}

TEST(OpenMistakenType, noOpensAsChosen)
{
    Mistaken shell;
    shell.openAnswering(Answer::no);
    EXPECT_EQ(shell.window.record.columns, 1);
    EXPECT_EQ(shell.window.file.fileDelimiter, FileType::space);
}

TEST(OpenMistakenType, cancelOpensNothing)
{
    Mistaken shell;
    const Snapshot before(shell);
    shell.openAnswering(Answer::cancel);
    EXPECT_EQ(Snapshot(shell), before);
    EXPECT_EQ(shell.application.lastFileType, FileType::space);
}

// The question before

TEST(OpenQuestion, isNotAskedWhileNothingIsUnsaved)
{
    Shell shell;
    shell.openText(kSavedRecord);
    shell.openText(kSavedRecord);
    EXPECT_THAT(shell.fakeUi.messages, IsEmpty());
}

TEST(OpenQuestion, isNotAskedInAWindowWithoutRecord)
{
    Shell shell;
    shell.window.record.saveCheck = false;
    shell.openText(kSavedRecord);
    EXPECT_THAT(shell.fakeUi.messages, IsEmpty());
}

TEST(OpenQuestion, asksWithItsTitleAndCancelStops)
{
    Shell shell;
    shell.openText(kSavedRecord);
    shell.window.markChanged();
    shell.fakeUi.answers = {Answer::cancel};
    shell.command([&] { shell.window.files.mnuFileOpen_Click(); });
    ASSERT_EQ(shell.fakeUi.messages.size(), 1U);
    EXPECT_EQ(shell.fakeUi.messages[0].text, "Do you want to save the current file?");
    EXPECT_EQ(shell.fakeUi.messages[0].title, "Open new file:");
    EXPECT_EQ(shell.fakeUi.messages[0].buttons, Buttons::yesNoCancel);
    EXPECT_EQ(shell.fakeUi.messages[0].icon, Icon::warning);
    EXPECT_EQ(shell.fakeUi.fileDialogs.size(), 1U); // the first open's only
}

TEST(OpenQuestion, noGoesOnAndTheLoadLeavesTheRecordUnsaved)
{
    Shell shell;
    shell.openText(kSavedRecord);
    shell.window.markChanged();
    shell.fakeUi.answers = {Answer::no};
    shell.openText("Tarvelint output: x,converted,1 columns,1 rows each,without labels,blank='.'\n5,\n");
    EXPECT_EQ(shell.window.record.columns, 1);
    EXPECT_FALSE(shell.window.record.saveCheck); // a load leaves the flag as it was
}

TEST(OpenQuestion, yesSavesUnderANewNameFirst)
{
    Shell shell;
    shell.openText(kSavedRecord);
    shell.window.markChanged();
    shell.fakeUi.answers = {Answer::yes};
    shell.acceptContents();
    shell.fakeUi.saveChoices.emplace_back(ChosenFile{"/data/kept.csv", FileType::comma});
    shell.openText(kLoggerRecord, FileType::comma, "/data/next.csv");
    EXPECT_TRUE(shell.files.exists("/data/kept.csv"));
    EXPECT_EQ(shell.fakeUi.fileDialogs.at(1).title, "Save As:");
    EXPECT_EQ(shell.window.file.filePath, "/data/next.csv");
    EXPECT_TRUE(shell.window.record.saveCheck);
}

TEST(OpenQuestion, yesWithoutASuccessfulSaveStops)
{
    Shell shell;
    shell.openText(kSavedRecord);
    shell.window.markChanged();
    shell.fakeUi.answers = {Answer::yes};
    shell.fakeUi.onSaveContents = [&] { shell.window.forms.typeFrm->CancelButton_Click(); };
    shell.command([&] { shell.window.files.mnuFileOpen_Click(); });
    EXPECT_EQ(shell.fakeUi.fileDialogs.size(), 1U);
    EXPECT_EQ(shell.window.file.filePath, "/data/run.csv");
}

// A load that fails

/// What a load that ends in a box leaves behind of a window with points and an undo copy: everything.
void expectNothingChangedBy(const std::string& text, const std::string& boxText, const std::string& title)
{
    Shell shell;
    shell.openText(kLoggerRecord);
    shell.window.sensors.assign({2}, 3);
    shell.window.view.selEnd = 1;
    shell.window.undoSave(2);
    const Snapshot before(shell);
    shell.openText(text, FileType::tab, "/data/faulty.txt");
    EXPECT_EQ(Snapshot(shell), before);
    EXPECT_EQ(shell.fakeUi.columnSetupShown, true);
    ASSERT_EQ(shell.fakeUi.messages.size(), 1U) << text;
    EXPECT_THAT(shell.fakeUi.messages[0].text, HasSubstr(boxText));
    EXPECT_EQ(shell.fakeUi.messages[0].title, title);
    EXPECT_EQ(shell.fakeUi.messages[0].icon, Icon::critical);
}

TEST(OpenFailure, changesNothingAtAllWhateverTheFault)
{
    expectNothingChangedBy("", "This file seems to be corrupt!", "Error reading file:");
    expectNothingChangedBy("Tarvelint output: x\tnothing", "no U-B-C info in the header!", "Tarvelint");
    expectNothingChangedBy("Tarvelint output: x\tconverted\t1 columns\t1 rows each\twith labels\tblank='.",
                           "Lost that last quote somewhere!", "Tarvelint");
    expectNothingChangedBy("Tarvelint output: x\tconverted\t1 columns\t2 rows each\twith labels\tblank='.'\r\nS1\t\r\n",
                           "holds no data", "Tarvelint");
    expectNothingChangedBy("Day\tTime\n", "holds no data", "Tarvelint");
}

TEST(OpenFailure, ofTheSystemNamesTheFileAndTheReason)
{
    Shell shell;
    const Snapshot before(shell);
    shell.open("/data/missing.csv");
    EXPECT_EQ(Snapshot(shell), before);
    ASSERT_EQ(shell.fakeUi.messages.size(), 1U);
    EXPECT_EQ(shell.fakeUi.messages[0].text,
              "The file /data/missing.csv cannot be opened: No such file or directory. Check its name and "
              "permissions, or choose another file.");
    EXPECT_EQ(shell.fakeUi.messages[0].title, "Error reading file:");
}

TEST(OpenFailure, aWindowThatClosesMeanwhileKeepsItsOldRecordWithoutAWord)
{
    Shell shell;
    shell.openText(kSavedRecord);
    const Snapshot before(shell);
    shell.clock.step = Pacer::kPause; // the counter shows every row
    shell.fakeUi.onPendingEvents = [&] {
        if (shell.window.text(Control::rowLabel) == "1") throw WindowClosing{};
    };
    shell.openText(kLoggerRecord, FileType::comma, "/data/next.csv");
    EXPECT_EQ(Snapshot(shell), before);
    EXPECT_THAT(shell.fakeUi.messages, IsEmpty());
}

TEST(OpenWarning, aFileShorterThanItsHeaderSaysKeepsItsRowsAndWarnsOnce)
{
    Shell shell;
    shell.openText("Tarvelint output: x,unconverted,2 columns,4 rows each,without labels,blank='.'\n1,2,\n3,4,\n");
    EXPECT_EQ(shell.window.record.lines, 4);
    EXPECT_EQ(shell.window.record.values(kUnconverted, 1, 1), 4);
    EXPECT_EQ(shell.window.record.values(kUnconverted, 0, 2), 99999);
    EXPECT_EQ(shell.window.record.values(kUnconverted, 1, 3), 99999);
    ASSERT_EQ(shell.fakeUi.messages.size(), 1U);
    EXPECT_EQ(shell.fakeUi.messages[0].icon, Icon::warning);
    EXPECT_THAT(shell.fakeUi.messages[0].text, HasSubstr("ends at line 3"));
    EXPECT_THAT(shell.fakeUi.messages[0].text, HasSubstr("4 rows"));
    EXPECT_EQ(shell.window.caption(), "Tarvelint: /data/run.csv");
}

// Progress

TEST(OpenProgress, aLoggersFileShowsSettingUpAndReading)
{
    Shell shell;
    Texts seen;
    shell.fakeUi.onPendingEvents = [&] {
        seen.push_back(shell.status());
        EXPECT_EQ(shell.window.pointer(), Pointer::hourglass);
    };
    shell.openText(kLoggerRecord);
    EXPECT_THAT(seen, ElementsAre("Setting up memory", "reading data"));
    EXPECT_EQ(shell.window.pointer(), Pointer::cross);
}

TEST(OpenProgress, aSavedFileNamesEachLayerAsItIsRead)
{
    Shell shell;
    Texts seen;
    shell.fakeUi.onPendingEvents = [&] { seen.push_back(shell.status()); };
    shell.openText(kSavedRecord);
    EXPECT_THAT(seen, ElementsAre("Setting up memory", "reading unconverted data", "reading baseline data",
                                  "reading converted data"));
}

TEST(OpenProgress, pendingEventsRunByTimeAndNotAtEveryRow)
{
    Shell shell;
    std::string rows;
    for (int r = 0; r < 10; ++r) rows += "1,2\n";
    Texts counter;
    shell.fakeUi.onPendingEvents = [&] { counter.push_back(shell.window.text(Control::rowLabel)); };
    shell.clock.step = Pacer::kPause / 3; // a third of a pause a row: every third row shows
    shell.openText(rows);
    EXPECT_THAT(counter, ElementsAre("", "", "3", "6", "9"));
    EXPECT_EQ(shell.window.text(Control::rowLabel), "10"); // the counter ends at the number of rows
}

TEST(OpenProgress, anotherCommandMeanwhileIsDropped)
{
    Shell shell;
    shell.fakeUi.onPendingEvents = [&] { shell.command([&] { shell.window.files.mnuFileOpen_Click(); }); };
    shell.openText(kLoggerRecord);
    EXPECT_EQ(shell.fakeUi.fileDialogs.size(), 1U);
    EXPECT_THAT(shell.fakeUi.messages, IsEmpty());
}

} // namespace
} // namespace tarvelint::test
