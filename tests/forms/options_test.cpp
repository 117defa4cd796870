// SPDX-License-Identifier: MIT
#include "forms/options.h"

#include "support/test_window.h"
#include "window/command_failure.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>

namespace tarvelint::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr const char* kDefault = "119*((B/X)-1)^1.23";

/// Two windows with one store; the options dialog is opened for the first.
class Desk {
public:
    TestWindow first;
    TestWindow second;
    Options options{first.settings};
    std::array<Window*, 2> windows{&first, &second};

    Desk()
    {
        options.parentForm = &first;
        first.settings.log.clear();
        for (TestWindow* window : {&first, &second}) window->setText(Control::FormulaBox, kDefault);
    }
    /// What a button says when it cannot be obeyed.
    std::string refused()
    {
        try {
            static_cast<void>(options.cmdApplyCur_Click());
        } catch (const CommandFailure& failure) {
            return failure.what();
        }
        return {};
    }
};

TEST(Options, showTheStoreWithTheirOwnDefaults)
{
    const Desk desk;
    const Options& o = desk.options;
    EXPECT_EQ(o.eqBox, kDefault);
    EXPECT_THAT((std::array{o.dateBox, o.timeBox, o.parBox, o.vpdBox, o.timiBox}),
                ElementsAre("1", "2", "3", "11", "4"));
    EXPECT_THAT((std::array{o.VPDlBox, o.PARlBox, o.blankBox}), ElementsAre("0.05", "0.05", "99999"));
    EXPECT_FALSE(o.zeroBox);
}

TEST(Options, showStoredValuesNotTheWindows)
{
    MemorySettings store;
    store.values = {{"Equation", "X"}, {"Date", "7"}, {"lullTime", "9"}, {"PARlimit", "0.2"}, {"Zero", "1"}};
    const Options options(store);
    EXPECT_EQ(options.eqBox, "X");
    EXPECT_EQ(options.dateBox, "7");
    EXPECT_EQ(options.timiBox, "9");
    EXPECT_EQ(options.PARlBox, "0.2");
    EXPECT_TRUE(options.zeroBox);
}

TEST(Options, readTheBoxForZerosAsNewWindowsDo)
{
    for (const char* const stored : {"1", "-1", "True"}) {
        MemorySettings store;
        store.values = {{"Zero", stored}};
        EXPECT_TRUE(Options(store).zeroBox) << stored;
    }
}

TEST(ChangeCurrent, appliesToTheParentOnlyAndSavesNothing)
{
    Desk desk;
    desk.options.eqBox = "2X + B";
    desk.options.dateBox = "4";
    desk.options.timeBox = "2.5"; // halves to even
    desk.options.vpdBox = "6";
    desk.options.parBox = "7abc";
    desk.options.timiBox = "nothing";
    desk.options.VPDlBox = "0.1";
    desk.options.PARlBox = "0.3";
    desk.options.zeroBox = true;
    EXPECT_TRUE(desk.options.cmdApplyCur_Click());
    EXPECT_EQ(desk.options.eqBox, "2*X+B");
    EXPECT_EQ(desk.first.text(Control::FormulaBox), "2*X+B");
    EXPECT_EQ(desk.first.view.dateCol, 4);
    EXPECT_EQ(desk.first.view.timeCol, 2);
    EXPECT_EQ(desk.first.conversionSettings.zeroFlow.vpdCol, 6); // as typed, unlike the column set-up
    EXPECT_EQ(desk.first.conversionSettings.zeroFlow.parCol, 7);
    EXPECT_EQ(desk.first.conversionSettings.zeroFlow.lullTime, 0);
    EXPECT_EQ(desk.first.conversionSettings.zeroFlow.vpdLimit, 0.1F);
    EXPECT_EQ(desk.first.conversionSettings.zeroFlow.parLimit, 0.3F);
    EXPECT_TRUE(desk.first.record.zeroOut);
    EXPECT_EQ(desk.second.text(Control::FormulaBox), kDefault);
    EXPECT_TRUE(desk.first.settings.log.empty());
}

TEST(ChangeCurrent, takesTheClearedBoxForZerosToo)
{
    Desk desk;
    desk.first.record.zeroOut = true;
    EXPECT_TRUE(desk.options.cmdApplyCur_Click());
    EXPECT_FALSE(desk.first.record.zeroOut);
}

TEST(ChangeCurrent, roundsColumnsHalfToEvenAndCountsLullsIn32Bits)
{
    Desk desk;
    desk.options.dateBox = "2.5";
    desk.options.vpdBox = "3.5";
    desk.options.parBox = "4.5";
    desk.options.timiBox = "40000.5";
    EXPECT_TRUE(desk.options.cmdApplyCur_Click());
    const ZeroFlowSettings& zeroFlow = desk.first.conversionSettings.zeroFlow;
    EXPECT_THAT((std::array{desk.first.view.dateCol, zeroFlow.vpdCol, zeroFlow.parCol}), ElementsAre(2, 4, 4));
    EXPECT_EQ(desk.first.conversionSettings.zeroFlow.lullTime, 40000);
}

