// SPDX-License-Identifier: MIT
#pragma once

#include "forms/apply_column_setup.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tarvelint {

class Window;

/// The plain half of the column setup dialog (`labelForm`): what its boxes hold, and what OK does. Rows are
/// numbered from 1, as the columns are for the user. Lives from its first showing until its window
/// or the record goes; OK and Cancel only hide it. Marks and labels are shown as the record has them.
class ColumnSetup {
public:
    /// At most so many rows are shown at a time; they lie `kRowPitch` units apart.
    static constexpr int kVisibleRows = 15;
    static constexpr int kRowPitch = 23;

    /// @param parentForm  the window whose columns it sets up; it owns the dialog
    explicit ColumnSetup(Window& parentForm) : m_parentForm(parentForm) {}

    /// Fills the rows from the window's labels, clears `saveBox`, and the parameter boxes from the settings.
    void Form_Load();
    /// Each later showing: rows take their label texts again; its boxes stand as the last OK left them. While it is
    /// shown it keeps what the user has typed.
    void Form_Show();

    /// One row to a column of the record.
    [[nodiscard]] int rows() const { return static_cast<int>(m_labels.size()); }
    [[nodiscard]] bool scrollBarVisible() const { return rows() > kVisibleRows; }
    /// Largest scroll value: the number of rows that may lie above the first one shown.
    [[nodiscard]] int scrollBarMax() const { return scrollBarVisible() ? rows() - kVisibleRows : 0; }
    /// Top of row i when the bar stands at `scrollValue`: row 1 at 2 - 23 x value, each further row 23 below.
    [[nodiscard]] static int rowTop(int row1, int scrollValue)
    {
        return 2 - kRowPitch * scrollValue + kRowPitch * (row1 - 1);
    }
    /// The scroll value nearest to the present one that shows row i whole.
    [[nodiscard]] int scrollValueShowing(int row1, int scrollValue) const;

    /// The boxes below the rows, as the user left them.
    struct Boxes {
        std::vector<bool> checkBox; ///< "Do not convert", by 0-based column
        bool saveBox = false;       ///< write labels into saved files
        bool turboCheck = false;    ///< pre-process wanted
        std::string vpdBox;         ///< 1-based column
        std::string parBox;         ///< 1-based column
        std::string VPDlBox;        ///< highest VPD of a lull, in the record's unit
        std::string PARlBox;        ///< highest PAR of a lull, in the record's unit
        std::string timeBox;        ///< rows
    };

    /// `labelBox(i)` and `checkBox(i)`, i from 1.
    [[nodiscard]] const std::string& labelBox(int row1) const
    {
        return m_labels.at(static_cast<std::size_t>(row1 - 1));
    }
    void setLabelBox(int row1, std::string text) { m_labels.at(static_cast<std::size_t>(row1 - 1)) = std::move(text); }
    [[nodiscard]] bool checkBox(int row1) const { return boxes.checkBox.at(static_cast<std::size_t>(row1 - 1)); }
    void setCheckBox(int row1, bool checked) { boxes.checkBox.at(static_cast<std::size_t>(row1 - 1)) = checked; }
    Boxes boxes;

    /// `paramFrame` takes input only while the pre-process is wanted.
    [[nodiscard]] bool paramFrameOn() const { return boxes.turboCheck; }
    /// The dialog's fixed explanation; paragraphs are parted by CR LF pairs.
    [[nodiscard]] static const std::string& tipLabel();

    /// Applies the dialog to its window, step by step, and hides it.
    /// @throws CommandFailure when a number cannot be used; nothing is applied then and the dialog stays
    void OKButton_Click();
    /// Hides the dialog with nothing applied; its boxes go back to what the last OK left. The frame's close button does
    /// the same.
    void CancelButton_Click();

private:
    [[nodiscard]] ZeroFlowSettings readParameters() const;
    [[nodiscard]] bool mayReplacePoints() const;
    void takeRecord();
    void hide();

    Window& m_parentForm;
    std::vector<std::string> m_labels;
    Boxes m_applied; ///< as the last OK left them; marks and labels are the record's
    bool m_isShown = false;
};

} // namespace tarvelint
