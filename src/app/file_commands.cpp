// SPDX-License-Identifier: MIT
#include "app/file_commands.h"

#include "app/command_table.h"
#include "app/window_progress.h"
#include "data/data_file_reader.h"
#include "data/data_file_writer.h"
#include "data/numbers.h"

#include <utility>

namespace tarvelint {

namespace {

const std::vector<FileDialog::Filter> kOpenFilters{{"Space Delimited (*.asc)", "*.asc"},
                                                   {"Tab delimited (*.txt)", "*.txt"},
                                                   {"Comma Delimited (*.csv), (*.dat)", "*.csv *.dat"}};
const std::vector<FileDialog::Filter> kSaveFilters{
    {"Space Delimited (*.asc)", "*.asc"}, {"Tab delimited (*.txt)", "*.txt"}, {"_Comma Delimited (*.csv)", "*.csv"}};

/// A data set without a record that keeps what the window is set to.
DataSet settingsOf(const DataSet& old)
{
    DataSet fresh;
    fresh.blank = old.blank;
    fresh.zeroOut = old.zeroOut;
    fresh.saveCheck = old.saveCheck;
    fresh.dateCol = old.dateCol;
    fresh.timeCol = old.timeCol;
    fresh.vpdCol = old.vpdCol;
    fresh.parCol = old.parCol;
    fresh.vpdLimit = old.vpdLimit;
    fresh.parLimit = old.parLimit;
    fresh.lullTime = old.lullTime;
    return fresh;
}

std::string titled(const std::string& path)
{
    return std::string(kTitle) + ": " + path;
}

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
    const std::string extension = type == FileType::space ? ".asc" : type == FileType::tab ? ".txt" : ".csv";
    const auto slash = path.rfind('/');
    const std::string folder = slash == std::string::npos ? "" : path.substr(0, slash + 1);
    std::string name = path.substr(folder.size());
    const auto lastDot = name.rfind('.');
    if (lastDot != std::string::npos && lastDot > 0) {
        const std::size_t kept = withoutLastFour(name);
        name.resize(kept > 0 ? kept : lastDot);
    }
    return folder + name + extension;
}

void FileCommands::mnuFileOpen_Click()
{
    if (!m_window.varList[0].entries.empty() && !m_window.data.saveCheck && !savedialog("Open new file:")) return;
    FileDialog dialog{"Open", kOpenFilters, FileType::space};
    if (!m_window.data.fileDelimiter.empty()) dialog.selected = fileTypeOf(m_window.data.fileDelimiter.front());
    const auto file = m_window.ui.openFileDialog(dialog);
    if (file && !file->path.empty()) openFile(*file);
}

void FileCommands::openFile(const ChosenFile& file)
{
    Loaded loaded = readRecord(file);

    m_window.data = std::move(loaded.data);
    m_window.data.filePath = file.path;
    m_window.data.fileDelimiter = delimiterOf(file.type);
    m_window.readWithLabels = loaded.hadLabelsLine;
    m_window.readLayers = loaded.layerCode;
    fillColumnLists(); // nothing is chosen from here on, so the reset below draws nothing of the new record
    resetForNewRecord();
    std::string caption = titled(file.path);
    m_window.setcaption(caption);

    if (m_window.haveLabelForm()) {
        m_window.ui.unloadColumnSetup();
        m_window.labelFrm.reset();
    }
    if (!loaded.hadHeader) showColumnSetup();
    enableForWork();
    showModeAfterLoad();
    m_window.chooseColumn(0, 0);
    if (!loaded.warning.empty())
        m_window.ui.messageBox({loaded.warning, std::string(kTitle), Buttons::ok, Icon::warning});
}

FileCommands::Loaded FileCommands::readRecord(const ChosenFile& file)
{
    const BusyDisplay busy(m_window);
    std::unique_ptr<std::istream> stream;
    try {
        stream = m_window.env.files.openForReading(file.path);
    } catch (const FileFailure& failure) {
        throw FormatFault("The file " + file.path + " cannot be opened: " + failure.what() +
                              ". Check its name and permissions, or choose another file.",
                          "Error reading file:");
    }
    DataSet fresh = settingsOf(m_window.data);
    WindowProgress progress(m_window);
    DataFileReader reader(*stream, file.path, delimiterOf(file.type), fresh, progress,
                          [this] { return readBlankSetting(m_window.env.settings); });
    reader.load();
    return {std::move(fresh), reader.hadHeader(), reader.hadLabelsLine(), reader.layerCode(), reader.warning()};
}

void FileCommands::resetForNewRecord()
{
    Window& w = m_window;
    w.Turbo = false;
    w.basePoints.allocate(0, 0);
    w.sensorCols.clear();
    w.sensors = 0;
    w.curSensor = w.markRow = w.dragRow = w.grabbedPoint = -1;
    w.hoverRow = w.selStart = w.selEnd = w.lastClick = 0;
    w.chainActive = false;
    w.savePath.clear();
    w.forgetUndo();
    w.setScrollRange(0, 1, 1);
    w.setText(Control::colLabel, plainText(w.data.columns));
    w.setText(Control::rowLabel, plainText(w.data.lines));
}

void FileCommands::fillColumnLists()
{
    std::vector<std::string> entries = m_window.data.labels;
    if (!m_window.isChecked(Control::labelBox))
        for (std::size_t i = 0; i < entries.size(); ++i) entries[i] = plainText(static_cast<std::int64_t>(i) + 1);
    m_window.setListEntries(entries);
    m_window.ui.surface(1).erase();
}

void FileCommands::showColumnSetup()
{
    m_window.labelFrm = std::make_unique<ColumnSetup>(m_window);
    m_window.labelFrm->Form_Load();
    m_window.ui.showColumnSetup(true);
}

void FileCommands::enableForWork()
{
    for (const Control control : controlsThatNeed(Needs::record)) m_window.setEnabled(control, true);
    m_window.setEnabled(Control::mnuViewZoomIn, m_window.zoomFactor < 8);
    m_window.setEnabled(Control::mnuViewZoomOut, m_window.zoomFactor > 1);
    m_window.HScroll1.Min = 0;
    m_window.scrollset();
}

void FileCommands::showModeAfterLoad()
{
    m_window.setStatus(1, m_window.lineMode ? "Mode: one-click baseline" : "Mode: select data");
    m_window.setPointer(m_window.lineMode ? Pointer::northSouth : Pointer::cross);
    m_window.setStatus(2, m_window.curLayer == kUnconverted ? "Viewing intput data" : "Viewing output data");
}

void FileCommands::saveFile(const std::string& save_type)
{
    if (!chooseContents()) return;
    const bool nameIsKnown =
        !m_window.savePath.empty() && save_type != "Save As:" && !m_window.data.fileDelimiter.empty();
    if (!nameIsKnown && !chooseName(save_type)) return;
    if (!tryWriting()) return;
    std::string caption = titled(m_window.savePath);
    m_window.setcaption(caption);
    m_window.data.saveCheck = true;
    m_window.setEnabled(Control::mnuFileSave, true);
}

bool FileCommands::chooseContents()
{
    if (!m_window.typeFrm) m_window.typeFrm = std::make_unique<SaveContents>();
    m_window.typeFrm->open();
    m_window.ui.showSaveContents();
    return m_window.typeFrm && m_window.typeFrm->result == "OK";
}

bool FileCommands::chooseName(const std::string& save_type)
{
    FileDialog dialog{save_type, kSaveFilters, FileType::space};
    if (!m_window.data.fileDelimiter.empty()) dialog.selected = fileTypeOf(m_window.data.fileDelimiter.front());
    while (const auto file = m_window.ui.saveFileDialog(dialog)) {
        if (file->path.empty()) return false;
        const std::string name = savedName(file->path, file->type);
        if (!mayReplace(name, *file, save_type)) continue;
        m_window.savePath = name;
        m_window.data.fileDelimiter = delimiterOf(file->type);
        return true;
    }
    return false;
}

bool FileCommands::mayReplace(const std::string& name, const ChosenFile& confirmed, const std::string& title)
{
    // The dialog asked about the name as typed; the cut extension may have led to another file.
    if (name == confirmed.path || !m_window.env.files.exists(name)) return true;
    return m_window.ui.messageBox({name + " already exists. Do you want to replace it?", title, Buttons::yesNo,
                                   Icon::warning}) == Answer::yes;
}

bool FileCommands::tryWriting()
{
    std::string reason;
    try {
        writeFile();
        return true;
    } catch (const FileFailure& failure) {
        reason =
            failure.kind() == FileFailure::Kind::inUse ? "The file is in use by another application" : failure.what();
    }
    m_window.ui.messageBox({reason, "Cannot save:", Buttons::ok, Icon::critical});
    return false;
}

void FileCommands::writeFile()
{
    const BusyDisplay busy(m_window);
    m_window.setStatus(1, "Status: writing file");
    const SaveContents& contents = *m_window.typeFrm;
    const SaveChoices choices{contents.inCheck,     contents.baseCheck,  contents.outCheck,
                              contents.headerCheck, contents.blankCheck, m_window.savesLabels()};
    const HeaderStyle style{m_window.env.style.longDate(), m_window.env.style.grouping()};
    WindowProgress progress(m_window);
    const auto file = m_window.env.files.createSafely(m_window.savePath);
    writeDataFile(m_window.data, choices, m_window.data.fileDelimiter.front(), style, *file, progress);
    file->commit();
}

bool FileCommands::savedialog(const std::string& title)
{
    switch (
        m_window.ui.messageBox({"Do you want to save the current file?", title, Buttons::yesNoCancel, Icon::warning})) {
    case Answer::yes: mnuFileSaveAs_Click(); return m_window.data.saveCheck;
    case Answer::no: return true;
    default: return false;
    }
}

} // namespace tarvelint
