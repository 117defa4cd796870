// SPDX-License-Identifier: MIT
#include "forms/column_setup.h"

#include "forms/setup_window.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarvelint::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

// Opening

TEST(ColumnSetupOpening, eachRowShowsItsColumnsLabelAlsoWhileTheListsShowNumbers)
{
    SetupWindow window(2);
    window.view.showsLabels = window.view.entriesAreLabels = false;
    window.loadDialog();
    EXPECT_EQ(window.dialog().rows(), 2);
    EXPECT_EQ(window.dialog().labelBox(1), "L1");
    EXPECT_EQ(window.dialog().labelBox(2), "L2");
}

TEST(ColumnSetupOpening, aNewDialogShowsTheMarksOfTheRecord)
{
    SetupWindow window(3);
    window.record.parameters = {true, false};
    window.loadDialog();
    EXPECT_TRUE(window.dialog().checkBox(1));
    EXPECT_FALSE(window.dialog().checkBox(2));
    EXPECT_FALSE(window.dialog().checkBox(3));
}

TEST(ColumnSetupOpening, anEmptyStoreGivesThisDialogsOwnDefaults)
{
    SetupWindow window;
    EXPECT_EQ(window.boxes().vpdBox, "11");
    EXPECT_EQ(window.boxes().parBox, "3");
    EXPECT_EQ(window.boxes().VPDlBox, "0.05");
    EXPECT_EQ(window.boxes().PARlBox, "0.01");
    EXPECT_EQ(window.boxes().timeBox, "3");
    EXPECT_FALSE(window.boxes().saveBox);
    EXPECT_FALSE(window.boxes().turboCheck);
    for (int row = 1; row <= 12; ++row) EXPECT_FALSE(window.dialog().checkBox(row));
}

TEST(ColumnSetupOpening, storedSettingsFillTheBoxesAsTyped)
{
    SetupWindow window;
    window.settings.values = {{"VPD", "4"}, {"PAR", "5"}, {"VPDlimit", ".1"}, {"PARlimit", "2e1"}, {"lullTime", "six"}};
    window.loadDialog();
    EXPECT_EQ(window.boxes().vpdBox, "4");
    EXPECT_EQ(window.boxes().parBox, "5");
    EXPECT_EQ(window.boxes().VPDlBox, ".1");
    EXPECT_EQ(window.boxes().PARlBox, "2e1");
    EXPECT_EQ(window.boxes().timeBox, "six");
}

TEST(ColumnSetupOpening, theTipIsFourParagraphsToTheCharacter)
{
    EXPECT_EQ(ColumnSetup::tipLabel(),
              "Check the columns that contain parameters, such as day, time, VPD, temperature, etc. These columns "
              "will be included in the output file unchanged, and cannot be converted or interpolated."
              "\r\n\r\n"
              "Any unchecked columns can be converted and interpolated, and are filled with the designated blank "
              "number (such as 99999) initially."
              "\r\n\r\n"
              "Check 'Save labels in iutput file' to save the labels as the first line in the output file "
              "(recommended if you have custom labels). If you do not have custom labels, uncheck this box, or the "
              "first line of the output file will be the same as the first line of the input file."
              "\r\n\r\n"
              "Check 'VPD pre-process' to enable automatic detection of zero-flow conditions and automatic baseline "
              "calculation and data conversion.");
}

TEST(ColumnSetupOpening, theParametersTakeInputOnlyWhileThePreProcessIsWanted)
{
    SetupWindow window;
    EXPECT_FALSE(window.dialog().paramFrameOn());
    window.boxes().turboCheck = true;
    EXPECT_TRUE(window.dialog().paramFrameOn());
    window.boxes().turboCheck = false;
    EXPECT_FALSE(window.dialog().paramFrameOn());
}

TEST(ColumnSetupOpening, aLaterShowingTakesTheLabelsAgain)
{
    SetupWindow window(2);
    window.dialog().setLabelBox(1, "typed and cancelled");
    window.dialog().CancelButton_Click();
    window.record.labels = {"A", "B"};
    window.dialog().Form_Show();
    EXPECT_EQ(window.dialog().labelBox(1), "A");
    EXPECT_EQ(window.dialog().labelBox(2), "B");
}

