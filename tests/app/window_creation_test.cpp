// SPDX-License-Identifier: MIT
#include "app/lifecycle.h"

#include "app/shell_window.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarvelint::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(WindowCreation, aFirstRunOpensWithTheDefaults)
{
    Shell shell;
    EXPECT_EQ(shell.fakeUi.place, (Geometry{1000, 1000, 6500, 6500}));
    EXPECT_EQ(shell.window.text(Control::FormulaBox), "119*((B/X)-1)^1.23");
    EXPECT_EQ(shell.window.record.blank, 99999);
    EXPECT_EQ(shell.window.view.dateCol, 1);
    EXPECT_EQ(shell.window.view.timeCol, 2);
    EXPECT_EQ(shell.window.text(Control::refBox), "0");
    EXPECT_TRUE(shell.window.isChecked(Control::highBox));
    EXPECT_FALSE(shell.window.record.zeroOut);
    EXPECT_EQ(shell.window.view.zoomFactor, 1);
}

TEST(WindowCreation, readsTheSettingsInOrder)
{
    Shell shell;
    EXPECT_THAT(shell.settings.log, ElementsAre("read ZoomFactor", "read MainLeft", "read MainTop", "read MainWidth",
                                                "read MainHeight", "read Date", "read Time", "read Equation",
                                                "read Blank", "read Ref", "read High", "read Zero"));
}

TEST(WindowCreation, takesWhatTheStoreHolds)
{
    Shell shell;
    shell.settings.values = {{"ZoomFactor", "4"},    {"MainLeft", "20"}, {"MainTop", "30"}, {"MainWidth", "7000"},
                             {"MainHeight", "8000"}, {"Date", "5"},      {"Time", "6"},     {"Equation", "X, B"},
                             {"Blank", "-9"},        {"Ref", "1.5"},     {"High", "0"},     {"Zero", "True"}};
    shell.window.lifecycle.Form_Load();
    EXPECT_EQ(shell.window.view.zoomFactor, 4);
    EXPECT_EQ(shell.fakeUi.place, (Geometry{20, 30, 7000, 8000}));
    EXPECT_EQ(shell.window.view.dateCol, 5);
    EXPECT_EQ(shell.window.view.timeCol, 6);
    EXPECT_EQ(shell.window.text(Control::FormulaBox), "X, B");
    EXPECT_EQ(shell.window.record.blank, -9);
    EXPECT_EQ(shell.window.text(Control::refBox), "1.5");
    EXPECT_FALSE(shell.window.isChecked(Control::highBox));
    EXPECT_TRUE(shell.window.record.zeroOut);
}

TEST(WindowCreation, aBlankThatIsNoNumberIs99999WithoutAMessage)
{
    Shell shell;
    shell.settings.values = {{"Blank", "abc"}};
    shell.window.lifecycle.Form_Load();
    EXPECT_EQ(shell.window.record.blank, 99999);
    EXPECT_THAT(shell.fakeUi.messages, IsEmpty());
}

TEST(WindowCreation, startsEmptySavedAndOnTheReadings)
{
    Shell shell;
    EXPECT_TRUE(shell.window.record.isEmpty());
    EXPECT_TRUE(shell.window.record.saveCheck);
    EXPECT_EQ(shell.window.view.curLayer, kUnconverted);
    EXPECT_EQ(shell.window.file.savePath, "");
    EXPECT_FALSE(shell.window.forms.haveLabelForm());
    EXPECT_FALSE(shell.window.forms.haveTypeForm());
}

TEST(WindowCreation, isCaptionedWithTheTitleMadeUnique)
{
    EXPECT_EQ(Shell().window.caption(), "Tarvelint");
    Shell second;
    second.application.captions = {"Tarvelint"};
    second.window.lifecycle.Form_Load();
    EXPECT_EQ(second.window.caption(), "Tarvelint 1");
}

TEST(WindowCreation, disablesWhatNeedsARecordAndNothingElse)
{
    Shell shell;
    for (const Control control : {Control::mnuFileSave,
                                  Control::mnuFileSaveAs,
                                  Control::mnuEditUndo,
                                  Control::mnuEditClear,
                                  Control::mnuEditSelectAll,
                                  Control::mnuViewLabels,
                                  Control::mnuViewZoomIn,
                                  Control::mnuViewZoomOut,
                                  Control::mnuToolsMode,
                                  Control::mnuToolsView,
                                  Control::mnuToolsConvert,
                                  Control::mnuToolsDelete,
                                  Control::mnuToolsBreak,
                                  Control::mnuToolsInterpolate,
                                  Control::mnuToolsRecalculateSelection,
                                  Control::mnuToolsRecalculate,
                                  Control::mnuToolsRecalculateAll,
                                  Control::Picture1_0,
                                  Control::Picture1_1,
                                  Control::HScroll1,
                                  Control::labelButton,
                                  Control::convButton})
        EXPECT_FALSE(shell.window.isEnabled(control)) << static_cast<int>(control);
    for (const Control control : {Control::mnuFileNew, Control::mnuFileOpen, Control::mnuFileClose,
                                  Control::mnuFileExit, Control::mnuViewToolbar, Control::mnuHelpAbout})
        EXPECT_TRUE(shell.window.isEnabled(control)) << static_cast<int>(control);
}

TEST(WindowCreation, labelsAutomaticRangesAndBarsAreOnAndTheRecentFilesHidden)
{
    Shell shell;
    for (const Control box : {Control::labelBox, Control::scaleBox0, Control::scaleBox1, Control::mnuViewToolbar,
                              Control::mnuViewStatusBar})
        EXPECT_TRUE(shell.window.isChecked(box));
    EXPECT_FALSE(shell.window.control(Control::mnuFileMRU).visible);
}

TEST(WindowCreation, noReferenceLineIsAskedFor)
{
    Shell shell;
    EXPECT_FALSE(shell.window.isChecked(Control::refCheck));
    EXPECT_FALSE(shell.window.isEnabled(Control::refBox));
}

} // namespace
} // namespace tarvelint::test
