// SPDX-License-Identifier: MIT
#include "forms/window_forms.h"

#include "support/test_window.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarvelint::test {
namespace {

using testing::ElementsAre;

/// A window of two labelled columns with its dialogs.
struct FormsWindow : TestWindow {
    WindowForms forms{*this};

    FormsWindow()
    {
        setReadings({{1, 2}, {3, 4}});
        record.labels = {"day", "oak"};
    }
};

TEST(LabelButton, createsTheDialogAtItsFirstUseAndKeepsTheFocusOnThePlot)
{
    FormsWindow window;
    EXPECT_FALSE(window.forms.haveLabelForm());
    window.forms.labelButton_Click();
    ASSERT_TRUE(window.forms.haveLabelForm());
    EXPECT_EQ(window.forms.labelFrm->rows(), 2);
    EXPECT_EQ(window.forms.labelFrm->labelBox(2), "oak");
    EXPECT_EQ(window.forms.labelFrm->boxes.vpdBox, "11") << "from the settings";
    EXPECT_TRUE(window.fakeUi.columnSetupShown);
    EXPECT_FALSE(window.fakeUi.columnSetupBlocks);
    EXPECT_THAT(window.fakeUi.focused, ElementsAre(Control::Picture1_0));
}

TEST(LabelButton, showsTheSameDialogAgainWithFreshLabelsAndMarks)
{
    FormsWindow window;
    window.forms.labelButton_Click();
    window.forms.labelFrm->setCheckBox(1, true);
    window.forms.labelFrm->OKButton_Click();
    const ColumnSetup* dialog = window.forms.labelFrm.get();
    window.record.labels[1] = "beech";
    window.forms.mnuViewLabels_Click();
    EXPECT_EQ(window.forms.labelFrm.get(), dialog);
    EXPECT_EQ(window.forms.labelFrm->labelBox(2), "beech");
    EXPECT_TRUE(window.forms.labelFrm->checkBox(1)) << "marks stand as the last OK left them";
    EXPECT_TRUE(window.fakeUi.columnSetupShown);
}

TEST(LabelButton, itsMenuEntryDoesTheSame)
{
    FormsWindow window;
    window.forms.mnuViewLabels_Click();
    EXPECT_TRUE(window.forms.haveLabelForm());
    EXPECT_TRUE(window.fakeUi.columnSetupShown);
    EXPECT_THAT(window.fakeUi.focused, ElementsAre(Control::Picture1_0));
}

TEST(NewColumnSetup, blocksItsWindowAndForgetsTheOneBefore)
{
    FormsWindow window;
    window.forms.labelButton_Click();
    window.forms.labelFrm->boxes.vpdBox = "4";
    window.forms.showNewColumnSetup();
    EXPECT_TRUE(window.fakeUi.columnSetupBlocks);
    EXPECT_EQ(window.forms.labelFrm->boxes.vpdBox, "11");
}

TEST(AskContents, isTrueOnlyAfterOkAndKeepsTheBoxesBetweenSaves)
{
    FormsWindow window;
    window.fakeUi.onSaveContents = [&] {
        window.file.choices.header = false;
        window.forms.typeFrm->OKButton_Click();
    };
    EXPECT_TRUE(window.forms.askContents());
    window.fakeUi.onSaveContents = [] {}; // closed by its frame
    EXPECT_FALSE(window.forms.askContents());
    EXPECT_FALSE(window.file.choices.header);
    window.fakeUi.onSaveContents = [&] { window.forms.unloadSaveContents(); }; // its window is closed meanwhile
    EXPECT_FALSE(window.forms.askContents());
}

TEST(Unloading, tellsTheToolkitWhileThePlainHalfIsThereAndOnlyWhatIsLoaded)
{
    FormsWindow window;
    window.forms.unloadColumnSetup();
    window.forms.unloadSaveContents();
    EXPECT_TRUE(window.fakeUi.log.empty());
    window.forms.labelButton_Click();
    window.fakeUi.onSaveContents = [] {};
    static_cast<void>(window.forms.askContents());
    window.fakeUi.log.clear();
    window.forms.unloadColumnSetup();
    window.forms.unloadSaveContents();
    EXPECT_THAT(window.fakeUi.log, ElementsAre("unload column setup", "unload save contents"));
    EXPECT_FALSE(window.forms.haveLabelForm() || window.forms.haveTypeForm());
}

TEST(SaveContents, startsWithEveryBoxCheckedSoThatWhatIsSavedCanBeReopened)
{
    const FormsWindow window;
    const SaveChoices& choices = window.file.choices;
    EXPECT_TRUE(choices.unconverted && choices.baseline && choices.converted);
    EXPECT_TRUE(choices.header && choices.dots);
}

TEST(SaveContents, isCancelledUnlessLeftByOk)
{
    SaveChoices choices;
    SaveContents contents{choices};
    contents.OKButton_Click();
    EXPECT_TRUE(contents.confirmed);
    contents.open(); // closing it by other means cancels
    EXPECT_FALSE(contents.confirmed);
    contents.OKButton_Click();
    contents.CancelButton_Click();
    EXPECT_FALSE(contents.confirmed);
}

} // namespace
} // namespace tarvelint::test
