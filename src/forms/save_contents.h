// SPDX-License-Identifier: MIT
#pragma once

#include "data/file_format.h"

namespace tarvelint {

/// The plain half of the save-contents dialog (`FileTypeFrm`): its boxes show and set what a window's saves write, and
/// it knows how it was left.
struct SaveContents {
    SaveChoices& choices;   ///< the window's; they stay as the boxes were left, also after Cancel
    bool confirmed = false; ///< left by its OK button, and by nothing else

    void open() { confirmed = false; }
    void OKButton_Click() { confirmed = true; }
    void CancelButton_Click() { confirmed = false; }
};

} // namespace tarvelint
