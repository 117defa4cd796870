// SPDX-License-Identifier: MIT
#include "app/lifecycle.h"

#include "app/shell_window.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarvelint::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Log = std::vector<std::string>;

/// A window with a record, both dialogs, a change, and its own geometry.
class OpenWindow : public Shell {
public:
    OpenWindow()
    {
        openText(kLoggerRecord);
        saveAs("/data/saved.csv");
        window.markChanged();
        fakeUi.place = {300, 400, 7000.5F, 8000};
        fakeUi.messages.clear();
        fakeUi.log.clear();
        settings.log.clear();
    }
    /// The window's frame, Exit or the session closes it. True when it stays.
    bool close()
    {
        bool cancel = false;
        window.lifecycle.Form_QueryUnload(cancel);
        return cancel;
    }
};

Log geometryWrites()
{
    return {"write MainLeft=300", "write MainTop=400", "write MainWidth=7000.5", "write MainHeight=8000"};
}

Log closingWrites(bool withGeometry = true)
{
    Log log{"write Ref=0", "write High=1", "write Date=1", "write Time=2", "write ZoomFactor=1"};
    if (withGeometry)
        for (const std::string& write : geometryWrites()) log.push_back(write);
    return log;
}

// File > New

TEST(NewWindow, readsTheGeometryThisOneHasJustWritten)
{
    OpenWindow shell;
    Log atCreation;
    shell.application.onNewWindow = [&] { atCreation = shell.settings.log; };
    shell.window.lifecycle.mnuFileNew_Click();
    EXPECT_THAT(atCreation, ElementsAre("write MainLeft=300", "write MainTop=400", "write MainHeight=8000",
                                        "write MainWidth=7000.5"));
}

TEST(NewWindow, overTheScreensEdgesIsCutToFit)
{
    OpenWindow shell; // a screen of 19200 x 15360 twips, 300 of them kept free
    shell.fakeUi.place = {15000, 10000, 6500, 6500};
    shell.application.onNewWindow = [] {};
    shell.window.lifecycle.mnuFileNew_Click();
    EXPECT_EQ(shell.settings.values["MainHeight"], "5060"); // 15360 - 10000 - 300
    EXPECT_EQ(shell.settings.values["MainWidth"], "3900");  // 19200 - 15000 - 300
    EXPECT_EQ(shell.settings.values["MainLeft"], "15000");
    EXPECT_EQ(shell.settings.values["MainTop"], "10000");
}

// Close handling

TEST(WindowClose, thatNeverHeldDataAsksNothing)
{
    Shell shell;
    bool cancel = true;
    shell.window.lifecycle.Form_QueryUnload(cancel);
    EXPECT_FALSE(cancel);
    EXPECT_THAT(shell.fakeUi.messages, IsEmpty());
}

TEST(WindowClose, takesTheOptionsDialogAlongAlsoWhenItIsCancelled)
{
    OpenWindow shell;
    shell.fakeUi.answers = {Answer::cancel};
    EXPECT_TRUE(shell.close());
    EXPECT_THAT(shell.application.log, ElementsAre("unload options"));
}

TEST(OptionsEntries, showTheDialogAndTheButtonSelectsItsEquation)
{
    Shell shell; // also without a record
    shell.command([&] { shell.window.lifecycle.mnuToolsOptions_Click(); });
    shell.command([&] { shell.window.lifecycle.eqButton_Click(); });
    EXPECT_THAT(shell.application.log, ElementsAre("show options", "show options, equation selected"));
    EXPECT_TRUE(shell.window.isEnabled(Control::mnuToolsOptions));
    EXPECT_TRUE(shell.window.isEnabled(Control::eqButton));
}