TEST(ChangeCurrent, showsTheNewSettingsInTheWindow)
{
    Desk desk;
    EXPECT_TRUE(desk.options.cmdApplyCur_Click());
    EXPECT_THAT(desk.first.calls, ElementsAre("redraw 0 True", "redraw 1 True", "updateCues"));
    EXPECT_TRUE(desk.first.record.saveCheck) << "new settings change no data";
}

TEST(ChangeCurrent, showsTheWindowWhenItHasEverySetting)
{
    struct Shown : TestWindow {
        int times = 0;
        void updateCues() override
        {
            ++times;
            EXPECT_EQ(text(Control::FormulaBox), "X");
            EXPECT_EQ(view.dateCol, 4);
            EXPECT_TRUE(record.zeroOut);
        }
    };
    Shown window;
    Options options(window.settings);
    options.parentForm = &window;
    options.eqBox = "X";
    options.dateBox = "4";
    options.zeroBox = true;
    EXPECT_TRUE(options.cmdApplyCur_Click());
    EXPECT_EQ(window.times, 1);
}

TEST(ChangeCurrent, checksTheMissingValueNumberAndDoesNotApplyIt)
{
    Desk desk;
    desk.options.blankBox = "-9999";
    EXPECT_TRUE(desk.options.cmdApplyCur_Click());
    EXPECT_EQ(desk.first.record.blank, 99999);
}

TEST(ChangeAll, savesEverythingInOrderAsTyped)
{
    Desk desk;
    desk.options.eqBox = "X B";
    desk.options.dateBox = "4abc";
    desk.options.zeroBox = true;
    EXPECT_TRUE(desk.options.cmdApplyAll_Click(desk.windows));
    EXPECT_THAT(desk.first.settings.log,
                ElementsAre("write Equation=X*B", "write Date=4abc", "write Time=2", "write VPD=11", "write PAR=3",
                            "write lullTime=4", "write VPDlimit=0.05", "write PARlimit=0.05", "write Blank=99999",
                            "write Zero=1"));
}

TEST(ChangeAll, savesAClearedBoxAsZero)
{
    Desk desk;
    desk.options.zeroBox = false;
    EXPECT_TRUE(desk.options.cmdApplyAll_Click(desk.windows));
    EXPECT_EQ(desk.first.settings.values["Zero"], "0");
}

TEST(ChangeAll, leavesEverythingElseOfTheWindowsToTheStore)
{
    Desk desk;
    desk.options.parBox = "7";
    desk.options.PARlBox = "0.5";
    desk.options.timiBox = "9";
    desk.options.blankBox = "-1";
    desk.options.zeroBox = true;
    const ZeroFlowSettings before; // as every window begins
    EXPECT_TRUE(desk.options.cmdApplyAll_Click(desk.windows));
    for (TestWindow* window : {&desk.first, &desk.second}) {
        EXPECT_EQ(window->conversionSettings.zeroFlow.parCol, before.parCol);
        EXPECT_EQ(window->conversionSettings.zeroFlow.parLimit, before.parLimit);
        EXPECT_EQ(window->conversionSettings.zeroFlow.lullTime, before.lullTime);
        EXPECT_EQ(window->record.blank, 99999);
        EXPECT_FALSE(window->record.zeroOut);
    }
}

TEST(ChangeAll, visitsTheWindowsInTheirOrderWithTheParentsColumnsSetBefore)
{
    struct Visited : TestWindow {
        std::vector<std::pair<Visited*, std::int16_t>>* visits = nullptr;
        Visited* parent = nullptr;
        void updateCues() override
        {
            visits->emplace_back(this, parent->view.dateCol);
            EXPECT_EQ(text(Control::FormulaBox), "X") << "the equation comes before it is shown";
            EXPECT_EQ(parent->settings.values["Zero"], "0") << "the store comes before the windows";
        }
    };
    std::vector<std::pair<Visited*, std::int16_t>> visits;
    Visited older;
    Visited parent;
    for (Visited* window : {&older, &parent}) {
        window->visits = &visits;
        window->parent = &parent;
    }
    Options options(parent.settings);
    options.parentForm = &parent;
    options.eqBox = "X";
    options.dateBox = "4";
    const std::array<Window*, 2> windows{&older, &parent};
    EXPECT_TRUE(options.cmdApplyAll_Click(windows));
    EXPECT_THAT(visits, ElementsAre(std::pair(&older, std::int16_t{4}), std::pair(&parent, std::int16_t{4})));
}

