// SPDX-License-Identifier: MIT
#pragma once

#include "data/file_format.h"

#include <optional>
#include <string>
#include <vector>

namespace tarvelint {

/// A file dialog to show; the filters are what the user reads, in the order of `FileType`.
struct FileDialog {
    std::string title;
    struct Filter {
        std::string text;     ///< "Comma Delimited (*.csv), (*.dat)"
        std::string patterns; ///< "*.csv *.dat"
    };
    std::vector<Filter> filters;
    FileType selected = FileType::space;
};

/// What the user chose in a file dialog.
struct ChosenFile {
    std::string path; ///< the system's bytes
    FileType type = FileType::space;
};

/// The dialogs of one window as commands see them. What their boxes hold, and what OK does, are plain objects of the
/// window's; here they are shown and hidden. A test double fails at once when it is asked an unexpected question.
class Dialogs {
public:
    virtual ~Dialogs() = default;

    /// Both wait; nullopt after Cancel.
    [[nodiscard]] virtual std::optional<ChosenFile> openFileDialog(const FileDialog& dialog) = 0;
    [[nodiscard]] virtual std::optional<ChosenFile> saveFileDialog(const FileDialog& dialog) = 0;

    /// Shows the window's column setup dialog and returns at once; with `blocking` its window takes no input meanwhile.
    virtual void showColumnSetup(bool blocking) = 0;
    /// Nothing happens when it is not shown.
    virtual void hideColumnSetup() = 0;
    /// The dialog goes: its plain half is about to be destroyed.
    virtual void unloadColumnSetup() = 0;
    /// Shows the save-contents dialog and returns when it is hidden; its result stands in its plain half.
    virtual void showSaveContents() = 0;
    /// The dialog goes: its plain half is about to be destroyed.
    virtual void unloadSaveContents() = 0;

    /// Shows the value dialog, which all windows share, over this one with `old` in both places, and waits for its end;
    /// the window goes on answering. What was typed; none without OK.
    [[nodiscard]] virtual std::optional<std::string> askValue(const std::string& old) = 0;
    /// It is open, for this or another window.
    [[nodiscard]] virtual bool isValueDialogOpen() const = 0;
    virtual void raiseValueDialog() = 0;
};

} // namespace tarvelint
