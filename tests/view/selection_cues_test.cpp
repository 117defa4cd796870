// SPDX-License-Identifier: MIT
#include "view/selection_cues.h"

#include "view/panel_fixture.h"

#include <utility>

namespace tarvelint::test {

namespace {

TEST(UpdateCues, reportsReadingDayAndTimeAtBothEndsOfTheSelection)
{
    Panel panel;
    panel.choose(2);
    panel.select(0, 2);
    panel.cues.updateCues();
    EXPECT_EQ(panel.leftCues(), (Texts{"1.5000", "123", "0.5"}));
    EXPECT_EQ(panel.rightCues(), (Texts{"1,234.5000", "125", "1E+15"}));
}

TEST(UpdateCues, groupsAsTheSystemDoesAndKeepsThePoint)
{
    Panel panel;
    panel.style.sign = " ";
    panel.choose(2);
    panel.select(1, 2);
    panel.cues.updateCues();
    EXPECT_EQ(panel.leftCues(), (Texts{"0.0000", "124", "12.25"}));
    EXPECT_EQ(panel.rightCues()[0], "1 234.5000");
}

TEST(UpdateCues, showsReadingsInTheConvertedViewToo)
{
    Panel panel;
    panel.choose(3);
    panel.view.curLayer = kConverted;
    panel.record.values(kConverted, 3, 1) = 55;
    panel.select(1, 1);
    panel.cues.updateCues();
    EXPECT_EQ(panel.leftCues()[0], "8.0000");
    EXPECT_EQ(panel.rightCues()[0], "8.0000");
}

TEST(UpdateCues, takesDayAndTimeFromTheReadingsInTheConvertedViewToo)
{
    Panel panel; // parameter columns hold 0 in the converted layer
    panel.choose(2);
    panel.view.curLayer = kConverted;
    panel.select(0, 1);
    panel.cues.updateCues();
    EXPECT_EQ(panel.leftCues(), (Texts{"1.5000", "123", "0.5"}));
    EXPECT_EQ(panel.rightCues(), (Texts{"0.0000", "124", "12.25"}));
}

TEST(UpdateCues, aSelectionThatIsNotInsideTheRecordKeepsTheOldTexts)
{
    for (const auto& [first, last] : {std::pair{0, 3}, {-1, 1}, {2, 1}}) {
        Panel panel;
        panel.choose(2);
        for (const auto label : {Control::slLabel, Control::ldLabel, Control::ltLabel}) panel.setText(label, "old");
        panel.select(first, last);
        panel.cues.updateCues();
        EXPECT_EQ(panel.leftCues(), (Texts{"old", "old", "old"})) << first << " to " << last;
    }
}

TEST(UpdateCues, aColumnThatDoesNotExistGivesAnEmptyText)
{
    Panel panel;
    panel.setText(Control::slLabel, "old");
    panel.setText(Control::rdLabel, "old");
    panel.setText(Control::rtLabel, "old");
    panel.choose(-1);
    panel.view.dateCol = 0;
    panel.view.timeCol = 5;
    panel.cues.updateCues();
    EXPECT_EQ(panel.leftCues(), (Texts{"", "", ""}));
    EXPECT_EQ(panel.rightCues(), (Texts{"", "", ""}));
}

} // namespace

} // namespace tarvelint::test
