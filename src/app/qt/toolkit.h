// SPDX-License-Identifier: MIT
#pragma once

#include "window/dialogs.h"
#include "window/ui.h"

#include <QPointer>

#include <array>
#include <functional>
#include <optional>

class QRect;
class QWidget;

namespace tarvelint {

class ColumnSetupDialog;
class FrmMain;
class SaveContentsDialog;
class WindowList;

/// The toolkit as the core of one window sees it: passes on what is to be shown, asks in boxes and dialogs and owns
/// them, and measures the window in twips.
class QtToolkit : public Ui, public Dialogs {
public:
    using FileQuestion = std::function<std::optional<ChosenFile>(QWidget*, const FileDialog&, bool save)>;

    /// Touches neither form nor core until one of them calls.
    QtToolkit(FrmMain& frmMain, WindowList& windows);
    ~QtToolkit() override;

    FileQuestion askForFile; ///< the file dialogs; tests put their own in

    /// Shows all that the core holds.
    void showAll();
    /// A message box waits for its answer.
    [[nodiscard]] bool isAsking() const { return m_questions > 0; }
    /// Leaves what is being asked without an answer; the column setup dialog stays.
    void cancelQuestions();
    /// Cancels the column setup dialog, which may block the window.
    void cancelColumnSetup();
    /// Moves the window with its frame wholly onto the screen. The frame is known only once the window is there.
    void comeOntoTheScreen();
    /// Fits the least size of the window to the screen it is on now.
    void keepLeastSize();

    void changed(Control control) override;
    void listChanged(int index) override;
    void scrollBarChanged() override;
    void pointerChanged() override;
    void captionChanged() override;
    [[nodiscard]] Surface& surface(int index) override;
    void focus(Control control) override;
    void beep() override;
    Answer messageBox(const Message& message) override;
    [[nodiscard]] std::optional<ChosenFile> openFileDialog(const FileDialog& dialog) override;
    [[nodiscard]] std::optional<ChosenFile> saveFileDialog(const FileDialog& dialog) override;
    void showColumnSetup(bool blocking) override;
    void hideColumnSetup() override;
    void unloadColumnSetup() override;
    void showSaveContents() override;
    void unloadSaveContents() override;
    [[nodiscard]] std::optional<std::string> askValue(const std::string& old) override;
    [[nodiscard]] bool isValueDialogOpen() const override;
    void raiseValueDialog() override;
    void setPlotToolTip(const std::string& text) override;
    void paintStatus() override;
    void letPendingEventsRun() override;
    void letEventsRunFor(std::chrono::milliseconds time) override;
    void unload() override;
    [[nodiscard]] Geometry geometry() const override;
    void setGeometry(const Geometry& geometry) override;
    [[nodiscard]] bool isMinimised() const override;
    [[nodiscard]] Geometry screen() const override;

private:
    void showList(int index);
    void placeWithFrame(const QRect& wanted);

    FrmMain& m_frmMain;
    WindowList& m_windows;
    QPointer<ColumnSetupDialog> m_columnSetup;
    QPointer<SaveContentsDialog> m_saveContents;
    std::array<bool, 2> m_listStale{};
    int m_questions = 0;
};

} // namespace tarvelint
