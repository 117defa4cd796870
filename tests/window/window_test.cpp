// SPDX-License-Identifier: MIT
#include "window/window.h"

#include "support/test_window.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarvelint::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Status text and pointer after `showMode` with these modes.
std::pair<std::string, Pointer> modeShown(bool lineMode, bool sloppy)
{
    TestWindow window;
    window.view.lineMode = lineMode;
    window.view.Sloppy = sloppy;
    window.showMode();
    return {window.text(Control::statusPanel1), window.pointer()};
}

TEST(Record, withoutRowsOrWithoutColumnsIsEmpty)
{
    Record record;
    EXPECT_TRUE(record.isEmpty());
    record.columns = 3;
    EXPECT_TRUE(record.isEmpty());
    record.lines = 4;
    EXPECT_FALSE(record.isEmpty());
    record.columns = 0;
    EXPECT_TRUE(record.isEmpty());
}

TEST(WindowControls, aChangeIsKeptAndToldToTheToolkit)
{
    TestWindow window;
    window.setText(Control::refBox, "12");
    window.setEnabled(Control::convButton, false);
    window.setChecked(Control::highBox, false);
    window.setVisible(Control::HScroll1, false);
    EXPECT_EQ(window.text(Control::refBox), "12");
    EXPECT_FALSE(window.isEnabled(Control::convButton));
    EXPECT_FALSE(window.isChecked(Control::highBox));
    EXPECT_FALSE(window.control(Control::HScroll1).visible);
    EXPECT_THAT(window.fakeUi.changes,
                ElementsAre(Control::refBox, Control::convButton, Control::highBox, Control::HScroll1));
}

TEST(WindowControls, whatIsAlreadySoIsNotToldAgain)
{
    TestWindow window;
    window.setText(Control::refBox, "");
    window.setEnabled(Control::convButton, true);
    window.setChecked(Control::highBox, true);
    window.setVisible(Control::HScroll1, true);
    EXPECT_THAT(window.fakeUi.changes, IsEmpty());
}

TEST(WindowControls, theCompanionAreasControlFollowsTheMainAreas)
{
    EXPECT_EQ(element(Control::minLabel0, 1), Control::minLabel1);
    EXPECT_EQ(element(Control::Picture1_0, 1), Control::Picture1_1);
    EXPECT_EQ(element(Control::varList0, 0), Control::varList0);
}

TEST(WindowControls, theCaptionIsToldOnlyWhenItChanges)
{
    TestWindow window;
    window.setCaption("Tarvelint");
    window.setCaption("Tarvelint");
    EXPECT_EQ(window.caption(), "Tarvelint");
    EXPECT_EQ(window.fakeUi.captionChanges, 1);
}

TEST(WindowStatus, eachPanelHasItsOwnText)
{
    TestWindow window;
    window.setStatus(1, "reading data");
    window.setStatus(2, "Viewing intput data");
    EXPECT_EQ(window.text(Control::statusPanel1), "reading data");
    EXPECT_EQ(window.text(Control::statusPanel2), "Viewing intput data");
}

TEST(WindowStatus, aLongRecordIsNamedInTheSecondPanelWhateverElseItSays)
{
    TestWindow window;
    window.setLongRecord(true);
    EXPECT_EQ(window.text(Control::statusPanel2), "long record");
    window.setStatus(2, "Viewing intput data");
    EXPECT_EQ(window.text(Control::statusPanel2), "Viewing intput data, long record");
    EXPECT_TRUE(window.view.longRecord);
}

TEST(WindowStatus, leavingLongRecordModeTakesItsNoteAway)
{
    TestWindow window;
    window.setStatus(2, "Viewing output data");
    window.setLongRecord(true);
    window.setLongRecord(false);
    EXPECT_EQ(window.text(Control::statusPanel2), "Viewing output data");
    EXPECT_FALSE(window.view.longRecord);
}

