// SPDX-License-Identifier: MIT
#include "app/shell_window.h"
#include "window/plot_scale.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

/// What a window shows and holds after File > Open has read its record.
namespace tarvelint::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAreArray;

/// Plain rows "1,2" without labels.
std::string rowsOf(int rows)
{
    std::string text;
    for (int r = 0; r < rows; ++r) text += std::to_string(r) + ",2\n";
    return text;
}

const Control kDataCommands[] = {Control::labelButton,
                                 Control::Picture1_0,
                                 Control::HScroll1,
                                 Control::mnuToolsMode,
                                 Control::mnuToolsView,
                                 Control::mnuToolsConvert,
                                 Control::mnuToolsDelete,
                                 Control::mnuToolsBreak,
                                 Control::mnuToolsInterpolate,
                                 Control::mnuToolsRecalculateSelection,
                                 Control::mnuToolsRecalculate,
                                 Control::mnuToolsRecalculateAll,
                                 Control::mnuEditClear,
                                 Control::mnuEditSelectAll,
                                 Control::mnuViewLabels,
                                 Control::mnuViewRefresh,
                                 Control::viewButton,
                                 Control::convButton,
                                 Control::baseButton,
                                 Control::varList0,
                                 Control::varList1,
                                 Control::mnuFileSave,
                                 Control::mnuFileSaveAs};

TEST(OpenRecord, isNamedByItsPathInTheCaption)
{
    Shell shell;
    shell.openText(kSavedRecord);
    EXPECT_EQ(shell.window.caption(), "Tarvelint: /data/run.csv");
    EXPECT_EQ(shell.window.file.filePath, "/data/run.csv");
}

TEST(OpenRecord, openInAnotherWindowIsNumbered)
{
    Shell shell;
    shell.application.captions = {"Tarvelint: /data/run.csv", "Tarvelint 1"};
    shell.openText(kSavedRecord);
    EXPECT_EQ(shell.window.caption(), "Tarvelint 2");
}

TEST(OpenRecord, enablesTheDataCommands)
{
    Shell shell;
    for (const Control control : kDataCommands) EXPECT_FALSE(shell.window.isEnabled(control));
    shell.openText(kSavedRecord);
    for (const Control control : kDataCommands)
        EXPECT_TRUE(shell.window.isEnabled(control)) << static_cast<int>(control);
}

TEST(OpenRecord, leavesUndoAndTheReferenceBoxDisabled)
{
    Shell shell;
    shell.openText(kSavedRecord);
    EXPECT_FALSE(shell.window.isEnabled(Control::mnuEditUndo));
    EXPECT_EQ(shell.window.text(Control::mnuEditUndo), "Can't Undo");
    EXPECT_FALSE(shell.window.isEnabled(Control::refBox));
}

TEST(OpenRecord, zoomEntriesFollowTheZoom)
{
    for (const auto& [zoom, in, out] :
         {std::tuple(1, true, false), {2, true, true}, {4, true, true}, {8, false, true}}) {
        Shell shell;
        shell.window.view.zoomFactor = static_cast<std::int16_t>(zoom);
        shell.openText(kSavedRecord);
        EXPECT_EQ(shell.window.isEnabled(Control::mnuViewZoomIn), in) << zoom;
        EXPECT_EQ(shell.window.isEnabled(Control::mnuViewZoomOut), out) << zoom;
    }
}

TEST(OpenRecord, showsTheModeItFound)
{
    Shell shell;
    shell.openText(kSavedRecord);
    EXPECT_EQ(shell.status(), "Mode: select data");
    EXPECT_EQ(shell.window.pointer(), Pointer::cross);
    shell.window.view.lineMode = true;
    shell.openText(kSavedRecord);
    EXPECT_TRUE(shell.window.view.lineMode);
    EXPECT_EQ(shell.status(), "Mode: one-click baseline");
    EXPECT_EQ(shell.window.pointer(), Pointer::northSouth);
}

TEST(OpenRecord, saysWhichLayerIsOnView)
{
    Shell shell;
    shell.openText(kSavedRecord);
    EXPECT_EQ(shell.status2(), "Viewing intput data");
    shell.window.view.curLayer = kConverted;
    shell.openText(kSavedRecord);
    EXPECT_EQ(shell.status2(), "Viewing output data");
}