TEST(WindowClose, asksAboutUnsavedDataThenUnloadsDialogsThenWritesSettingsInOrder)
{
    OpenWindow shell;
    shell.fakeUi.answers = {Answer::no};
    shell.fakeUi.onMessage = [&] {
        EXPECT_THAT(shell.fakeUi.log, IsEmpty()) << "the question comes before the dialogs go";
        EXPECT_THAT(shell.settings.log, IsEmpty());
    };
    shell.application.onUnloadOptions = [&] {
        EXPECT_EQ(shell.fakeUi.log.size(), 2U) << "the window's own dialogs go first";
        EXPECT_THAT(shell.settings.log, IsEmpty()) << "the settings come last";
    };
    EXPECT_FALSE(shell.close());
    EXPECT_THAT(shell.application.log, ElementsAre("unload options"));
    ASSERT_EQ(shell.fakeUi.messages.size(), 1U);
    EXPECT_EQ(shell.fakeUi.messages[0].text, "Do you want to save the current file?");
    EXPECT_EQ(shell.fakeUi.messages[0].title, "Close window:");
    EXPECT_THAT(shell.fakeUi.log, ElementsAre("unload column setup", "unload save contents"));
    EXPECT_EQ(shell.settings.log, closingWrites());
}

TEST(WindowClose, cancelKeepsTheWindowYetItsDialogsAreGoneAndTheSettingsWritten)
{
    OpenWindow shell;
    shell.fakeUi.answers = {Answer::cancel};
    EXPECT_TRUE(shell.close());
    EXPECT_FALSE(shell.window.forms.haveLabelForm());
    EXPECT_FALSE(shell.window.forms.haveTypeForm());
    EXPECT_THAT(shell.fakeUi.log, ElementsAre("unload column setup", "unload save contents"));
    EXPECT_EQ(shell.settings.log, closingWrites());
    EXPECT_FALSE(shell.window.record.saveCheck);
}

TEST(WindowClose, cancelKeepsWhatTheDialogsHaveDecided)
{
    OpenWindow shell;
    shell.window.record.parameters = {true};
    shell.window.record.savesLabels = true;
    shell.window.file.choices.baseline = false;
    shell.fakeUi.answers = {Answer::cancel};
    EXPECT_TRUE(shell.close());
    EXPECT_TRUE(shell.window.record.isParameter(0));
    EXPECT_TRUE(shell.window.record.savesLabels);
    EXPECT_FALSE(shell.window.file.choices.baseline);
    shell.command([&] { shell.window.forms.labelButton_Click(); });
    EXPECT_TRUE(shell.window.forms.labelFrm->checkBox(1));
}

TEST(WindowClose, yesClosesOnlyWhenTheSaveSucceeded)
{
    for (const bool saved : {true, false}) {
        OpenWindow shell;
        shell.fakeUi.answers = {Answer::yes};
        shell.fakeUi.saveChoices = {saved ? std::optional(ChosenFile{"/data/a.csv", FileType::comma}) : std::nullopt};
        EXPECT_EQ(shell.close(), !saved);
        EXPECT_EQ(shell.files.exists("/data/a.csv"), saved);
    }
}

TEST(WindowClose, minimisedLeavesTheStoredGeometry)
{
    OpenWindow shell;
    shell.window.record.saveCheck = true;
    shell.fakeUi.minimised = true;
    EXPECT_FALSE(shell.close());
    EXPECT_EQ(shell.settings.log, closingWrites(false));
}

TEST(WindowClose, writesWhatTheWindowHoldsNow)
{
    OpenWindow shell;
    shell.window.record.saveCheck = true;
    shell.window.setText(Control::refBox, "2.5");
    shell.window.setChecked(Control::highBox, false);
    shell.window.view.dateCol = 7;
    shell.window.view.timeCol = 8;
    shell.window.view.zoomFactor = 8;
    shell.fakeUi.minimised = true;
    shell.close();
    EXPECT_THAT(shell.settings.log,
                ElementsAre("write Ref=2.5", "write High=0", "write Date=7", "write Time=8", "write ZoomFactor=8"));
}

TEST(WindowClose, aMinimisedWindowThatAsksStillLeavesTheStoredGeometryAlone)
{
    OpenWindow shell;
    shell.fakeUi.minimised = true;
    shell.fakeUi.onMessage = [&] { shell.fakeUi.minimised = false; }; // nobody sees a question over a minimised window
    shell.fakeUi.answers = {Answer::no};
    EXPECT_FALSE(shell.close());
    EXPECT_EQ(shell.settings.log, closingWrites(false));
}