TEST(ChangeAll, givesEveryWindowTheEquationAndOnlyTheParentItsDayAndTimeColumns)
{
    Desk desk;
    desk.options.eqBox = "X";
    desk.options.dateBox = "4";
    desk.options.timeBox = "5";
    desk.options.vpdBox = "6";
    desk.options.VPDlBox = "0.5";
    EXPECT_TRUE(desk.options.cmdApplyAll_Click(desk.windows));
    for (TestWindow* window : {&desk.first, &desk.second}) {
        EXPECT_EQ(window->text(Control::FormulaBox), "X");
        EXPECT_THAT(window->calls, ElementsAre("redraw 0 True", "redraw 1 True", "updateCues"));
        EXPECT_EQ(window->conversionSettings.zeroFlow.vpdCol, -1);
        EXPECT_EQ(window->conversionSettings.zeroFlow.vpdLimit, 0.05F);
    }
    EXPECT_EQ(desk.first.view.dateCol, 4);
    EXPECT_EQ(desk.first.view.timeCol, 5);
    EXPECT_EQ(desk.second.view.dateCol, 1);
    EXPECT_EQ(desk.second.view.timeCol, 2);
}

TEST(OptionsFault, aMissingValueThatIsNoNumberIsRefusedByBothButtons)
{
    Desk desk;
    desk.options.eqBox = "X";
    for (const char* typed : {"abc", "", "1e400", "nan", "12abc"}) {
        desk.options.blankBox = typed;
        EXPECT_FALSE(desk.options.cmdApplyCur_Click());
        EXPECT_FALSE(desk.options.cmdApplyAll_Click(desk.windows));
    }
    EXPECT_EQ(desk.first.fakeUi.messages.size(), 10U);
    const Message& message = desk.first.fakeUi.messages.front();
    EXPECT_EQ(message.text, "You must use a number for the blank value.");
    EXPECT_EQ(message.title, "Improper setting:");
    EXPECT_EQ(message.icon, Icon::critical);
    EXPECT_EQ(message.buttons, Buttons::ok);
    EXPECT_EQ(desk.first.text(Control::FormulaBox), kDefault);
    EXPECT_TRUE(desk.first.settings.log.empty());
}

TEST(OptionsFault, aNumberThatDoesNotFitIsNamedAndNothingIsApplied)
{
    const std::pair<std::string Options::*, const char*> boxes[] = {{&Options::dateBox, "Date column"},
                                                                    {&Options::timeBox, "Time column"},
                                                                    {&Options::vpdBox, "VPD column"},
                                                                    {&Options::parBox, "PAR column"},
                                                                    {&Options::timiBox, "Minimum time intervals"},
                                                                    {&Options::VPDlBox, "VPD limit"},
                                                                    {&Options::PARlBox, "PAR limit"},
                                                                    {&Options::blankBox, "Number for missing values"}};
    for (const auto& [box, label] : boxes) {
        Desk desk;
        desk.options.eqBox = "X";
        desk.options.*box = "1E39";
        EXPECT_THAT(desk.refused(), HasSubstr(label));
        EXPECT_EQ(desk.first.text(Control::FormulaBox), kDefault) << label;
        EXPECT_THROW(static_cast<void>(desk.options.cmdApplyAll_Click(desk.windows)), CommandFailure);
        EXPECT_TRUE(desk.first.settings.log.empty()) << label;
    }
}

TEST(OptionsFault, anEquationThatIsTooLongOnceRepairedIsRefused)
{
    Desk desk;
    desk.options.eqBox = std::string(32767, 'X'); // an "*" between every two
    EXPECT_THAT(desk.refused(), HasSubstr("65533 characters long"));
    EXPECT_EQ(desk.first.text(Control::FormulaBox), kDefault);
    EXPECT_THROW(static_cast<void>(desk.options.cmdApplyAll_Click(desk.windows)), CommandFailure);
    EXPECT_TRUE(desk.first.settings.log.empty());
    EXPECT_EQ(desk.options.eqBox, std::string(32767, 'X')); // stays to be mended
    desk.options.eqBox = std::string(32767, '1');
    EXPECT_TRUE(desk.options.cmdApplyCur_Click());
}

TEST(OptionsFault, aNumberThatDoesNotFitIsToldWithItsBoxAndItsRange)
{
    Desk desk;
    desk.options.timiBox = "3e9";
    EXPECT_EQ(desk.refused(), "Minimum time intervals, \"3e9\": The number 3000000000 is outside the range from "
                              "-2147483648 to 2147483647. Nothing was changed.");
    desk.options.timeBox = "40000";
    EXPECT_EQ(desk.refused(), "Time column, \"40000\": The number 40000 is outside the range from -32768 to 32767. "
                              "Nothing was changed.");
    desk.options.timeBox = "2";
    desk.options.timiBox = "4";
    desk.options.PARlBox = "1e39";
    EXPECT_EQ(desk.refused(),
              "PAR limit, \"1e39\": The number 1E+39 is too large for a 32-bit number. Nothing was changed.");
}

} // namespace
} // namespace tarvelint::test
