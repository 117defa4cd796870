// SPDX-License-Identifier: MIT
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
    EXPECT_EQ(panel.view.curCol(), 2);
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
    panel.lists.varList_Click(0);
    EXPECT_THAT(panel.calls, ElementsAre("redraw 0 True", "updateCues"));
}

TEST(VarListChange, ofTheCompanionChangesNeitherTheColumnBeingWorkedOnNorTheCues)
{
    Panel panel;
    panel.record.parameters = {true, true};
    panel.view.Turbo = true;
    panel.choose(2);
    panel.view.curSensor = 0;
    panel.view.markRow = 1;
    panel.setEnabled(Control::Picture1_1, false);
    panel.setEnabled(Control::convButton, true);
    panel.fakeUi.focused.clear();
    panel.choose(1, 0);
    EXPECT_EQ(panel.view.curCol(), 2);
    EXPECT_EQ(panel.view.curSensor, 0);
    EXPECT_EQ(panel.view.markRow, 1);
    EXPECT_TRUE(panel.isEnabled(Control::convButton));
    EXPECT_TRUE(panel.isEnabled(Control::Picture1_1));
    EXPECT_THAT(panel.calls, ElementsAre("redraw 1 True"));
    EXPECT_THAT(panel.fakeUi.focused, ElementsAre(Control::Picture1_0));
}

TEST(VarListChange, findsTheSensorOrdinalInTurboAndDropsThePointInHand)
{
    Panel panel;
    panel.view.Turbo = true;
    panel.view.markRow = panel.view.grabbedPoint = panel.view.dragRow = 1;
    panel.choose(0, 3);
    EXPECT_EQ(panel.view.curSensor, 1);
    EXPECT_EQ(panel.view.markRow, -1);
    EXPECT_EQ(panel.view.grabbedPoint, -1);
    EXPECT_EQ(panel.view.dragRow, -1);
}

TEST(VarListChange, aParameterColumnHasNoSensorOrdinal)
{
    Panel panel;
    panel.view.Turbo = true;
    panel.choose(0, 2);
    EXPECT_EQ(panel.view.curSensor, 0);
    panel.choose(0, 1);
    EXPECT_EQ(panel.view.curSensor, -1);
}

TEST(VarListChange, withoutTurboLeavesOrdinalAndPointsAlone)
{
    Panel panel;
    panel.view.curSensor = 5;
    panel.view.markRow = panel.view.grabbedPoint = panel.view.dragRow = 1;
    panel.choose(0, 3);
    EXPECT_EQ(panel.view.curSensor, 5);
    EXPECT_EQ(panel.view.markRow, 1);
    EXPECT_EQ(panel.view.grabbedPoint, 1);
    EXPECT_EQ(panel.view.dragRow, 1);
}

TEST(VarListChange, toNoEntryDrawsNothing)
{
    Panel panel;
    panel.choose(2);
    panel.setVisible(Control::HScroll1, false);
    panel.setEnabled(Control::Picture1_0, false);
    panel.choose(0, -1);
    EXPECT_EQ(panel.view.curCol(), -1);
    EXPECT_FALSE(panel.control(Control::HScroll1).visible);
    EXPECT_FALSE(panel.isEnabled(Control::Picture1_0));
    EXPECT_THAT(panel.calls, ElementsAre("updateCues"));
    EXPECT_THAT(panel.fakeUi.focused, IsEmpty());
    panel.calls.clear();
    panel.choose(1, -1);
    EXPECT_THAT(panel.calls, IsEmpty());
}

TEST(VarListChange, convertIsForSensorColumns)
{
    Panel panel;
    panel.record.parameters = {true, true};
    panel.choose(0, 1);
    EXPECT_FALSE(panel.isEnabled(Control::convButton));
    panel.choose(0, 2);
    EXPECT_TRUE(panel.isEnabled(Control::convButton));
}

TEST(ColumnChoice, alwaysShowsTheColumnAlsoTheSameOne)
{
    Panel panel;
    panel.lists.choose(1, 1);
    panel.lists.choose(1, 1);
    EXPECT_EQ(panel.view.chosen(1), 1);
    EXPECT_EQ(panel.view.curCol(), -1);
    EXPECT_THAT(panel.calls, ElementsAre("redraw 1 True", "redraw 1 True"));
}