TEST(ColumnSetupOpening, askingForItAgainWhileItIsShownKeepsWhatWasTyped)
{
    SetupWindow window(2);
    window.dialog().setLabelBox(1, "half-typed");
    window.dialog().setCheckBox(2, true);
    window.dialog().Form_Show();
    EXPECT_EQ(window.dialog().labelBox(1), "half-typed");
    EXPECT_TRUE(window.dialog().checkBox(2));
}

// Paging

TEST(ColumnSetupPaging, twentyColumnsShowFifteenRowsAndTheBarRunsToFive)
{
    SetupWindow window(20);
    EXPECT_EQ(ColumnSetup::kVisibleRows, 15);
    EXPECT_TRUE(window.dialog().scrollBarVisible());
    EXPECT_EQ(window.dialog().scrollBarMax(), 5);
}

TEST(ColumnSetupPaging, fifteenColumnsNeedNoBarAndSixteenDo)
{
    EXPECT_FALSE(SetupWindow(15).dialog().scrollBarVisible());
    EXPECT_EQ(SetupWindow(15).dialog().scrollBarMax(), 0);
    EXPECT_TRUE(SetupWindow(16).dialog().scrollBarVisible());
    EXPECT_EQ(SetupWindow(16).dialog().scrollBarMax(), 1);
    EXPECT_FALSE(SetupWindow(1).dialog().scrollBarVisible());
}

TEST(ColumnSetupPaging, rowOneStandsAtTwoLessTwentyThreeAStepAndTheOthersTwentyThreeBelow)
{
    EXPECT_EQ(ColumnSetup::rowTop(1, 0), 2);
    EXPECT_EQ(ColumnSetup::rowTop(2, 0), 25);
    EXPECT_EQ(ColumnSetup::rowTop(1, 5), -113); // 2 - 23 x 5
    EXPECT_EQ(ColumnSetup::rowTop(6, 5), 2);    // row 1 + value is at the top
    EXPECT_EQ(ColumnSetup::rowTop(20, 5), 324); // 14 rows further down
}

TEST(ColumnSetupPaging, aFocusedRowScrollsIntoViewByTheLeastStep)
{
    SetupWindow window(20);
    EXPECT_EQ(window.dialog().scrollValueShowing(3, 5), 2);  // rows 6 to 20 are shown: up until row 3 is the first
    EXPECT_EQ(window.dialog().scrollValueShowing(17, 0), 2); // rows 1 to 15: down until row 17 is the last
    EXPECT_EQ(window.dialog().scrollValueShowing(10, 3), 3); // in view already
    EXPECT_EQ(window.dialog().scrollValueShowing(20, 0), 5);
}

// OK

TEST(ColumnSetupOk, withoutPreProcessTheOrderIsLabelsUnsavedColumnModesHideColumn)
{
    SetupWindow window;
    window.dialog().setLabelBox(1, "typed");
    window.dialog().OKButton_Click();
    EXPECT_THAT(window.calls, ElementsAre("redraw 0 True, shown", "updateCues",
                                          "redraw 0 True, hidden, Mode: sloppy one-click", "updateCues"));
    EXPECT_EQ(window.labelsAtFirstDrawing.front(), "typed");
    EXPECT_FALSE(window.savedAtFirstDrawing) << "unsaved before the column is shown";
    EXPECT_FALSE(window.record.saveCheck);
}

TEST(ColumnSetupOk, withPreProcessTheOldSensorsAreShownOnceMoreBeforeTheNewOnes)
{
    SetupWindow window;
    window.addLulls();
    window.makeSensors({0, 1, 2, 3, 4, 5, 6});
    for (const int row : {1, 2, 3, 11}) window.dialog().setCheckBox(row, true);
    EXPECT_EQ(window.okWithPreProcess(), "");
    EXPECT_THAT(window.calls, ElementsAre("redraw 0 True, shown", "updateCues",
                                          "redraw 0 True, hidden, Mode: traditional, edit data", "updateCues"));
    EXPECT_EQ(window.sensorsAtFirstDrawing, 7);
    EXPECT_EQ(window.sensors.count(), 8); // 12 columns less 4 marked ones
}

TEST(ColumnSetupOk, withPreProcessTheLullsAreFlaggedBeforeThePointsAreSet)
{
    SetupWindow window;
    window.addLulls();
    EXPECT_EQ(window.okWithPreProcess(), "");
    EXPECT_FALSE(window.record.lullFlags[2]);
    EXPECT_TRUE(window.record.lullFlags[3]) << "the third row after the first";
    EXPECT_TRUE(window.sensors.isPoint(0, 3)) << "equal readings leave the point on the first flagged row";
    EXPECT_EQ(window.record.values(kBaseline, 0, 20), 2) << "between the two lulls";
    EXPECT_EQ(window.text(Control::statusPanel2), "");
}

