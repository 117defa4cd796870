// SPDX-License-Identifier: MIT
#pragma once

#include "window/window.h"

#include "window/dialogs.h"
#include "window/record_files.h"

#include <string>

namespace tarvelint {

class Application;
class Undo;
class WindowForms;

/// The name a file is saved under: with a "." in the file name (not in its folders) the last four characters are cut,
/// whatever the extension's length, and the type's extension is appended; without one it is only appended. A name that
/// the cut would empty is cut at its last "." instead; one that begins with its only "." is not cut.
[[nodiscard]] std::string savedName(const std::string& path, FileType type);

/// File > Open, Save and Save As, and the question before data would be lost.
class FileCommands {
public:
    FileCommands(Window& window, WindowForms& forms, Undo& undo, Application& application)
        : m_window(window), m_view(window.view), m_record(window.record), m_sensors(window.sensors), m_ui(window.ui),
          m_env(window.env), m_forms(forms), m_undo(undo), m_application(application)
    {
    }

    /// Asks about unsaved data, then for a file, and opens it. @throws FormatFault when it cannot be used
    void mnuFileOpen_Click();
    /// Saves under the name last saved under; asks for one when there is none.
    void mnuFileSave_Click() { saveFile(SaveKind::save); }
    /// Always asks for a name.
    void mnuFileSaveAs_Click() { saveFile(SaveKind::saveAs); }

    /// Asks whether to save first. True when the caller may go on: the data are saved or dropped on purpose.
    [[nodiscard]] bool savedialog(const std::string& title);

    /// The work of File > Open once a file is chosen. Until the record is read whole the window keeps its own.
    /// @throws FormatFault when the file cannot be opened or is no record
    void openFile(const ChosenFile& file);

private:
    enum class SaveKind { save, saveAs };
    void saveFile(SaveKind kind);
    [[nodiscard]] bool settleType(ChosenFile& file);
    [[nodiscard]] LoadedRecord read(const ChosenFile& file);
    void takeRecord(LoadedRecord& loaded, const ChosenFile& file);
    void resetForNewRecord();
    void enableForWork();
    void showStatusAfterLoad();
    void showCaption(const std::string& path);
    [[nodiscard]] std::optional<ChosenFile> chooseName(const std::string& title);
    [[nodiscard]] bool mayReplace(const std::string& name, const ChosenFile& confirmed, const std::string& title);
    [[nodiscard]] bool tryWriting(const ChosenFile& target);
    void write(const ChosenFile& target);

    Window& m_window;
    View& m_view;
    Record& m_record;
    Sensors& m_sensors;
    Ui& m_ui;
    Environment& m_env;
    WindowForms& m_forms;
    Undo& m_undo;
    Application& m_application;
};

} // namespace tarvelint