TEST(OpenRecord, showsItsFirstColumnAndNothingInTheCompanionArea)
{
    Shell shell;
    shell.openText(rowsOf(5));
    shell.window.lists.choose(0, 1);
    shell.window.lists.choose(1, 0);
    for (RecordingSurface& surface : shell.fakeUi.surfaces) surface.ops.clear();
    shell.openText(rowsOf(5));
    EXPECT_EQ(shell.window.view.chosenColumn[0], 0);
    EXPECT_EQ(shell.window.view.curCol(), 0);
    EXPECT_EQ(shell.window.view.chosenColumn[1], -1);
    ASSERT_FALSE(shell.fakeUi.surfaces[1].ops.empty());
    EXPECT_EQ(shell.fakeUi.surfaces[1].ops.back().what, "erase");
    EXPECT_FALSE(shell.fakeUi.surfaces[0].only("lineTo").empty());
}

TEST(OpenRecord, drawsNothingOfItselfInTheColumnsOfTheOldOne)
{
    Shell shell;
    shell.openText(rowsOf(500));
    shell.window.lists.choose(1, 0);
    shell.window.setScrollValue(200); // goes back to 0 with the new record
    shell.fakeUi.surfaces[1].ops.clear();
    shell.openText(rowsOf(300));
    EXPECT_THAT(shell.fakeUi.surfaces[1].only("lineTo"), IsEmpty());
    EXPECT_EQ(shell.window.view.HScroll1.Value, 0);
}

TEST(OpenRecord, fillsTheColumnListsBeforeTheSetupDialogOpens)
{
    Shell shell;
    shell.openText(kLoggerRecord);
    EXPECT_THAT(shell.entries(), ElementsAre("Day", "Time", "S1"));
    ASSERT_TRUE(shell.window.forms.haveLabelForm());
    EXPECT_EQ(shell.window.forms.labelFrm->rows(), 3);
    EXPECT_EQ(shell.window.forms.labelFrm->labelBox(3), "S1");
    EXPECT_EQ(shell.window.text(Control::colLabel), "3");
    EXPECT_EQ(shell.window.text(Control::rowLabel), "3");
}

TEST(OpenRecord, listsNumbersWhileLabelsAreOff)
{
    Shell shell;
    shell.window.setChecked(Control::labelBox, false);
    shell.openText(kLoggerRecord);
    EXPECT_THAT(shell.entries(), ElementsAre("1", "2", "3"));
    EXPECT_EQ(shell.window.forms.labelFrm->labelBox(3), "S1"); // the dialog shows labels all the same
}

TEST(OpenRecord, withoutHeaderOpensTheSetupDialogAndTheRestOfTheLoadRunsAtOnce)
{
    Shell shell;
    shell.openText(kLoggerRecord);
    EXPECT_TRUE(shell.fakeUi.columnSetupShown);
    EXPECT_TRUE(shell.fakeUi.columnSetupBlocks);
    EXPECT_TRUE(shell.window.isEnabled(Control::mnuFileSave));
    EXPECT_EQ(shell.window.view.curCol(), 0);
    EXPECT_EQ(shell.status(), "Mode: select data");
}

TEST(OpenRecord, withHeaderOpensNoDialog)
{
    Shell shell;
    shell.openText(kSavedRecord);
    EXPECT_FALSE(shell.fakeUi.columnSetupShown);
    EXPECT_FALSE(shell.window.forms.haveLabelForm());
    EXPECT_THAT(shell.fakeUi.log, IsEmpty());
}

TEST(OpenRecord, unloadsTheSetupDialogOfTheRecordBefore)
{
    Shell shell;
    shell.openText(kLoggerRecord);
    shell.window.forms.labelFrm->setCheckBox(1, true);
    shell.window.forms.labelFrm->OKButton_Click();
    shell.window.record.saveCheck = true;
    shell.openText(kLoggerRecord);
    EXPECT_THAT(shell.fakeUi.log, ElementsAre("show column setup", "unload column setup", "show column setup"));
    EXPECT_FALSE(shell.window.record.isParameter(0));
    shell.openText(kSavedRecord);
    EXPECT_EQ(shell.fakeUi.log.back(), "unload column setup");
    EXPECT_FALSE(shell.window.forms.haveLabelForm());
}