TEST(ColumnSetupOk, withPreProcessTheWindowIsInTurboUnderAnHourglassUntilItIsDone)
{
    SetupWindow window;
    window.addLulls();
    std::vector<Pointer> pointers;
    window.fakeUi.onPaintStatus = [&] { pointers.push_back(window.pointer()); };
    window.view.lineMode = window.view.Sloppy = window.view.chainActive = true;
    EXPECT_EQ(window.okWithPreProcess(), "");
    EXPECT_TRUE(window.view.Turbo);
    EXPECT_FALSE(window.view.lineMode || window.view.Sloppy || window.view.chainActive);
    EXPECT_FALSE(window.isEnabled(Control::mnuToolsMode));
    EXPECT_EQ(window.conversionSettings.zeroFlow.vpdCol, 10); // "11" is column 10 counted from 0
    EXPECT_EQ(window.conversionSettings.zeroFlow.parCol, 2);
    EXPECT_THAT(pointers, ElementsAre(Pointer::hourglass, Pointer::hourglass));
    EXPECT_EQ(window.pointer(), Pointer::cross);
    EXPECT_EQ(window.view.curSensor, 0) << "shown once more, now with its sensor";
}

TEST(ColumnSetupOk, aPreProcessWithoutAPointSaysSoInTheSecondPanel)
{
    SetupWindow window;
    window.setStatus(2, "Viewing intput data");
    EXPECT_EQ(window.okWithPreProcess(), "");
    EXPECT_EQ(window.text(Control::statusPanel2), "Viewing intput data, no zero flow found");
    window.addLulls();
    EXPECT_EQ(window.okWithPreProcess(), "");
    EXPECT_EQ(window.text(Control::statusPanel2), "Viewing intput data");
}

TEST(ColumnSetupOk, withoutPreProcessTheWindowIsInSloppyOneClickModeAndItsModeEntryIsEnabled)
{
    SetupWindow window;
    window.view.Turbo = window.view.chainActive = true;
    window.setEnabled(Control::mnuToolsMode, false);
    window.dialog().OKButton_Click();
    EXPECT_FALSE(window.view.Turbo);
    EXPECT_TRUE(window.view.lineMode);
    EXPECT_TRUE(window.view.Sloppy);
    EXPECT_TRUE(window.isEnabled(Control::mnuToolsMode));
    EXPECT_EQ(window.pointer(), Pointer::northSouth);
    EXPECT_FALSE(window.view.chainActive) << "OK ends a chain";
}

TEST(ColumnSetupOk, aNoteOnMissingZeroFlowStaysUntilTheNextPreProcess)
{
    SetupWindow window;
    EXPECT_EQ(window.okWithPreProcess(), "");
    window.boxes().turboCheck = false;
    window.dialog().OKButton_Click();
    EXPECT_EQ(window.text(Control::statusPanel2), "no zero flow found");
}

TEST(ColumnSetupOk, aRefusedOneLeavesWhatCancelPutsBack)
{
    SetupWindow window;
    window.boxes().timeBox = "7";
    window.dialog().OKButton_Click();
    window.boxes().timeBox = "9";
    window.boxes().vpdBox = "99";
    EXPECT_NE(window.okWithPreProcess(), "");
    window.dialog().CancelButton_Click();
    EXPECT_EQ(window.boxes().timeBox, "7");
    EXPECT_EQ(window.boxes().vpdBox, "11");
    EXPECT_FALSE(window.boxes().turboCheck);
}

TEST(ColumnSetupOk, limitsAre32BitFloats)
{
    SetupWindow window;
    EXPECT_EQ(window.okWithPreProcess(), "");
    EXPECT_EQ(window.conversionSettings.zeroFlow.vpdLimit, 0.05F);
    EXPECT_EQ(window.conversionSettings.zeroFlow.parLimit, 0.01F);
    EXPECT_LE(0.05, double{window.conversionSettings.zeroFlow.vpdLimit}); // a reading of 0.05 is within "0.05",
    EXPECT_GT(0.01, double{window.conversionSettings.zeroFlow.parLimit}); // one of 0.01 is not within "0.01"
}

