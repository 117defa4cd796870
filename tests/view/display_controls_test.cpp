// SPDX-License-Identifier: MIT
#include "view/display_controls.h"

#include "view/panel_fixture.h"
#include "view/plot_redraw.h"

namespace tarvelint::test {

namespace {

/// The same with a plot that draws, in areas of 100 x 110 units.
struct DrawnPanel : Panel {
    PlotRedraw rendering{*this};
    void redraw(int index, bool clear) override { rendering.redraw(index, clear); }
};

// ---- view, range and reference

TEST(ViewButton, togglesTheMainAreaBetweenReadingsAndConvertedValues)
{
    Panel panel;
    panel.display.viewButton_Click();
    EXPECT_EQ(panel.view.curLayer, kConverted);
    EXPECT_EQ(panel.text(Control::statusPanel2), "Display: viewing output data");
    EXPECT_THAT(panel.calls, ElementsAre("redraw 0 True"));
    EXPECT_THAT(panel.fakeUi.focused, ElementsAre(Control::Picture1_0));
    panel.display.viewButton_Click();
    EXPECT_EQ(panel.view.curLayer, kUnconverted);
    EXPECT_EQ(panel.text(Control::statusPanel2), "Display: viewing input data");
}

TEST(ViewButton, aDisabledPlotGetsNoFocus)
{
    Panel panel;
    panel.setEnabled(Control::Picture1_0, false);
    panel.display.viewButton_Click();
    EXPECT_THAT(panel.calls, ElementsAre("redraw 0 True"));
    EXPECT_THAT(panel.fakeUi.focused, IsEmpty());
}

TEST(ViewButton, fromTheBaselineLayerGoesBackToTheReadings)
{
    Panel panel;
    panel.view.curLayer = kBaseline;
    panel.display.viewButton_Click();
    EXPECT_EQ(panel.view.curLayer, kUnconverted);
}

TEST(RangeControls, checkingAutoRedrawsAndUncheckingDoesNot)
{
    Panel panel;
    panel.display.scaleBox_Click(1, true);
    EXPECT_TRUE(panel.isChecked(Control::scaleBox1));
    EXPECT_FALSE(panel.isChecked(Control::scaleBox0));
    EXPECT_THAT(panel.calls, ElementsAre("redraw 1 True"));
    panel.display.scaleBox_Click(1, false);
    EXPECT_FALSE(panel.isChecked(Control::scaleBox1));
    EXPECT_EQ(panel.calls.size(), 1U);
}

TEST(RangeControls, checkingAutoAgainOverwritesBothBoxesWithTheVisibleExtremes)
{
    DrawnPanel panel;
    panel.choose(0, 3);
    panel.setText(Control::minLabel0, "-5");
    panel.setText(Control::maxLabel0, "50");
    panel.display.scaleBox_Click(0, true);
    EXPECT_EQ(panel.text(Control::minLabel0), "7.0000");
    EXPECT_EQ(panel.text(Control::maxLabel0), "9.0000");
    panel.display.scaleBox_Click(0, false);
    EXPECT_EQ(panel.text(Control::minLabel0), "7.0000");
}

TEST(RangeControls, enterAndTheKeysThatDeleteCountAsTypingAndNoOtherKeyDoes)
{
    for (const BoxKey key : {BoxKey::enter, BoxKey::backspace, BoxKey::deleteKey}) EXPECT_TRUE(countsAsTyping(key));
    for (const BoxKey key : {BoxKey::escape, BoxKey::other}) EXPECT_FALSE(countsAsTyping(key));
}

TEST(RangeControls, anyKeyInARangeBoxTurnsAutoOffForItsAreaOnly)
{
    Panel panel;
    for (const auto check : {Control::scaleBox0, Control::scaleBox1}) panel.setChecked(check, true);
    panel.display.maxLabel_KeyPress(0);
    EXPECT_FALSE(panel.isChecked(Control::scaleBox0));
    EXPECT_TRUE(panel.isChecked(Control::scaleBox1));
    panel.display.minLabel_KeyPress(1);
    EXPECT_FALSE(panel.isChecked(Control::scaleBox1));
    EXPECT_THAT(panel.calls, IsEmpty());
}

TEST(RangeControls, aBoxRedrawsItsAreaOnceItsTextIsANumber)
{
    Panel panel;
    panel.setText(Control::minLabel1, "-3.5");
    panel.display.minLabel_KeyUp(1);
    panel.setText(Control::maxLabel0, " 12 ");
    panel.display.maxLabel_KeyUp(0);
    EXPECT_THAT(panel.calls, ElementsAre("redraw 1 True", "redraw 0 True"));
}

TEST(RangeControls, aBoxWhoseTextIsNoNumberKeepsTheLastRange)
{
    for (const auto* typed : {"", "1e", "-", "1,234", "x"}) {
        Panel panel;
        panel.setText(Control::minLabel0, typed);
        panel.setText(Control::maxLabel0, typed);
        panel.display.minLabel_KeyUp(0);
        panel.display.maxLabel_KeyUp(0);
        EXPECT_THAT(panel.calls, IsEmpty()) << typed;
    }
}

TEST(RangeControls, anExponentBeingTypedTakesEffectWhenItIsComplete)
{
    DrawnPanel panel;
    panel.choose(0, 3);
    panel.setChecked(Control::scaleBox0, true);
    panel.setText(Control::minLabel0, "0");
    panel.view.yScale = 7;
    panel.display.maxLabel_KeyPress(0);
    panel.setText(Control::maxLabel0, "1e");
    panel.display.maxLabel_KeyUp(0);
    EXPECT_FALSE(panel.isChecked(Control::scaleBox0));
    EXPECT_EQ(panel.view.yScale, 7);
    panel.setText(Control::maxLabel0, "1e2");
    panel.display.maxLabel_KeyUp(0);
    EXPECT_DOUBLE_EQ(panel.view.yScale, 1); // 110 / (100 x 1.1)
}

TEST(ReferenceControls, theBoxTakesInputWhileTheLineIsWanted)
{
    Panel panel;
    panel.display.refCheck_Click(false);
    EXPECT_FALSE(panel.isEnabled(Control::refBox));
    panel.display.refCheck_Click(true);
    EXPECT_TRUE(panel.isChecked(Control::refCheck));
    EXPECT_TRUE(panel.isEnabled(Control::refBox));
    EXPECT_THAT(panel.calls, ElementsAre("redraw 1 True", "redraw 1 True"));
}

TEST(ReferenceControls, aChangedValueRedrawsTheCompanion)
{
    Panel panel;
    panel.display.refBox_Change();
    EXPECT_THAT(panel.calls, ElementsAre("redraw 1 True"));
}

} // namespace

} // namespace tarvelint::test
