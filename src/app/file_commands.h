// SPDX-License-Identifier: MIT
#pragma once

#include "window/window.h"

#include <string>

namespace tarvelint {

/// The name a file is saved under: with a "." in the file name (not in its folders) the last four characters are cut,
/// whatever the extension's length, and the type's extension is appended; without one it is only appended. A name that
/// the cut would empty is cut at its last "." instead; one that begins with its only "." is not cut.
[[nodiscard]] std::string savedName(const std::string& path, FileType type);

/// File > Open, Save and Save As, and the question before data would be lost.
class FileCommands {
public:
    explicit FileCommands(Window& window) : m_window(window) {}

    /// Asks about unsaved data, then for a file, and opens it. @throws FormatFault when it cannot be used
    void mnuFileOpen_Click();
    /// Saves under the name last saved under; asks for one when there is none.
    void mnuFileSave_Click() { saveFile("Save:"); }
    /// Always asks for a name.
    void mnuFileSaveAs_Click() { saveFile("Save As:"); }

    /// Asks whether to save first. True when the caller may go on: the data are saved or dropped on purpose.
    [[nodiscard]] bool savedialog(const std::string& title);

    /// The work of File > Open once a file is chosen. Until the record is read whole the window keeps its own.
    /// @throws FormatFault when the file cannot be opened or is no record
    void openFile(const ChosenFile& file);
    /// The work of File > Save once layers and name are chosen: replaces `savePath` in one step.
    /// @throws FileFailure and leaves the old file as it was
    void writeFile();

    /// @param save_type  title of the dialogs: "Save As:" asks for a name even when one is known
    void saveFile(const std::string& save_type);

private:
    /// A record as read, before the window takes it.
    struct Loaded {
        DataSet data;
        bool hadHeader = false;
        bool hadLabelsLine = false;
        LayerSet layers;
        std::string warning;
    };
    [[nodiscard]] Loaded readRecord(const ChosenFile& file);
    void resetForNewRecord();
    void fillColumnLists();
    void showColumnSetup();
    void enableForWork();
    void showModeAfterLoad();
    [[nodiscard]] bool chooseContents();
    [[nodiscard]] bool chooseName(const std::string& save_type);
    [[nodiscard]] bool mayReplace(const std::string& name, const ChosenFile& confirmed, const std::string& title);
    [[nodiscard]] bool tryWriting();

    Window& m_window;
};

} // namespace tarvelint