TEST(ColumnSetupOk, theLullLengthIsRoundedHalfToEven)
{
    for (const auto& [typed, rows] : {std::pair("2.5", 2), {"3.5", 4}, {"3", 3}, {"six", 0}, {"-1", -1}}) {
        SetupWindow window;
        window.boxes().timeBox = typed;
        EXPECT_EQ(window.okWithPreProcess(), "");
        EXPECT_EQ(window.conversionSettings.zeroFlow.lullTime, rows) << typed;
    }
}

TEST(ColumnSetupOk, columnNumbersAreReadByTheirLeadingNumberLessOneHalfToEven)
{
    for (const auto& [typed, column] :
         {std::pair("11", 10), {"1", 0}, {"2.5", 2}, {"1.5", 0}, {" 4 cm", 3}, {"12", 11}}) {
        SetupWindow window;
        window.boxes().vpdBox = typed;
        EXPECT_EQ(window.okWithPreProcess(), "");
        EXPECT_EQ(window.conversionSettings.zeroFlow.vpdCol, column) << typed;
    }
}

TEST(ColumnSetupOk, marksAndTheLabelChoiceCountOnlyFromThen)
{
    SetupWindow window;
    window.dialog().setCheckBox(2, true);
    window.boxes().saveBox = true;
    EXPECT_FALSE(window.record.isParameter(1));
    EXPECT_FALSE(window.record.savesLabels);
    window.dialog().OKButton_Click();
    EXPECT_TRUE(window.record.isParameter(1));
    EXPECT_FALSE(window.record.isParameter(0));
    EXPECT_TRUE(window.record.savesLabels);
    EXPECT_FALSE(window.record.isParameter(-1));
    EXPECT_FALSE(window.record.isParameter(12));
}

TEST(ColumnSetupOk, untilThenLabelsGoOutAsTheFileCame)
{
    SetupWindow window;
    window.record.savesLabels = true;
    window.loadDialog();
    EXPECT_TRUE(window.record.savesLabels); // a dialog that was only looked at loses no labels
    window.dialog().CancelButton_Click();
    EXPECT_TRUE(window.record.savesLabels);
    window.dialog().Form_Show();
    EXPECT_FALSE(window.boxes().saveBox);
    window.dialog().OKButton_Click();
    EXPECT_FALSE(window.record.savesLabels);
}

TEST(ColumnSetupOk, theBoxesStandAtTheNextShowingAsOkLeftThem)
{
    SetupWindow window;
    window.dialog().setCheckBox(4, true);
    window.boxes().timeBox = "9";
    EXPECT_EQ(window.okWithPreProcess(), "");
    window.dialog().Form_Show();
    EXPECT_TRUE(window.dialog().checkBox(4));
    EXPECT_EQ(window.boxes().timeBox, "9");
    EXPECT_TRUE(window.boxes().turboCheck);
}

// Cancel

TEST(ColumnSetupCancel, appliesNothingAndRestoresTheBoxes)
{
    SetupWindow window;
    window.dialog().setCheckBox(4, true);
    window.dialog().OKButton_Click();
    window.record.saveCheck = true;
    window.calls.clear();
    window.dialog().setCheckBox(4, false);
    window.dialog().setCheckBox(5, true);
    window.boxes().saveBox = true;
    window.boxes().vpdBox = "2";
    window.dialog().CancelButton_Click();
    EXPECT_THAT(window.calls, IsEmpty());
    EXPECT_FALSE(window.fakeUi.columnSetupShown);
    EXPECT_TRUE(window.record.saveCheck);
    EXPECT_TRUE(window.dialog().checkBox(4));
    EXPECT_FALSE(window.dialog().checkBox(5));
    EXPECT_FALSE(window.boxes().saveBox);
    EXPECT_EQ(window.boxes().vpdBox, "11");
}

// The choices alone

TEST(ApplyColumnSetup, needsNoDialog)
{
    SetupWindow window(2);
    applyColumnSetup(window, {{"Day", "S1"}, {true, false}, true, std::nullopt});
    EXPECT_THAT(window.record.labels, ElementsAre("Day", "S1"));
    EXPECT_TRUE(window.record.isParameter(0));
    EXPECT_TRUE(window.record.savesLabels);
    EXPECT_FALSE(window.record.saveCheck);
    EXPECT_TRUE(window.view.Sloppy);
}

} // namespace
} // namespace tarvelint::test
