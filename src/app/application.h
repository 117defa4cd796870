// SPDX-License-Identifier: MIT
#pragma once

#include "data/file_format.h"

#include <string>
#include <vector>

namespace tarvelint {

class Window;

/// What one window asks of the application around it.
class Application {
public:
    virtual ~Application() = default;
    /// Captions of all open forms but `self`, dialogs included, first opened first.
    [[nodiscard]] virtual std::vector<std::string> otherCaptions(const Window& self) const = 0;
    /// Type of the file last opened or saved in this run, in whichever window; at first the first.
    FileType lastFileType = FileType::space;
    /// Shows the one options dialog for `parent`, without waiting; with `selectEquation` its whole equation is
    /// selected.
    virtual void showOptions(Window& parent, bool selectEquation) = 0;
    virtual void unloadOptions() = 0;
    /// Creates a further, empty main window and shows it.
    virtual void newWindow() = 0;
    /// Closes the forms captioned otherwise than `self`, last opened first, then `self`; each runs its own close
    /// handling.
    virtual void exitFrom(Window& self) = 0;
};

} // namespace tarvelint
