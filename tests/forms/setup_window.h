// SPDX-License-Identifier: MIT
#pragma once

#include "forms/column_setup.h"
#include "support/test_window.h"
#include "window/command_failure.h"

#include <memory>
#include <string>
#include <vector>

namespace tarvelint::test {

/// A window of `columns` columns of 40 readings, the first on view, with its set-up dialog on the screen; notes how
/// things stood when the column was shown.
class SetupWindow : public TestWindow {
public:
    explicit SetupWindow(int columns = 12)
    {
        setReadings(std::vector<std::vector<double>>(static_cast<std::size_t>(columns), std::vector<double>(40, 2)));
        for (int c = 1; c <= columns; ++c) record.labels.push_back("L" + std::to_string(c));
        choose(0);
        loadDialog();
    }
    void loadDialog()
    {
        m_dialog = std::make_unique<ColumnSetup>(*this);
        m_dialog->Form_Load();
        fakeUi.showColumnSetup(true);
    }
    [[nodiscard]] ColumnSetup& dialog() { return *m_dialog; }
    [[nodiscard]] ColumnSetup::Boxes& boxes() { return m_dialog->boxes; }
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
    /// VPD in column 11 and PAR in column 3 hold lulls of ten rows; every other column is highest in the middle of
    /// each.
    void addLulls()
    {
        for (std::int32_t r = 0; r < record.lines; ++r) {
            const bool calm = r < 10 || r >= 30;
            record.values(kUnconverted, 10, r) = record.values(kUnconverted, 2, r) = calm ? 0 : 9;
        }
    }

    void redraw(int index, bool clear) override
    {
        TestWindow::redraw(index, clear);
        calls.back() += fakeUi.columnSetupShown ? ", shown" : ", hidden, " + text(Control::statusPanel1);
        if (record.saveCheck) calls.back() += ", still unchanged";
        if (labelsAtFirstDrawing.empty()) {
            labelsAtFirstDrawing = record.labels;
            savedAtFirstDrawing = record.saveCheck;
        }
        if (fakeUi.columnSetupShown) sensorsAtFirstDrawing = sensors.count();
    }

    std::vector<std::string> labelsAtFirstDrawing;
    bool savedAtFirstDrawing = true;
    std::int32_t sensorsAtFirstDrawing = -1;

private:
    std::unique_ptr<ColumnSetup> m_dialog;
};

} // namespace tarvelint::test
