// SPDX-License-Identifier: MIT
#include "forms/column_setup.h"

#include "forms/setup_window.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarvelint::test {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

// What cannot be used

/// OK with one box changed: the fault, after a check that it left everything as it was.
std::string faultOf(const std::function<void(ColumnSetup&)>& type)
{
    SetupWindow window;
    window.view.lineMode = true;
    window.dialog().setCheckBox(1, true);
    type(window.dialog());
    const std::string fault = window.okWithPreProcess();
    EXPECT_THAT(window.calls, IsEmpty());
    EXPECT_TRUE(window.fakeUi.columnSetupShown);
    EXPECT_TRUE(window.record.saveCheck);
    EXPECT_FALSE(window.view.Turbo);
    EXPECT_TRUE(window.view.lineMode);
    EXPECT_TRUE(window.isEnabled(Control::mnuToolsMode));
    EXPECT_EQ(window.conversionSettings.zeroFlow.vpdCol, -1);
    EXPECT_EQ(window.conversionSettings.zeroFlow.parCol, -1);
    EXPECT_EQ(window.conversionSettings.zeroFlow.lullTime, 4);
    EXPECT_FALSE(window.record.isParameter(0));
    EXPECT_TRUE(window.dialog().checkBox(1)); // what was typed and ticked can be mended
    return fault;
}

TEST(ColumnSetupFaults, aColumnTheFileDoesNotHaveIsNamedWithTheNumberOfColumns)
{
    for (const std::string typed : {"13", "0", "-1", "", "VPD", "1E400", "40000", "-40000"}) {
        const std::string vpd = faultOf([&](ColumnSetup& dialog) { dialog.boxes.vpdBox = typed; });
        EXPECT_EQ(vpd, "The VPD column \"" + typed +
                           "\" does not exist: the file has 12 columns. Type a number from 1 to 12.");
        const std::string par = faultOf([&](ColumnSetup& dialog) { dialog.boxes.parBox = typed; });
        EXPECT_THAT(par, StartsWith("The PAR column \"" + typed + "\" does not exist"));
    }
}

TEST(ColumnSetupFaults, aLimitBeyond32BitFloatsDoesNotFit)
{
    EXPECT_EQ(faultOf([](ColumnSetup& dialog) { dialog.boxes.VPDlBox = "1E39"; }),
              "The VPD limit \"1E39\" does not fit. Type a number of ordinary size.");
    EXPECT_THAT(faultOf([](ColumnSetup& dialog) { dialog.boxes.PARlBox = "-1E400"; }),
                HasSubstr("PAR limit \"-1E400\""));
}

TEST(ColumnSetupFaults, aLullLengthBeyond32BitsDoesNotFitAndIsNamedAsItsBoxIs)
{
    EXPECT_EQ(faultOf([](ColumnSetup& dialog) { dialog.boxes.timeBox = "2147483648"; }),
              "The number of minimum time intervals \"2147483648\" does not fit. Type a number of ordinary size.");
}

TEST(ColumnSetupFaults, aRecordWithoutASensorColumnCannotBePreProcessed)
{
    const std::string fault = faultOf([](ColumnSetup& dialog) {
        for (int row = 1; row <= dialog.rows(); ++row) dialog.setCheckBox(row, true);
    });
    EXPECT_THAT(fault, StartsWith("Every column is marked \"Do not convert\""));
}

TEST(ColumnSetupFaults, nothingIsCheckedWithoutThePreProcess)
{
    SetupWindow window;
    window.boxes().vpdBox = "no such column";
    window.boxes().timeBox = "1E99";
    window.dialog().OKButton_Click();
    EXPECT_TRUE(window.view.Sloppy);
    EXPECT_FALSE(window.fakeUi.columnSetupShown);
}

TEST(ColumnSetupFaults, theVpdColumnIsAskedForBeforeThePar)
{
    EXPECT_THAT(faultOf([](ColumnSetup& dialog) { dialog.boxes.vpdBox = dialog.boxes.parBox = "99"; }),
                StartsWith("The VPD column"));
}

TEST(ColumnSetupFaults, aRecordOfOneColumnIsNamedInTheSingular)
{
    SetupWindow window(1);
    EXPECT_EQ(window.okWithPreProcess(),
              "The VPD column \"11\" does not exist: the file has 1 column. Type a number from 1 to 1.");
}

TEST(ColumnSetupOk, asksBeforeItReplacesPointsChangedByHand)
{
    SetupWindow window;
    window.addLulls();
    window.dialog().setCheckBox(3, true);
    window.dialog().setCheckBox(11, true);
    EXPECT_EQ(window.okWithPreProcess(), "");
    EXPECT_EQ(window.okWithPreProcess(), ""); // no question: nothing was changed since
    window.sensors.setPoint(0, 20, true);
    window.sensors.markEdited();
    window.fakeUi.showColumnSetup(true);

    window.fakeUi.answers = {Answer::cancel};
    window.calls.clear();
    EXPECT_EQ(window.okWithPreProcess(), "");
    EXPECT_TRUE(window.sensors.isPoint(0, 20));
    EXPECT_TRUE(window.fakeUi.columnSetupShown); // open, with nothing applied
    EXPECT_TRUE(window.calls.empty());

    window.fakeUi.answers = {Answer::ok};
    EXPECT_EQ(window.okWithPreProcess(), "");
    EXPECT_FALSE(window.sensors.isPoint(0, 20));
    EXPECT_FALSE(window.fakeUi.columnSetupShown);
    EXPECT_EQ(window.fakeUi.messages.size(), 2U);
}

} // namespace
} // namespace tarvelint::test
