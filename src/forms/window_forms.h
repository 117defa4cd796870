// SPDX-License-Identifier: MIT
#pragma once

#include "forms/column_setup.h"
#include "forms/save_contents.h"

#include <memory>

namespace tarvelint {

class Window;

/// The plain halves of one window's dialogs: made at the first showing, gone when unloaded.
class WindowForms {
public:
    explicit WindowForms(Window& window) : m_window(window) {}

    std::unique_ptr<ColumnSetup> labelFrm; ///< column setup; null until its first showing
    std::unique_ptr<SaveContents> typeFrm; ///< save contents
    [[nodiscard]] bool haveLabelForm() const { return labelFrm != nullptr; }
    [[nodiscard]] bool haveTypeForm() const { return typeFrm != nullptr; }

    /// "Labels...": shows the column setup dialog without waiting for it, and keeps the focus on the plot.
    void labelButton_Click();
    /// "Settings..." in the View menu: the same dialog.
    void mnuViewLabels_Click() { labelButton_Click(); }
    /// The column setup dialog of a record that has just been read: new, and its window waits for it.
    void showNewColumnSetup();
    /// Shows the save-contents dialog and waits. True after its OK, when the window's choices hold.
    [[nodiscard]] bool askContents();

    void unloadColumnSetup();
    void unloadSaveContents();

private:
    void loadColumnSetup();

    Window& m_window;
};

} // namespace tarvelint
