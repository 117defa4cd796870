// SPDX-License-Identifier: MIT
#pragma once

#include "dialogs/program_dialog.h"
#include "forms/save_contents.h"

#include <QList>

class QCheckBox;

namespace tarvelint {

/// `FileTypeFrm`: which layers a save writes, and how. Its boxes show and set a window's `SaveContents`.
class SaveContentsDialog : public ProgramDialog {
    Q_OBJECT

public:
    /// @param contents  outlives every `ask`
    /// @param answer    runs what its buttons do, in the middle of the command that saves
    SaveContentsDialog(SaveContents& contents, Entry answer, QWidget* parent = nullptr);

    /// Shows the dialog over its window and returns when it is hidden; the answer stands in `SaveContents::confirmed`,
    /// "Cancel" unless it was left by its OK button. The dialog may be gone on return when its window went.
    void ask();

    void accept() override;
    void reject() override;

private:
    [[nodiscard]] QCheckBox* addBox(const char* name, const char* caption, bool SaveChoices::*value);
    void showContents();

    SaveContents& m_contents;
    Entry m_answer;
    struct Box {
        QCheckBox* widget;
        bool SaveChoices::*value;
    };
    QList<Box> m_boxes;
};

} // namespace tarvelint
