// SPDX-License-Identifier: MIT
#pragma once

namespace tarvelint {

/// The plain half of the save-contents dialog (`FileTypeFrm`): what its boxes hold between saves of one
/// window, and how it was left. All boxes start checked, so that what is saved can be reopened.
struct SaveContents {
    bool inCheck = true;
    bool baseCheck = true;
    bool outCheck = true;
    bool headerCheck = true;
    bool blankCheck = true;
    bool confirmed = false; ///< left by its OK button, and by nothing else

    void open() { confirmed = false; }
    void OKButton_Click() { confirmed = true; }
    void CancelButton_Click() { confirmed = false; }
};

} // namespace tarvelint
