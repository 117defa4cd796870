// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace tarvelint {

/// The plain half of the save-contents dialog (`FileTypeFrm`): what its boxes hold between saves of one
/// window, and how it was left. All boxes start checked, so that what is saved can be reopened.
struct SaveContents {
    bool inCheck = true;
    bool baseCheck = true;
    bool outCheck = true;
    bool headerCheck = true;
    bool blankCheck = true;
    std::string result = "Cancel"; ///< "OK" only when left by its OK button

    void open() { result = "Cancel"; }
    void OKButton_Click() { result = "OK"; }
    void CancelButton_Click() { result = "Cancel"; }
};

} // namespace tarvelint