TEST(OpenRecord, resetsWhatBelongedToTheRecordBefore)
{
    Shell shell;
    shell.openText(rowsOf(500));
    Engine& w = shell.window;
    w.view.Turbo = w.view.chainActive = true;
    w.sensors.assign({0, 1}, 500);
    w.setNoZeroFlow(true);
    w.record.parameters = {true};
    w.view.curSensor = w.view.markRow = w.view.dragRow = w.view.grabbedPoint = 1;
    w.view.hoverRow = w.view.selStart = w.view.lastClick = 3;
    w.view.selEnd = 9;
    w.file.savePath = "/data/earlier.csv";
    w.undoSave(0);
    w.setScrollValue(100);
    w.setEnabled(Control::mnuToolsMode, false);
    w.setEnabled(Control::convButton, false);
    w.record.lullFlags[2] = true;

    shell.openText(rowsOf(400));
    EXPECT_FALSE(w.view.Turbo || w.view.chainActive);
    EXPECT_EQ(w.sensors.count(), 0);
    EXPECT_FALSE(w.record.isParameter(0));
    EXPECT_EQ(shell.status2(), "Viewing intput data");
    for (const std::int32_t none : {w.view.curSensor, w.view.markRow, w.view.dragRow, w.view.grabbedPoint})
        EXPECT_EQ(none, -1);
    for (const std::int32_t row0 : {w.view.hoverRow, w.view.selStart, w.view.selEnd, w.view.lastClick})
        EXPECT_EQ(row0, 0);
    EXPECT_EQ(w.view.HScroll1.Value, 0);
    EXPECT_EQ(w.file.savePath, "");
    EXPECT_EQ(w.text(Control::mnuEditUndo), "Can't Undo");
    EXPECT_TRUE(w.isEnabled(Control::mnuToolsMode));
    EXPECT_TRUE(w.isEnabled(Control::convButton));
    EXPECT_EQ(w.record.lullFlags, std::vector<bool>(400, false));
}

TEST(OpenRecord, keepsWhatTheWindowIsSetTo)
{
    Shell shell;
    shell.window.view.dateCol = 3;
    shell.window.conversionSettings.zeroFlow.vpdLimit = 0.5F;
    shell.window.record.zeroOut = true;
    shell.window.record.blank = -7;
    shell.openText(kLoggerRecord);
    EXPECT_EQ(shell.window.view.dateCol, 3);
    EXPECT_EQ(shell.window.conversionSettings.zeroFlow.vpdLimit, 0.5F);
    EXPECT_EQ(shell.window.record.values(kConverted, 2, 1), 0); // filled with 0, as "Zero" says
    EXPECT_EQ(shell.window.record.values(kBaseline, 2, 1), -7);
    EXPECT_TRUE(shell.window.record.saveCheck);
}

TEST(OpenRecord, keepsTimeColumnAndLullParameters)
{
    Shell shell;
    shell.window.view.timeCol = 4;
    shell.window.conversionSettings.zeroFlow.vpdCol = 5;
    shell.window.conversionSettings.zeroFlow.parCol = 6;
    shell.window.conversionSettings.zeroFlow.parLimit = 0.25F;
    shell.window.conversionSettings.zeroFlow.lullTime = 7;
    shell.openText(kLoggerRecord);
    EXPECT_EQ(shell.window.view.timeCol, 4);
    EXPECT_EQ(shell.window.conversionSettings.zeroFlow.vpdCol, 5);
    EXPECT_EQ(shell.window.conversionSettings.zeroFlow.parCol, 6);
    EXPECT_EQ(shell.window.conversionSettings.zeroFlow.parLimit, 0.25F);
    EXPECT_EQ(shell.window.conversionSettings.zeroFlow.lullTime, 7);
}

TEST(OpenRecord, dotsBecomeTheStoredBlank)
{
    Shell shell;
    shell.settings.values["Blank"] = "-1234";
    shell.openText(kSavedRecord);
    EXPECT_EQ(shell.window.record.blank, -1234);
    EXPECT_EQ(shell.window.record.values(kUnconverted, 2, 1), -1234);
}

TEST(OpenLongRecord, isReadAndEveryRowCanBeReached)
{
    Shell shell; // 100 plot units of one row each: Max = 40000 - 100 - 1, beyond 16 bits
    shell.openText(rowsOf(40000));
    EXPECT_THAT(shell.fakeUi.messages, IsEmpty());
    EXPECT_TRUE(shell.window.view.longRecord);
    EXPECT_EQ(shell.status2(), "Viewing intput data, long record");
    EXPECT_EQ(shell.window.view.HScroll1.Max, 39899);
    shell.window.setScrollValue(shell.window.view.HScroll1.Max);
    EXPECT_EQ(lastVisibleRow(100, 1, shell.window.view.HScroll1.Value, 40000), 39999);
    EXPECT_EQ(shell.window.record.values(kUnconverted, 0, 39999), 39999);
}

TEST(OpenLongRecord, aShortOneAfterwardsLeavesTheMode)
{
    Shell shell;
    shell.openText(rowsOf(40000));
    shell.openText(rowsOf(200));
    EXPECT_FALSE(shell.window.view.longRecord);
    EXPECT_EQ(shell.status2(), "Viewing intput data");
    EXPECT_EQ(shell.window.view.HScroll1.Max, 99); // 200 - 100 - 1
}

} // namespace
} // namespace tarvelint::test