TEST(WindowControls, aFactIsKeptByItsPartAndShownByItsControl)
{
    TestWindow window;
    window.setText(Control::FormulaBox, "X*B");
    window.setChecked(Control::highBox, false);
    window.setChecked(Control::scaleBox1, true);
    window.setChecked(Control::refCheck, true);
    window.setChecked(Control::labelBox, true);
    EXPECT_EQ(window.conversionSettings.equation, "X*B");
    EXPECT_FALSE(window.conversionSettings.baselineIsHigh);
    EXPECT_FALSE(window.view.isAutomatic(0));
    EXPECT_TRUE(window.view.isAutomatic(1));
    EXPECT_TRUE(window.view.showsReference);
    EXPECT_TRUE(window.view.showsLabels);

    window.conversionSettings.equation = "B-X";
    window.view.automaticRange[0] = true;
    EXPECT_EQ(window.control(Control::FormulaBox).text, "B-X");
    EXPECT_TRUE(window.control(Control::scaleBox0).checked);
}

TEST(WindowStatus, aPreProcessWithoutAPointIsNotedInTheSecondPanel)
{
    TestWindow window;
    window.setNoZeroFlow(true);
    EXPECT_EQ(window.text(Control::statusPanel2), "no zero flow found");
    window.setStatus(2, "Viewing intput data");
    EXPECT_EQ(window.text(Control::statusPanel2), "Viewing intput data, no zero flow found");
    window.setLongRecord(true);
    EXPECT_EQ(window.text(Control::statusPanel2), "Viewing intput data, long record, no zero flow found");
    window.setNoZeroFlow(false);
    EXPECT_EQ(window.text(Control::statusPanel2), "Viewing intput data, long record");
}

TEST(WindowScrollBar, aValueIsClippedToTheRange)
{
    TestWindow window;
    window.view.HScroll1.Max = 50;
    window.setScrollValue(70);
    EXPECT_EQ(window.view.HScroll1.Value, 50);
    window.setScrollValue(-3);
    EXPECT_EQ(window.view.HScroll1.Value, 0);
}

TEST(WindowScrollBar, aNewValueIsDrawnInBothAreasTheMainOneLastAndWithTheFocus)
{
    TestWindow window;
    window.view.HScroll1.Max = 50;
    window.setScrollValue(20);
    EXPECT_THAT(window.calls, ElementsAre("redraw 1 True", "redraw 0 True"));
    EXPECT_THAT(window.fakeUi.focused, ElementsAre(Control::Picture1_0));
}

TEST(WindowScrollBar, withTheMainAreaDisabledOnlyTheCompanionFollows)
{
    TestWindow window;
    window.setEnabled(Control::Picture1_0, false);
    window.HScroll1_Change();
    EXPECT_THAT(window.calls, ElementsAre("redraw 1 True"));
    EXPECT_THAT(window.fakeUi.focused, IsEmpty());
}

TEST(WindowScrollBar, aValueThatStaysRunsNothing)
{
    TestWindow window;
    window.view.HScroll1.Max = 50;
    window.view.HScroll1.Value = 50;
    window.setScrollValue(99); // clips to where it stands
    EXPECT_FALSE(window.moveScrollValue(99));
    EXPECT_THAT(window.calls, IsEmpty());
    EXPECT_THAT(window.fakeUi.focused, IsEmpty());
    EXPECT_EQ(window.fakeUi.scrollBarChanges, 0);
}

TEST(WindowScrollBar, isMovedWithoutADrawingForACommandThatDraws)
{
    TestWindow window;
    window.view.HScroll1.Max = 50;
    EXPECT_TRUE(window.moveScrollValue(20));
    EXPECT_EQ(window.view.HScroll1.Value, 20);
    EXPECT_THAT(window.calls, IsEmpty());
    EXPECT_THAT(window.fakeUi.focused, ElementsAre(Control::Picture1_0));
    window.setEnabled(Control::Picture1_0, false);
    EXPECT_TRUE(window.moveScrollValue(21));
    EXPECT_EQ(window.fakeUi.focused.size(), 1U);
}

TEST(WindowScrollBar, underTheThumbClipsAndDrawsBothAreasWithoutMovingTheThumb)
{
    TestWindow window;
    window.view.HScroll1.Max = 50;
    window.dragScrollValue(99);
    EXPECT_EQ(window.view.HScroll1.Value, 50);
    window.dragScrollValue(99);
    EXPECT_THAT(window.calls, ElementsAre("redraw 0 True", "redraw 1 True", "redraw 0 True", "redraw 1 True"));
    EXPECT_EQ(window.fakeUi.scrollBarChanges, 0);
}

