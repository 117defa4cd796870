// SPDX-License-Identifier: MIT
#include "view/cues.h"

#include "view/panel_fixture.h"

namespace tarvelint::test {

namespace {

// ---- choosing a column

TEST(VarListChange, showsTheColumnAndGivesThePlotTheFocus)
{
    Panel panel;
    panel.setVisible(Control::HScroll1, false);
    panel.setEnabled(Control::Picture1_0, false);
    panel.choose(0, 2);
    EXPECT_EQ(panel.curCol, 2);
    EXPECT_TRUE(panel.control(Control::HScroll1).visible);
    EXPECT_TRUE(panel.isEnabled(Control::Picture1_0));
    EXPECT_THAT(panel.calls, ElementsAre("redraw 0 True", "updateCues"));
    EXPECT_THAT(panel.fakeUi.focused, ElementsAre(Control::Picture1_0));
}

TEST(VarListChange, aClickOnTheSameEntryDoesItAgain)
{
    Panel panel;
    panel.choose(0, 2);
    panel.calls.clear();
    panel.cues.varList_Click(0);
    EXPECT_THAT(panel.calls, ElementsAre("redraw 0 True", "updateCues"));
}

TEST(VarListChange, ofTheCompanionChangesNeitherTheColumnBeingWorkedOnNorTheCues)
{
    Panel panel;
    panel.setUpColumns({1, 2});
    panel.Turbo = true;
    panel.curCol = 2;
    panel.curSensor = 0;
    panel.markRow = 1;
    panel.setEnabled(Control::Picture1_1, false);
    panel.setEnabled(Control::convButton, true);
    panel.fakeUi.focused.clear();
    panel.choose(1, 0);
    EXPECT_EQ(panel.curCol, 2);
    EXPECT_EQ(panel.curSensor, 0);
    EXPECT_EQ(panel.markRow, 1);
    EXPECT_TRUE(panel.isEnabled(Control::convButton));
    EXPECT_TRUE(panel.isEnabled(Control::Picture1_1));
    EXPECT_THAT(panel.calls, ElementsAre("redraw 1 True"));
    EXPECT_THAT(panel.fakeUi.focused, ElementsAre(Control::Picture1_0));
}

TEST(VarListChange, findsTheSensorOrdinalInTurboAndDropsThePointInHand)
{
    Panel panel;
    panel.Turbo = true;
    panel.markRow = panel.grabbedPoint = panel.dragRow = 1;
    panel.choose(0, 3);
    EXPECT_EQ(panel.curSensor, 1);
    EXPECT_EQ(panel.markRow, -1);
    EXPECT_EQ(panel.grabbedPoint, -1);
    EXPECT_EQ(panel.dragRow, -1);
}

TEST(VarListChange, aParameterColumnHasNoSensorOrdinal)
{
    Panel panel;
    panel.Turbo = true;
    panel.choose(0, 2);
    EXPECT_EQ(panel.curSensor, 0);
    panel.choose(0, 1);
    EXPECT_EQ(panel.curSensor, -1);
}

TEST(VarListChange, looksAtCountedSensorsOnlyAndTakesTheFirst)
{
    Panel panel;
    panel.Turbo = true;
    panel.sensors = 1;
    panel.choose(0, 3);
    EXPECT_EQ(panel.curSensor, -1);
    panel.sensors = 5; // more than are listed
    panel.sensorCols = {3, 3};
    panel.choose(0, 2);
    EXPECT_EQ(panel.curSensor, 0);
    panel.choose(0, 1);
    EXPECT_EQ(panel.curSensor, -1);
}

TEST(VarListChange, withoutTurboLeavesOrdinalAndPointsAlone)
{
    Panel panel;
    panel.curSensor = 5;
    panel.markRow = panel.grabbedPoint = panel.dragRow = 1;
    panel.choose(0, 3);
    EXPECT_EQ(panel.curSensor, 5);
    EXPECT_EQ(panel.markRow, 1);
    EXPECT_EQ(panel.grabbedPoint, 1);
    EXPECT_EQ(panel.dragRow, 1);
}

TEST(VarListChange, toNoEntryDrawsNothing)
{
    Panel panel;
    panel.curCol = 2;
    panel.setVisible(Control::HScroll1, false);
    panel.setEnabled(Control::Picture1_0, false);
    panel.choose(0, -1);
    EXPECT_EQ(panel.curCol, -1);
    EXPECT_FALSE(panel.control(Control::HScroll1).visible);
    EXPECT_FALSE(panel.isEnabled(Control::Picture1_0));
    EXPECT_THAT(panel.calls, ElementsAre("updateCues"));
    EXPECT_THAT(panel.fakeUi.focused, IsEmpty());
    panel.calls.clear();
    panel.choose(1, -1);
    EXPECT_THAT(panel.calls, IsEmpty());
}

TEST(VarListChange, convertIsForSensorColumnsOnceTheColumnsAreSetUp)
{
    Panel panel;
    panel.setUpColumns({1, 2});
    panel.choose(0, 1);
    EXPECT_FALSE(panel.isEnabled(Control::convButton));
    panel.choose(0, 2);
    EXPECT_TRUE(panel.isEnabled(Control::convButton));
}

TEST(VarListChange, withoutAColumnSetupConvertStaysAsItWas)
{
    for (const bool before : {false, true}) {
        Panel panel;
        panel.setEnabled(Control::convButton, before);
        panel.choose(0, 0);
        EXPECT_EQ(panel.isEnabled(Control::convButton), before);
    }
}

// ---- labels

TEST(ShowLabels, switchesBothListsBetweenLabelsAndColumnNumbers)
{
    Panel panel;
    panel.cues.labelBox_Click(false);
    EXPECT_FALSE(panel.isChecked(Control::labelBox));
    for (const auto& list : panel.varList) EXPECT_THAT(list.entries, ElementsAre("1", "2", "3", "4"));
    panel.cues.labelBox_Click(true);
    EXPECT_TRUE(panel.isChecked(Control::labelBox));
    for (const auto& list : panel.varList) EXPECT_THAT(list.entries, ElementsAre("day", "time", "oak", "pine"));
}

TEST(ShowLabels, keepsTheChosenColumnsAndDrawsNothing)
{
    Panel panel;
    panel.choose(0, 2);
    panel.calls.clear();
    panel.cues.labelBox_Click(false);
    EXPECT_EQ(panel.varList[0].chosen, 2);
    EXPECT_THAT(panel.calls, IsEmpty());
}

TEST(ShowLabels, aColumnWithoutALabelKeepsItsNumber)
{
    Panel panel;
    panel.data.labels = {"day"};
    panel.cues.labelBox_Click(true);
    EXPECT_THAT(panel.varList[1].entries, ElementsAre("day", "2", "3", "4"));
}

TEST(UpdateLabels, takesTheDialogsTextsIntoRecordAndBothLists)
{
    Panel panel;
    panel.setUpColumns({});
    panel.labelFrm->setLabelBox(3, "Quercus");
    panel.labelFrm->setLabelBox(4, "");
    panel.cues.updateLabels();
    EXPECT_THAT(panel.data.labels, ElementsAre("day", "time", "Quercus", ""));
    for (const auto& list : panel.varList) EXPECT_THAT(list.entries, ElementsAre("day", "time", "Quercus", ""));
}

TEST(UpdateLabels, showsTheLabelsEvenWhileNumbersWereShown)
{
    Panel panel;
    panel.setUpColumns({});
    panel.cues.labelBox_Click(false);
    panel.cues.updateLabels();
    EXPECT_THAT(panel.varList[0].entries, ElementsAre("day", "time", "oak", "pine"));
}

TEST(UpdateLabels, withoutADialogChangesNothing)
{
    Panel panel;
    panel.cues.updateLabels();
    EXPECT_THAT(panel.data.labels, ElementsAre("day", "time", "oak", "pine"));
}

TEST(LabelButton, createsTheDialogAtItsFirstUseAndKeepsTheFocusOnThePlot)
{
    Panel panel;
    EXPECT_FALSE(panel.haveLabelForm());
    panel.cues.labelButton_Click();
    ASSERT_TRUE(panel.haveLabelForm());
    EXPECT_EQ(panel.labelFrm->rows(), 4);
    EXPECT_EQ(panel.labelFrm->labelBox(3), "oak");
    EXPECT_EQ(panel.labelFrm->boxes.vpdBox, "11") << "from the settings";
    EXPECT_TRUE(panel.fakeUi.columnSetupShown);
    EXPECT_FALSE(panel.fakeUi.columnSetupBlocks);
    EXPECT_THAT(panel.fakeUi.focused, ElementsAre(Control::Picture1_0));
}

TEST(LabelButton, showsTheSameDialogAgainWithFreshLabels)
{
    Panel panel;
    panel.setUpColumns({1});
    const ColumnSetup* dialog = panel.labelFrm.get();
    panel.data.labels[2] = "beech";
    panel.cues.mnuViewLabels_Click();
    EXPECT_EQ(panel.labelFrm.get(), dialog);
    EXPECT_EQ(panel.labelFrm->labelBox(3), "beech");
    EXPECT_TRUE(panel.labelFrm->checkBox(1)) << "marks stand as the last OK left them";
    EXPECT_TRUE(panel.fakeUi.columnSetupShown);
    EXPECT_FALSE(panel.fakeUi.columnSetupBlocks);
}

TEST(LabelButton, itsMenuEntryDoesTheSame)
{
    Panel panel;
    panel.cues.mnuViewLabels_Click();
    EXPECT_TRUE(panel.haveLabelForm());
    EXPECT_TRUE(panel.fakeUi.columnSetupShown);
    EXPECT_THAT(panel.fakeUi.focused, ElementsAre(Control::Picture1_0));
}

} // namespace

} // namespace tarvelint::test
