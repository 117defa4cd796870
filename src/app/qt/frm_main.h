// SPDX-License-Identifier: MIT
#pragma once

#include "app/main_window.h"
#include "app/qt/menu_bar.h"
#include "window/ui.h"

#include <QAbstractListModel>
#include <QMainWindow>
#include <QPointer>

#include <array>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>

class QBoxLayout;
class QComboBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QScrollBar;

namespace tarvelint {

class ColumnSetupDialog;
class PlotArea;
class SaveContentsDialog;
class WindowList;

/// The entries of one column list, read where they are kept: no second copy of 32,767 labels.
class ColumnListModel : public QAbstractListModel {
    Q_OBJECT
public:
    ColumnListModel(const ColumnList& list, QObject* parent) : QAbstractListModel(parent), m_list(list) {}
    /// The entries have changed, one or all of them.
    void entriesChanged();
    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : m_rows; }
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

private:
    const ColumnList& m_list;
    int m_rows = 0;
};

/// `frmMain`: the widgets of one data window. Widgets show what the core holds and hand every event to it; no rule of
/// the program lives here. Widgets bear their controls' given names.
class FrmMain : public QMainWindow, public Ui {
    Q_OBJECT
public:
    using FileQuestion = std::function<std::optional<ChosenFile>(QWidget*, const FileDialog&, bool save)>;

    /// Builds the window, empty and hidden; `Form_Load` is the caller's.
    FrmMain(const Environment& environment, const StringTable& table, WindowList& windows);
    ~FrmMain() override;

    [[nodiscard]] MainWindow& core() { return m_core; }
    [[nodiscard]] const MainWindow& core() const { return m_core; }
    /// Runs a user action in the core; afterwards the widgets show what the core holds, also when it was refused, and a
    /// window that was asked to close meanwhile closes.
    void command(const std::function<void()>& body);

    FileQuestion askForFile; ///< the file dialogs; tests put their own in

    // What the core asks for.
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
    void paintStatus() override;
    void letPendingEventsRun() override;
    void unload() override;
    [[nodiscard]] Geometry geometry() const override;
    void setGeometry(const Geometry& geometry) override;
    [[nodiscard]] bool isMinimised() const override { return isMinimized(); }
    [[nodiscard]] Geometry screen() const override;

Q_SIGNALS:
    /// The window has closed for good; whoever made it may destroy it.
    void closed();

protected:
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    // frm_main_build.cpp: what stands where
    void build(const StringTable& table);
    [[nodiscard]] QBoxLayout* buildColumnRow();
    [[nodiscard]] QBoxLayout* buildCommandRows();
    [[nodiscard]] QGridLayout* buildSelectionCues();
    [[nodiscard]] QWidget* buildFrame();
    [[nodiscard]] QGridLayout* buildRange(int index);
    [[nodiscard]] QGridLayout* buildCueRows();
    void buildStatusBar();
    void add(Control control, QWidget* widget, const char* name, const char* spoken);
    [[nodiscard]] QPushButton* addButton(Control control, const char* name, const char* caption);
    [[nodiscard]] QWidget* addCheck(Control control, const char* name, const char* caption, const char* spoken);
    [[nodiscard]] QLabel* addValue(Control control, const char* name, const char* spoken, const char* widest);
    [[nodiscard]] QLineEdit* addBox(Control control, const char* name, const char* spoken);
    [[nodiscard]] QComboBox* addList(int index, const char* name, const char* spoken);
    void setTabOrders();

    // frm_main.cpp: events into the core, state onto the widgets
    void installHandlers();
    void wireActions();
    void wireBoxes();
    void wireCheck(Control control, std::function<void(bool)> clicked);
    void wireRangeBox(Control first, int index);
    void keyInBox(const QLineEdit& box);
    void wireScrollBar();
    void wirePlots();
    void run(Control control);
    void record(const std::function<void()>& body);
    [[nodiscard]] bool isBusy() const { return m_core.boundary.isBusy() || m_questions > 0; }
    void redrawBoth();
    [[nodiscard]] bool isUsable(Control control) const;
    void showControl(Control control);
    void showAction(Control control);
    void showText(QWidget& shown, Control control);
    void showAll();
    void showList(int index);
    void closeLater();
    void closeWhenUnwound();
    void cancelDialogs();
    template <class W>
    [[nodiscard]] W* widget(Control control) const
    {
        return static_cast<W*>(m_widgets[static_cast<std::size_t>(control)]);
    }

    MainWindow m_core;
    WindowList& m_windows;
    std::map<Control, std::function<void()>> m_handlers; ///< what entries and buttons do; without one they are off
    std::map<Control, QAction*> m_actions;
    std::multimap<Control, QAction*> m_tools;
    std::array<QWidget*, static_cast<std::size_t>(Control::count)> m_widgets{};
    std::map<Control, QString> m_spoken; ///< what a value label is called; its value follows
    std::array<PlotArea*, 2> m_plots{};
    QScrollBar* m_scrollBar = nullptr;
    std::array<QComboBox*, 2> m_lists{};
    std::array<ColumnListModel*, 2> m_listModels{};
    std::array<bool, 2> m_listStale{};
    QPointer<ColumnSetupDialog> m_columnSetup;
    QPointer<SaveContentsDialog> m_saveContents;
    int m_questions = 0; ///< message boxes being answered
    bool m_closeAsked = false;
    bool m_closing = false; ///< the close handling runs
    bool m_closed = false;
};

} // namespace tarvelint
