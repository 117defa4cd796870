// SPDX-License-Identifier: MIT
#include "window/window.h"

#include "support/test_window.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarvelint::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Entries = std::vector<std::string>;

/// Status text and pointer after `showMode` with these modes.
std::pair<std::string, Pointer> modeShown(bool lineMode, bool sloppy)
{
    TestWindow window;
    window.lineMode = lineMode;
    window.Sloppy = sloppy;
    window.showMode();
    return {window.text(Control::statusPanel1), window.pointer};
}

TEST(WindowControls, aChangeIsKeptAndToldToTheToolkit)
{
    TestWindow window;
    window.setText(Control::refBox, "12");
    window.setEnabled(Control::convButton, false);
    window.setChecked(Control::highBox, true);
    window.setVisible(Control::HScroll1, false);
    EXPECT_EQ(window.text(Control::refBox), "12");
    EXPECT_FALSE(window.isEnabled(Control::convButton));
    EXPECT_TRUE(window.isChecked(Control::highBox));
    EXPECT_FALSE(window.control(Control::HScroll1).visible);
    EXPECT_THAT(window.fakeUi.changes,
                ElementsAre(Control::refBox, Control::convButton, Control::highBox, Control::HScroll1));
}

TEST(WindowControls, whatIsAlreadySoIsNotToldAgain)
{
    TestWindow window;
    window.setText(Control::refBox, "");
    window.setEnabled(Control::convButton, true);
    window.setChecked(Control::highBox, false);
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
    EXPECT_EQ(window.caption, "Tarvelint");
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
    EXPECT_TRUE(window.longRecord);
}

TEST(WindowStatus, leavingLongRecordModeTakesItsNoteAway)
{
    TestWindow window;
    window.setStatus(2, "Viewing output data");
    window.setLongRecord(true);
    window.setLongRecord(false);
    EXPECT_EQ(window.text(Control::statusPanel2), "Viewing output data");
    EXPECT_FALSE(window.longRecord);
}

TEST(WindowScrollBar, aValueIsClippedToTheRange)
{
    TestWindow window;
    window.HScroll1.Max = 50;
    window.setScrollValue(70);
    EXPECT_EQ(window.HScroll1.Value, 50);
    window.setScrollValue(-3);
    EXPECT_EQ(window.HScroll1.Value, 0);
    EXPECT_THAT(window.calls, ElementsAre("HScroll1_Change", "HScroll1_Change"));
}

TEST(WindowScrollBar, aValueThatStaysRunsNothing)
{
    TestWindow window;
    window.HScroll1.Max = 50;
    window.HScroll1.Value = 50;
    window.setScrollValue(99); // clips to where it stands
    EXPECT_THAT(window.calls, IsEmpty());
    EXPECT_EQ(window.fakeUi.scrollBarChanges, 0);
}

TEST(WindowScrollBar, aShrinkingRangeTakesTheValueAlong)
{
    TestWindow window;
    window.HScroll1.Max = 50;
    window.HScroll1.Value = 40;
    window.setScrollRange(10, 2, 20);
    EXPECT_EQ(window.HScroll1.Value, 10);
    EXPECT_EQ(window.HScroll1.Max, 10);
    EXPECT_EQ(window.HScroll1.SmallChange, 2);
    EXPECT_EQ(window.HScroll1.LargeChange, 20);
    EXPECT_THAT(window.calls, ElementsAre("HScroll1_Change"));
}

TEST(WindowScrollBar, aRangeThatHoldsTheValueLeavesItThere)
{
    TestWindow window;
    window.HScroll1.Max = 50;
    window.HScroll1.Value = 10;
    window.setScrollRange(60, 1, 5);
    EXPECT_EQ(window.HScroll1.Value, 10);
    EXPECT_THAT(window.calls, IsEmpty());
    EXPECT_GT(window.fakeUi.scrollBarChanges, 0); // the new range is shown all the same
}

