// SPDX-License-Identifier: MIT
#pragma once

#include "app/engine.h"
#include "app/qt/main_form.h"
#include "app/qt/plot_input.h"
#include "app/qt/toolkit.h"

#include <QObject>

#include <functional>

class QCloseEvent;
class QLineEdit;

namespace tarvelint {

/// `frmMain`: one data window: its core, its form, and the toolkit between them. Hands every event to the core and
/// closes the window; no rule of the program lives here.
class FrmMain : public QObject {
    Q_OBJECT
public:
    /// Builds the window, empty and hidden; `Form_Load` is the caller's.
    FrmMain(const Environment& environment, const StringTable& table, WindowList& windows);

    [[nodiscard]] Engine& core() { return m_core; }
    [[nodiscard]] const Engine& core() const { return m_core; }
    [[nodiscard]] MainForm& form() { return m_form; }
    [[nodiscard]] QtToolkit& toolkit() { return m_toolkit; }

    /// Runs a user action in the core; afterwards the widgets show what the core holds, also when it was refused, and a
    /// window that was asked to close meanwhile closes.
    void command(const std::function<void()>& body);
    /// Runs what a dialog's answer does in the core, also in the middle of a command.
    void answer(const std::function<void()>& body);
    /// The same for what the pointer does on the plot, and for what must not get lost (sizes, repaints).
    void gesture(const std::function<void()>& body);
    void record(const std::function<void()>& body);
    /// A command runs, or a message waits for its answer.
    [[nodiscard]] bool isBusy() const { return m_core.boundary.isBusy() || m_toolkit.isAsking(); }
    /// Closes the window; its close handling still runs. A busy one cancels what it asks and closes when it is done.
    void unload();
    /// The busy window was asked to close: what runs long may give up.
    [[nodiscard]] bool isToClose() const { return m_closeAsked; }

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    /// The window has closed for good; whoever made it may destroy it.
    void closed();

private:
    void wireCommands();
    void wireBoxes();
    void wireCheck(Control control, std::function<void(bool)> clicked);
    void wireRangeBox(Control first, int index);
    void wireReferenceBox();
    void wireScrollBar();
    void wirePlots();
    void showAll();
    [[nodiscard]] bool takeKey(const QLineEdit& box, const QKeyEvent& key);
    void keyInBox(const QLineEdit& box);
    void redrawBoth();
    void firstPaint();
    void closeEvent(QCloseEvent& event);
    void closeLater();
    void closeWhenUnwound();

    // The form goes first: its lists and dialogs read the core.
    QtToolkit m_toolkit;
    Engine m_core;
    MainForm m_form;
    PlotInput m_plotInput{*this};
    WindowList& m_windows;
    bool m_painted = false;
    bool m_closeAsked = false;
    bool m_closing = false; ///< the close handling runs
    bool m_closed = false;
};

} // namespace tarvelint