TEST(WindowClose, unloadsADialogWhileItsStateIsStillThere)
{
    class WatchingUi : public FakeUi {
    public:
        Engine* window = nullptr;
        bool stateWasThere = true;
        void unloadColumnSetup() override { stateWasThere = stateWasThere && window->forms.haveLabelForm(); }
        void unloadSaveContents() override { stateWasThere = stateWasThere && window->forms.haveTypeForm(); }
    };
    WatchingUi ui;
    Ground ground;
    FakeApplication application;
    Engine window(ui, ui, Environment{ground.settings, ground.style, ground.files, ground.clock}, application);
    ui.window = &window;
    window.forms.labelFrm = std::make_unique<ColumnSetup>(window);
    window.forms.typeFrm = std::make_unique<SaveContents>(window.file.choices);
    bool cancel = false;
    window.lifecycle.Form_QueryUnload(cancel);
    EXPECT_TRUE(ui.stateWasThere);
    EXPECT_FALSE(window.forms.haveLabelForm() || window.forms.haveTypeForm());
}

// File > Close

TEST(FileClose, asksOnceAlthoughTheWindowsOwnCloseHandlingRunsToo)
{
    OpenWindow shell;
    shell.fakeUi.answers = {Answer::no};
    shell.command([&] { shell.window.lifecycle.mnuFileClose_Click(); });
    EXPECT_TRUE(shell.fakeUi.unloaded);
    EXPECT_FALSE(shell.close()); // no further question: the double would have refused it
    EXPECT_EQ(shell.fakeUi.messages.size(), 1U);
    EXPECT_EQ(shell.fakeUi.messages[0].title, "Close window:");
    EXPECT_EQ(shell.settings.log, closingWrites());
}

TEST(FileClose, cancelLeavesTheWindowItsDialogsAndTheStoreAlone)
{
    OpenWindow shell;
    shell.fakeUi.answers = {Answer::cancel};
    shell.command([&] { shell.window.lifecycle.mnuFileClose_Click(); });
    EXPECT_FALSE(shell.fakeUi.unloaded);
    EXPECT_TRUE(shell.window.forms.haveLabelForm());
    EXPECT_THAT(shell.settings.log, IsEmpty());
}

TEST(FileClose, ofASavedWindowUnloadsDialogsBeforeTheWindow)
{
    OpenWindow shell;
    shell.window.record.saveCheck = true;
    shell.command([&] { shell.window.lifecycle.mnuFileClose_Click(); });
    EXPECT_THAT(shell.fakeUi.log, ElementsAre("unload column setup", "unload save contents"));
    EXPECT_TRUE(shell.fakeUi.unloaded);
    EXPECT_THAT(shell.fakeUi.messages, IsEmpty());
}

// Exit and bars

TEST(Exit, isTheApplicationsWork)
{
    Shell shell;
    shell.window.lifecycle.mnuFileExit_Click();
    EXPECT_EQ(shell.application.exits, 1);
}

TEST(Exit, twoUnsavedWindowsAskTwice)
{
    OpenWindow first;
    OpenWindow second;
    for (OpenWindow* shell : {&second, &first}) { // last opened first
        shell->fakeUi.answers = {Answer::no};
        EXPECT_FALSE(shell->close());
        ASSERT_EQ(shell->fakeUi.messages.size(), 1U);
        EXPECT_EQ(shell->fakeUi.messages[0].title, "Close window:");
    }
}

TEST(BarToggles, invertTheCheckMarkAndShowOrHideTheBar)
{
    Shell shell;
    Lifecycle& lifecycle = shell.window.lifecycle;
    lifecycle.mnuViewToolbar_Click();
    EXPECT_FALSE(shell.window.isChecked(Control::mnuViewToolbar));
    EXPECT_FALSE(shell.window.control(Control::tbToolBar).visible);
    EXPECT_TRUE(shell.window.control(Control::sbStatusBar).visible);
    lifecycle.mnuViewStatusBar_Click();
    EXPECT_FALSE(shell.window.isChecked(Control::mnuViewStatusBar));
    EXPECT_FALSE(shell.window.control(Control::sbStatusBar).visible);
    lifecycle.mnuViewToolbar_Click();
    EXPECT_TRUE(shell.window.isChecked(Control::mnuViewToolbar));
    EXPECT_TRUE(shell.window.control(Control::tbToolBar).visible);
}

} // namespace
} // namespace tarvelint::test