TEST(ColumnEntries, ofANewRecordLeaveNothingChosen)
{
    Panel panel;
    panel.choose(0, 2);
    panel.choose(1, 3);
    panel.calls.clear();
    panel.lists.fill();
    EXPECT_EQ(panel.view.chosen(0), -1);
    EXPECT_EQ(panel.view.chosen(1), -1);
    EXPECT_THAT(panel.entries(), ElementsAre("day", "time", "oak", "pine"));
    EXPECT_THAT(panel.calls, IsEmpty());
}

TEST(ColumnEntries, areNumbersWhileLabelsAreNotShown)
{
    Panel panel;
    panel.view.showsLabels = false;
    panel.lists.fill();
    EXPECT_THAT(panel.entries(), ElementsAre("1", "2", "3", "4"));
}

// ---- labels

TEST(ShowLabels, switchesBothListsBetweenLabelsAndColumnNumbers)
{
    Panel panel;
    panel.lists.labelBox_Click(false);
    EXPECT_FALSE(panel.isChecked(Control::labelBox));
    EXPECT_THAT(panel.entries(), ElementsAre("1", "2", "3", "4"));
    panel.lists.labelBox_Click(true);
    EXPECT_TRUE(panel.isChecked(Control::labelBox));
    EXPECT_THAT(panel.entries(), ElementsAre("day", "time", "oak", "pine"));
}

TEST(ShowLabels, keepsTheChosenColumnsAndDrawsNothing)
{
    Panel panel;
    panel.choose(0, 2);
    panel.calls.clear();
    panel.lists.labelBox_Click(false);
    EXPECT_EQ(panel.view.chosenColumn[0], 2);
    EXPECT_THAT(panel.calls, IsEmpty());
}

TEST(ShowLabels, aColumnWithoutALabelKeepsItsNumber)
{
    Panel panel;
    panel.record.labels = {"day"};
    panel.lists.labelBox_Click(true);
    EXPECT_THAT(panel.entries(), ElementsAre("day", "2", "3", "4"));
}

TEST(UpdateLabels, takesTheTextsIntoRecordAndLists)
{
    Panel panel;
    panel.lists.updateLabels({"day", "time", "Quercus", ""});
    EXPECT_THAT(panel.record.labels, ElementsAre("day", "time", "Quercus", ""));
    EXPECT_THAT(panel.entries(), ElementsAre("day", "time", "Quercus", ""));
}

TEST(UpdateLabels, textsForColumnsThatAreNotThereAreDropped)
{
    Panel panel;
    panel.lists.updateLabels({"a", "b", "c", "d", "e"});
    EXPECT_THAT(panel.record.labels, ElementsAre("a", "b", "c", "d"));
}

TEST(UpdateLabels, keepsTheChosenColumnsAndDrawsNothing)
{
    Panel panel;
    panel.choose(0, 1);
    panel.calls.clear();
    panel.lists.updateLabels({"1", "spruce", "c", "d"});
    EXPECT_EQ(panel.view.chosen(0), 1);
    EXPECT_THAT(panel.calls, IsEmpty());
}

TEST(UpdateLabels, showsTheLabelsEvenWhileNumbersWereShown)
{
    Panel panel;
    panel.lists.labelBox_Click(false);
    panel.lists.updateLabels(panel.record.labels);
    EXPECT_THAT(panel.entries(), ElementsAre("day", "time", "oak", "pine"));
}

// ---- a chain of clicks

TEST(ChooseColumn, endsAOneClickChainOnlyInTheMainListAndForAnotherColumn)
{
    Panel panel;
    panel.choose(0, 0);
    panel.view.lineMode = panel.view.chainActive = true;
    panel.setPointer(Pointer::fourWay);
    panel.lists.choose(1, 1);
    panel.lists.choose(0, 0);
    EXPECT_TRUE(panel.view.chainActive);
    panel.lists.choose(0, 1);
    EXPECT_FALSE(panel.view.chainActive);
    EXPECT_EQ(panel.pointer(), Pointer::northSouth);
}

TEST(ChooseColumn, inTraditionalModeLeavesThePointer)
{
    Panel panel;
    panel.choose(0, 0);
    panel.view.chainActive = true; // left over from the one-click modes
    panel.setPointer(Pointer::cross);
    panel.lists.choose(0, 1);
    EXPECT_EQ(panel.pointer(), Pointer::cross);
}

} // namespace

} // namespace tarvelint::test