TEST(WindowScrollBar, startsAnewWithAnEmptyRangeAndSaysSo)
{
    TestWindow window;
    window.view.HScroll1 = {.Min = 0, .Max = 50, .Value = 20, .SmallChange = 2, .LargeChange = 9};
    window.resetScrollBar();
    EXPECT_EQ(window.view.HScroll1.Max, 0);
    EXPECT_EQ(window.view.HScroll1.Value, 0);
    EXPECT_EQ(window.fakeUi.scrollBarChanges, 1);
    EXPECT_THAT(window.calls, IsEmpty());
}

TEST(WindowScrollBar, aShrinkingRangeTakesTheValueAlong)
{
    TestWindow window;
    window.view.HScroll1.Max = 50;
    window.view.HScroll1.Value = 40;
    window.setScrollRange(10, 2, 20);
    EXPECT_EQ(window.view.HScroll1.Value, 10);
    EXPECT_EQ(window.view.HScroll1.Max, 10);
    EXPECT_EQ(window.view.HScroll1.SmallChange, 2);
    EXPECT_EQ(window.view.HScroll1.LargeChange, 20);
    EXPECT_THAT(window.calls, IsEmpty());
}

TEST(WindowScrollBar, aRangeThatHoldsTheValueLeavesItThere)
{
    TestWindow window;
    window.view.HScroll1.Max = 50;
    window.view.HScroll1.Value = 10;
    window.setScrollRange(60, 1, 5);
    EXPECT_EQ(window.view.HScroll1.Value, 10);
    EXPECT_GT(window.fakeUi.scrollBarChanges, 0); // the new range is shown all the same
}

TEST(WindowChanges, aChangeIsUnsavedAndCanBeSaved)
{
    TestWindow window;
    window.setReadings({{1, 2}});
    window.setEnabled(Control::mnuFileSave, false);
    window.markChanged();
    EXPECT_FALSE(window.record.saveCheck);
    EXPECT_TRUE(window.isEnabled(Control::mnuFileSave));
}

TEST(WindowChanges, anEmptyWindowHasNothingToSave)
{
    TestWindow window;
    window.setEnabled(Control::mnuFileSave, false);
    window.markChanged();
    EXPECT_FALSE(window.isEnabled(Control::mnuFileSave));
}

TEST(WindowModes, statusAndPointerShowTheModeInForce)
{
    EXPECT_EQ(modeShown(false, false), std::pair(std::string("Mode: traditional, edit data"), Pointer::cross));
    EXPECT_EQ(modeShown(true, false), std::pair(std::string("Mode: one-click baseline"), Pointer::northSouth));
    EXPECT_EQ(modeShown(true, true), std::pair(std::string("Mode: sloppy one-click"), Pointer::northSouth));
}

TEST(WindowChanges, showingAllDrawsTheMainAreaFirstAndThenTheCues)
{
    TestWindow window;
    window.showAll();
    EXPECT_THAT(window.calls, ElementsAre("redraw 0 True", "redraw 1 True", "updateCues"));
}

TEST(NewWindow, hasTheGivenDefaultsAndNoFile)
{
    const TestWindow window;
    EXPECT_TRUE(window.record.saveCheck);
    EXPECT_EQ(window.view.dateCol, 1);
    EXPECT_EQ(window.view.timeCol, 2);
    EXPECT_EQ(window.view.curCol(), -1);
    EXPECT_EQ(window.view.curLayer, kUnconverted);
    EXPECT_TRUE(window.file.filePath.empty() && window.file.savePath.empty());
    EXPECT_FALSE(window.file.fileDelimiter);
}

TEST(Record, needsRowsAndColumns)
{
    Record record;
    EXPECT_TRUE(record.isEmpty());
    record.allocate(1, 1);
    EXPECT_FALSE(record.isEmpty());
}

TEST(Record, aColumnWithoutAMarkIsASensor)
{
    Record record;
    record.allocate(3, 1);
    EXPECT_FALSE(record.isParameter(0));
    EXPECT_EQ(record.sensorColumns(), (std::vector<std::int32_t>{0, 1, 2}));
    record.parameters = {true, false};
    EXPECT_TRUE(record.isParameter(0));
    EXPECT_FALSE(record.isParameter(1));
    EXPECT_FALSE(record.isParameter(2));
    EXPECT_FALSE(record.isParameter(-1));
    EXPECT_EQ(record.sensorColumns(), (std::vector<std::int32_t>{1, 2}));
}

} // namespace
} // namespace tarvelint::test
