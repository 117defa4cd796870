// SPDX-License-Identifier: MIT
#include "app/file_commands.h"

#include "app/application.h"
#include "app/captions.h"
#include "app/command_table.h"
#include "app/window_progress.h"
#include "data/numbers.h"
#include "edit/undo.h"
#include "forms/window_forms.h"
#include "view/column_lists.h"
#include "view/scrolling.h"

#include <utility>
#include <vector>

namespace tarvelint {

namespace {

FileDialog::Filter filterOf(FileType type)
{
    const std::string pattern = "*" + std::string(factsOf(type).extension);
    return {std::string(factsOf(type).name) + " (" + pattern + ")", pattern};
}

const std::vector<FileDialog::Filter> kOpenFilters{
    filterOf(FileType::space), filterOf(FileType::tab), {"Comma Delimited (*.csv), (*.dat)", "*.csv *.dat"}};
const std::vector<FileDialog::Filter> kSaveFilters{
    filterOf(FileType::space), filterOf(FileType::tab), {"_Comma Delimited (*.csv)", "*.csv"}};

/// Bytes of a UTF-8 name that are left without its last four characters.
std::size_t withoutLastFour(std::string_view name)
{
    const auto isWithinCharacter = [&](std::size_t at) {
        return (static_cast<unsigned char>(name[at]) & 0xC0U) == 0x80U;
    };
    std::size_t kept = name.size();
    for (int cut = 0; cut < 4 && kept > 0; ++cut)
        while (--kept > 0 && isWithinCharacter(kept)) {
        }
    return kept;
}

} // namespace

std::string savedName(const std::string& path, FileType type)
{
    const auto slash = path.rfind('/');
    const std::string folder = slash == std::string::npos ? "" : path.substr(0, slash + 1);
    std::string name = path.substr(folder.size());
    const auto lastDot = name.rfind('.');
    if (lastDot != std::string::npos && lastDot > 0) {
        const std::size_t kept = withoutLastFour(name);
        name.resize(kept > 0 ? kept : lastDot);
    }
    return (folder + name).append(factsOf(type).extension);
}

void FileCommands::mnuFileOpen_Click()
{
    if (!m_record.isEmpty() && !m_record.saveCheck && !savedialog("Open new file:")) return;
    auto file = m_window.dialogs.openFileDialog({"Open", kOpenFilters, m_application.lastFileType});
    if (file && !file->path.empty() && settleType(*file)) openFile(*file);
}

/// False when the user would rather not open the file.
bool FileCommands::settleType(ChosenFile& file)
{
    const auto likelier = likelierType(m_env.files, file.path, file.type);
    if (!likelier) return true;
    const std::string chosen(factsOf(file.type).name);
    const std::string better(factsOf(likelier->type).name);
    const std::string question = "As \"" + chosen + "\" the first row of " + file.path + " is one column, as \"" +
                                 better + "\" it is " + plainText(static_cast<std::int64_t>(likelier->fields)) +
                                 " columns. Open it as \"" + better + "\"?";
    const Answer answer = m_ui.messageBox({question, "Open", Buttons::yesNoCancel, Icon::warning});
    if (answer == Answer::yes) file.type = likelier->type;
    return answer != Answer::cancel;
}

void FileCommands::openFile(const ChosenFile& file)
{
    LoadedRecord loaded = read(file);
    takeRecord(loaded, file);
    showCaption(file.path);
    m_forms.unloadColumnSetup();
    if (!loaded.hadHeader) m_forms.showNewColumnSetup();
    enableForWork();
    showStatusAfterLoad();
    ColumnLists(m_window).choose(0, 0);
    if (!loaded.warning.empty()) m_ui.messageBox({loaded.warning, std::string(kTitle), Buttons::ok, Icon::warning});
}

LoadedRecord FileCommands::read(const ChosenFile& file)
{
    const BusyDisplay busy(m_window);
    WindowProgress progress(m_window);
    return readRecord(m_env.files, file.path, file.type,
                      {m_record.blank, m_record.zeroOut, [this] { return readBlankSetting(m_env.settings); }},
                      progress);
}

void FileCommands::takeRecord(LoadedRecord& loaded, const ChosenFile& file)
{
    static_cast<DataSet&>(m_record) = std::move(loaded.data);
    m_record.parameters.assign(static_cast<std::size_t>(m_record.columns), false);
    m_record.savesLabels = loaded.hadLabelsLine;
    m_window.file.filePath = file.path;
    m_window.file.savePath.clear();
    m_window.file.fileDelimiter = file.type;
    m_application.lastFileType = file.type;
    ColumnLists(m_window).fill(); // nothing is chosen from here on, so the reset below draws nothing of the new record
    m_ui.surface(1).erase();
    resetForNewRecord();
}

void FileCommands::resetForNewRecord()
{
    m_view.Turbo = m_view.chainActive = false;
    m_sensors.clear();
    m_view.curSensor = -1;
    m_view.dropPoint();
    m_view.rowCursor = -1;
    m_view.hoverRow = m_view.selStart = m_view.selEnd = m_view.lastClick = 0;
    m_undo.forget();
    m_window.resetScrollBar();
    m_window.setNoZeroFlow(false);
    m_window.setText(Control::colLabel, plainText(m_record.columns));
    m_window.setText(Control::rowLabel, plainText(m_record.lines));
}

void FileCommands::enableForWork()
{
    for (const Control control : controlsThatNeed(Needs::record)) m_window.setEnabled(control, true);
    Scrolling scrolling(m_window);
    scrolling.showZoomEntries();
    scrolling.fitScrollBar();
}

void FileCommands::showStatusAfterLoad()
{
    m_window.showModeAfterLoad();
    m_window.setStatus(2, m_view.curLayer == kUnconverted ? "Viewing intput data" : "Viewing output data");
}

void FileCommands::showCaption(const std::string& path)
{
    std::string caption = std::string(kTitle) + ": " + path;
    setcaption(m_window, m_application, caption);
}

void FileCommands::saveFile(SaveKind kind)
{
    if (!m_forms.askContents()) return;
    const FileState& file = m_window.file;
    std::optional<ChosenFile> target;
    if (kind == SaveKind::save && !file.savePath.empty() && file.fileDelimiter)
        target = ChosenFile{file.savePath, *file.fileDelimiter};
    else
        target = chooseName(kind == SaveKind::saveAs ? "Save As:" : "Save:");
    if (!target || !tryWriting(*target)) return;
    m_window.file.savePath = target->path;
    m_window.file.fileDelimiter = m_application.lastFileType = target->type;
    showCaption(target->path);
    m_record.saveCheck = true;
    m_window.setEnabled(Control::mnuFileSave, true);
}

std::optional<ChosenFile> FileCommands::chooseName(const std::string& title)
{
    const FileDialog dialog{title, kSaveFilters, m_application.lastFileType};
    while (const auto file = m_window.dialogs.saveFileDialog(dialog)) {
        if (file->path.empty()) return std::nullopt;
        const std::string name = savedName(file->path, file->type);
        if (mayReplace(name, *file, title)) return ChosenFile{name, file->type};
    }
    return std::nullopt;
}

bool FileCommands::mayReplace(const std::string& name, const ChosenFile& confirmed, const std::string& title)
{
    // The dialog asked about the name as typed; the cut extension may have led to another file.
    if (name == confirmed.path || !m_env.files.exists(name)) return true;
    return m_ui.messageBox({name + " already exists. Do you want to replace it?", title, Buttons::yesNo,
                            Icon::warning}) == Answer::yes;
}

bool FileCommands::tryWriting(const ChosenFile& target)
{
    std::string reason;
    try {
        write(target);
        return true;
    } catch (const FileFailure& failure) {
        reason =
            failure.kind() == FileFailure::Kind::inUse ? "The file is in use by another application" : failure.what();
    }
    m_ui.messageBox({reason, "Cannot save:", Buttons::ok, Icon::critical});
    return false;
}

void FileCommands::write(const ChosenFile& target)
{
    const BusyDisplay busy(m_window);
    m_window.setStatus(1, "Status: writing file");
    WindowProgress progress(m_window);
    writeRecord(m_env.files, target.path, target.type, m_record, {m_window.file.choices, m_record.savesLabels},
                {m_env.style.longDate(), m_env.style.grouping()}, progress);
}

bool FileCommands::savedialog(const std::string& title)
{
    switch (m_ui.messageBox({"Do you want to save the current file?", title, Buttons::yesNoCancel, Icon::warning})) {
    case Answer::yes: mnuFileSaveAs_Click(); return m_record.saveCheck;
    case Answer::no: return true;
    default: return false;
    }
}

} // namespace tarvelint
