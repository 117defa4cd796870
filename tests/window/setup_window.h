// SPDX-License-Identifier: MIT
#pragma once

#include "support/test_window.h"
#include "window/column_setup.h"

#include <memory>
#include <string>
#include <vector>

namespace tarvelint::test {

/// A window of `columns` columns with its set-up dialog on the screen; notes what each procedure found.
class SetupWindow : public TestWindow {
public:
    explicit SetupWindow(int columns = 12)
    {
        setReadings(std::vector<std::vector<double>>(static_cast<std::size_t>(columns), {1, 2}));
        for (int c = 1; c <= columns; ++c) data.labels.push_back("L" + std::to_string(c));
        loadDialog();
    }
    void loadDialog()
    {
        labelFrm = std::make_unique<ColumnSetup>(*this);
        labelFrm->Form_Load();
        fakeUi.showColumnSetup(true);
    }
    [[nodiscard]] ColumnSetup& dialog() { return *labelFrm; }
    [[nodiscard]] ColumnSetup::Boxes& boxes() { return labelFrm->boxes; }
    /// OK, with the pre-process wanted. The fault's text, empty when all went well.
    std::string okWithPreProcess()
    {
        boxes().turboCheck = true;
        try {
            dialog().OKButton_Click();
        } catch (const CommandFailure& failure) {
            return failure.what();
        }
        return {};
    }

    void updateLabels() override
    {
        TestWindow::updateLabels();
        saveCheckAtLabels = data.saveCheck;
    }
    void varList_Change(int index) override
    {
        TestWindow::varList_Change(index);
        calls.back() += shownOrHidden();
        if (!fakeUi.columnSetupShown) calls.back() += ", " + text(Control::statusPanel1);
        if (data.saveCheck) calls.back() += ", still unchanged";
    }
    void preProcess() override
    {
        TestWindow::preProcess();
        calls.back() += shownOrHidden();
        sensorsAtPreProcess = sensors;
        parametersArePlaced = data.vpdCol == 10 && data.parCol == 2;
        modeIsTurbo = Turbo && !lineMode && !Sloppy && !isEnabled(Control::mnuToolsMode);
    }
    void getBase() override
    {
        TestWindow::getBase();
        calls.back() += shownOrHidden();
        sensorsAtGetBase = sensors;
    }

    bool saveCheckAtLabels = false;
    std::int32_t sensorsAtPreProcess = -1;
    std::int32_t sensorsAtGetBase = -1;
    bool parametersArePlaced = false;
    bool modeIsTurbo = false;

private:
    [[nodiscard]] std::string shownOrHidden() const { return fakeUi.columnSetupShown ? ", shown" : ", hidden"; }
};

} // namespace tarvelint::test