TEST(WindowColumnLists, choosingAlwaysRunsVarListChangeAlsoForTheSameEntry)
{
    TestWindow window;
    window.setListEntries({"Day", "S1"});
    window.chooseColumn(1, 1);
    window.chooseColumn(1, 1);
    EXPECT_EQ(window.varList[1].chosen, 1);
    EXPECT_EQ(window.varList[0].chosen, -1);
    EXPECT_THAT(window.calls, ElementsAre("varList_Change 1", "varList_Change 1"));
}

TEST(WindowColumnLists, newEntriesFillBothListsWithNothingChosen)
{
    TestWindow window;
    window.varList[0].chosen = 3;
    window.setListEntries({"Day", "S1"});
    for (const ColumnList& list : window.varList) {
        EXPECT_EQ(list.entries, (Entries{"Day", "S1"}));
        EXPECT_EQ(list.chosen, -1);
    }
    EXPECT_THAT(window.calls, IsEmpty());
}

TEST(WindowColumnLists, newTextsReachBothListsAndTheChoiceStays)
{
    TestWindow window;
    window.setListEntries({"Day", "S1"});
    window.chooseColumn(0, 1);
    window.calls.clear();
    window.setListTexts({"1", "spruce"});
    EXPECT_EQ(window.varList[0].entries, (Entries{"1", "spruce"}));
    EXPECT_EQ(window.varList[1].entries, (Entries{"1", "spruce"}));
    EXPECT_EQ(window.varList[0].chosen, 1);
    EXPECT_THAT(window.calls, IsEmpty());
}

TEST(WindowColumnLists, textsForEntriesThatAreNotThereAreDropped)
{
    TestWindow window;
    window.setListEntries({"Day"});
    window.setListTexts({"a", "b"});
    EXPECT_EQ(window.varList[0].entries, Entries{"a"});
}

TEST(WindowChanges, aChangeIsUnsavedAndCanBeSaved)
{
    TestWindow window;
    window.setReadings({{1, 2}});
    window.setEnabled(Control::mnuFileSave, false);
    window.markChanged();
    EXPECT_FALSE(window.data.saveCheck);
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

TEST(WindowQuestions, aRecordNeedsRowsAndColumns)
{
    TestWindow window;
    EXPECT_FALSE(window.hasRecord());
    window.setReadings({{1}});
    EXPECT_TRUE(window.hasRecord());
}

TEST(WindowQuestions, withoutAColumnSetupEveryColumnIsASensor)
{
    TestWindow window;
    window.setReadings({{1}, {2}});
    EXPECT_FALSE(window.isParameterColumn(0));
}

TEST(WindowQuestions, withoutAColumnSetupLabelsGoOutAsTheyCame)
{
    TestWindow window;
    EXPECT_FALSE(window.savesLabels());
    window.readWithLabels = true;
    EXPECT_TRUE(window.savesLabels());
}

TEST(BasePoints, areMarkedBySensorAndRow)
{
    BasePoints points;
    points.allocate(2, 3);
    points.set(1, 2, true);
    EXPECT_TRUE(points(1, 2));
    EXPECT_FALSE(points(0, 2));
    EXPECT_FALSE(points(1, 1));
}

TEST(BasePoints, allocatingDropsEveryMark)
{
    BasePoints points;
    points.allocate(1, 2);
    points.set(0, 1, true);
    points.allocate(1, 3);
    EXPECT_EQ(points.lines(), 3);
    for (std::int32_t row = 0; row < 3; ++row) EXPECT_FALSE(points(0, row));
}

TEST(SaveContents, startsWithEveryBoxCheckedSoThatWhatIsSavedCanBeReopened)
{
    const SaveContents contents;
    EXPECT_TRUE(contents.inCheck && contents.baseCheck && contents.outCheck);
    EXPECT_TRUE(contents.headerCheck && contents.blankCheck);
}

TEST(SaveContents, isCancelledUnlessLeftByOk)
{
    SaveContents contents;
    contents.OKButton_Click();
    EXPECT_EQ(contents.result, "OK");
    contents.open(); // closing it by other means cancels
    EXPECT_EQ(contents.result, "Cancel");
    contents.OKButton_Click();
    contents.CancelButton_Click();
    EXPECT_EQ(contents.result, "Cancel");
}

} // namespace
} // namespace tarvelint::test
