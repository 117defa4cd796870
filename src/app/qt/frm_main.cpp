// SPDX-License-Identifier: MIT
#include "app/qt/frm_main.h"

#include "app/qt/plot_area.h"
#include "app/qt/window_list.h"
#include "dialogs/column_setup_dialog.h"
#include "dialogs/file_dialogs.h"
#include "dialogs/label_text.h"
#include "dialogs/save_contents_dialog.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QWindowStateChangeEvent>

#include <algorithm>
#include <utility>

namespace tarvelint {

void ColumnListModel::entriesChanged()
{
    beginResetModel();
    m_rows = static_cast<int>(m_list.entries.size());
    endResetModel();
}

QVariant ColumnListModel::data(const QModelIndex& index, int role) const
{
    const auto entry = static_cast<std::size_t>(index.row());
    if ((role != Qt::DisplayRole && role != Qt::EditRole) || !index.isValid() || entry >= m_list.entries.size())
        return {};
    return labelForScreen(m_list.entries[entry]);
}

FrmMain::FrmMain(const Environment& environment, const StringTable& table, WindowList& windows)
    : askForFile(tarvelint::askForFile), m_core(*this, environment, windows), m_windows(windows)
{
    setObjectName(QStringLiteral("frmMain"));
    installHandlers();
    build(table);
    wireActions();
    wireBoxes();
    wireScrollBar();
    wirePlots();
    showAll();
}

FrmMain::~FrmMain()
{
    // These read the core, which goes before the other children do.
    delete m_columnSetup;
    delete m_saveContents;
    delete takeCentralWidget();
}

void FrmMain::installHandlers()
{
    using enum Control;
    MainWindow& core = m_core;
    m_handlers[mnuFileNew] = [&core] { core.lifecycle.mnuFileNew_Click(); };
    m_handlers[mnuFileOpen] = [&core] { core.files.mnuFileOpen_Click(); };
    m_handlers[mnuFileClose] = [&core] { core.lifecycle.mnuFileClose_Click(); };
    m_handlers[mnuFileSave] = [&core] { core.files.mnuFileSave_Click(); };
    m_handlers[mnuFileSaveAs] = [&core] { core.files.mnuFileSaveAs_Click(); };
    m_handlers[mnuFileExit] = [&core] { core.lifecycle.mnuFileExit_Click(); };
    m_handlers[mnuEditUndo] = [&core] { core.undo.mnuEditUndo_Click(); };
    m_handlers[mnuViewToolbar] = [&core] { core.lifecycle.mnuViewToolbar_Click(); };
    m_handlers[mnuViewStatusBar] = [&core] { core.lifecycle.mnuViewStatusBar_Click(); };
    m_handlers[mnuViewRefresh] = [&core] { core.scrolling.mnuViewRefresh_Click(); };
    m_handlers[mnuViewLabels] = [&core] { core.cues.mnuViewLabels_Click(); };
    m_handlers[mnuViewZoomIn] = [&core] { core.scrolling.mnuViewZoomIn_Click(); };
    m_handlers[mnuViewZoomOut] = [&core] { core.scrolling.mnuViewZoomOut_Click(); };
    m_handlers[mnuToolsView] = m_handlers[viewButton] = [&core] { core.cues.viewButton_Click(); };
    m_handlers[mnuToolsConvert] = [&core] { core.conversion.mnuToolsConvert_Click(); };
    m_handlers[convButton] = [&core] { core.conversion.convButton_Click(); };
    m_handlers[mnuToolsRecalculateSelection] = [&core] { core.recalculation.mnuToolsRecalculateSelection_Click(); };
    m_handlers[mnuToolsRecalculate] = [&core] { core.recalculation.mnuToolsRecalculate_Click(); };
    m_handlers[mnuToolsRecalculateAll] = [&core] { core.recalculation.mnuToolsRecalculateAll_Click(); };
    m_handlers[mnuToolsOptions] = [&core] { core.lifecycle.mnuToolsOptions_Click(); };
    m_handlers[eqButton] = [&core] { core.lifecycle.eqButton_Click(); };
    m_handlers[mnuEditSelectAll] = [&core] { core.selection.mnuEditSelectAll_Click(); };
    m_handlers[mnuHelpAbout] = [this] { m_windows.showAbout(*this); };
    m_handlers[labelButton] = [&core] { core.cues.labelButton_Click(); };
    m_handlers[baseButton] = [&core] { core.zeroFlow.baseButton_Click(); };
}

void FrmMain::wireActions()
{
    const auto wire = [this](Control control, QAction* action) {
        connect(action, &QAction::triggered, this, [this, control] { run(control); });
    };
    for (const auto& [control, action] : m_actions) wire(control, action);
    for (const auto& [control, action] : m_tools)
        if (control != Control::count) wire(control, action);
    for (std::size_t i = 0; i < m_widgets.size(); ++i)
        if (auto* button = qobject_cast<QPushButton*>(m_widgets[i]))
            connect(button, &QPushButton::clicked, this, [this, i] { run(static_cast<Control>(i)); });
}

void FrmMain::run(Control control)
{
    if (isUsable(control)) command(m_handlers.at(control));
}

void FrmMain::wireCheck(Control control, std::function<void(bool)> clicked)
{
    connect(widget<QCheckBox>(control), &QCheckBox::clicked, this,
            [this, handler = std::move(clicked)](bool checked) { command([&] { handler(checked); }); });
}

void FrmMain::wireBoxes()
{
    using enum Control;
    Cues& cues = m_core.cues;
    for (int index = 0; index < 2; ++index) {
        wireCheck(element(scaleBox0, index), [&cues, index](bool checked) { cues.scaleBox_Click(index, checked); });
        wireRangeBox(maxLabel0, index);
        wireRangeBox(minLabel0, index);
        connect(m_lists[static_cast<std::size_t>(index)], &QComboBox::activated, this, [this, index](int entry) {
            m_listStale[static_cast<std::size_t>(index)] = true; // shown anew even when the choice is refused
            command([&] { m_core.chooseColumn(index, entry); });
        });
    }
    wireCheck(refCheck, [&cues](bool checked) { cues.refCheck_Click(checked); });
    wireCheck(labelBox, [&cues](bool checked) { cues.labelBox_Click(checked); });
    wireCheck(highBox, [this](bool checked) { m_core.setChecked(highBox, checked); });
    auto* reference = widget<QLineEdit>(refBox);
    reference->installEventFilter(this);
    connect(reference, &QLineEdit::textEdited, this, [this](const QString& text) {
        command([&] {
            m_core.setText(refBox, text.toStdString());
            m_core.cues.refBox_Change();
        });
    });
}

void FrmMain::wireRangeBox(Control first, int index)
{
    const Control control = element(first, index);
    auto* box = widget<QLineEdit>(control);
    box->installEventFilter(this);
    connect(box, &QLineEdit::textEdited, this, [this, control, first, index](const QString& text) {
        command([&] {
            Cues& cues = m_core.cues;
            const bool top = first == Control::maxLabel0;
            top ? cues.maxLabel_KeyPress(index) : cues.minLabel_KeyPress(index);
            m_core.setText(control, text.toStdString());
            top ? cues.maxLabel_KeyUp(index) : cues.minLabel_KeyUp(index);
        });
    });
    connect(box, &QLineEdit::returnPressed, this, [this, first, index] {
        command([&] {
            first == Control::maxLabel0 ? m_core.cues.maxLabel_KeyUp(index) : m_core.cues.minLabel_KeyUp(index);
        });
    });
}

void FrmMain::wireScrollBar()
{
    m_scrollBar->installEventFilter(this);
    connect(m_scrollBar, &QScrollBar::sliderMoved, this,
            [this](int value) { command([&] { m_core.scrolling.HScroll1_Scroll(value); }); });
    connect(m_scrollBar, &QScrollBar::sliderReleased, this, [this] { command([&] { m_core.HScroll1_Change(); }); });
    connect(m_scrollBar, &QScrollBar::actionTriggered, this, [this](int) {
        if (m_scrollBar->isSliderDown()) return; // the drag says so itself
        const int value = m_scrollBar->sliderPosition();
        command([&] { m_core.setScrollValue(value); });
    });
}

void FrmMain::wirePlots()
{
    connect(m_plots[0], &PlotArea::resized, this, [this] {
        record([&] {
            m_core.scrollset();
            m_core.redraw(0, true);
            m_core.redraw(1, true); // shows as many rows as fit the main area, which may be resized after it
        });
    });
    connect(m_plots[1], &PlotArea::resized, this, [this] { record([&] { m_core.redraw(1, true); }); });
    for (PlotArea* plot : m_plots) connect(plot, &PlotArea::scaleChanged, this, &FrmMain::redrawBoth);
}

void FrmMain::redrawBoth()
{
    record([&] {
        m_core.redraw(0, true);
        m_core.redraw(1, true);
    });
}

void FrmMain::record(const std::function<void()>& body)
{
    m_core.boundary.record(body);
    closeWhenUnwound();
}

void FrmMain::command(const std::function<void()>& body)
{
    m_core.boundary.command(body);
    showAll();
    closeWhenUnwound();
}

void FrmMain::closeWhenUnwound()
{
    if (!m_closeAsked || isBusy()) return;
    m_closeAsked = false;
    QMetaObject::invokeMethod(this, &QWidget::close, Qt::QueuedConnection);
}

void FrmMain::closeLater()
{
    m_closeAsked = true;
    cancelDialogs();
}

void FrmMain::closeEvent(QCloseEvent* event)
{
    if (m_closed) return; // asked once more while it waits to be destroyed
    event->ignore();
    if (m_closing) return; // asked once more while it asks whether to save
    if (isBusy()) return closeLater();
    bool stays = true;
    const QScopedValueRollback closing(m_closing, true);
    command([&] {
        bool cancel = false;
        m_core.lifecycle.Form_QueryUnload(cancel);
        stays = cancel;
    });
    if (stays) return redrawBoth(); // a conversion that was broken off has changed data
    event->accept();
    m_closed = true;
    Q_EMIT closed();
}

void FrmMain::showEvent(QShowEvent* event)
{
    QMainWindow::showEvent(event);
    redrawBoth();
}

void FrmMain::changeEvent(QEvent* event)
{
    QMainWindow::changeEvent(event);
    if (event->type() != QEvent::WindowStateChange) return;
    const auto* change = static_cast<QWindowStateChangeEvent*>(event);
    if (change->oldState().testFlag(Qt::WindowMinimized) && !isMinimized()) redrawBoth();
}

bool FrmMain::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_scrollBar && event->type() == QEvent::FocusIn) {
        record([&] { m_core.scrolling.HScroll1_GotFocus(); });
        return false;
    }
    if (auto* box = qobject_cast<QLineEdit*>(watched); box && event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (key->key() == Qt::Key_Escape) {
            focus(Control::Picture1_0);
            return true;
        }
        if (!key->text().isEmpty()) keyInBox(*box);
    }
    return QMainWindow::eventFilter(watched, event);
}

void FrmMain::keyInBox(const QLineEdit& box)
{
    // A key that changes no text (Enter, Backspace in an empty box) counts as typing too.
    for (int index = 0; index < 2; ++index) {
        if (&box == widget<QLineEdit>(element(Control::maxLabel0, index)))
            command([&] { m_core.cues.maxLabel_KeyPress(index); });
        else if (&box == widget<QLineEdit>(element(Control::minLabel0, index)))
            command([&] { m_core.cues.minLabel_KeyPress(index); });
    }
}

bool FrmMain::isUsable(Control control) const
{
    const bool runsSomething =
        m_actions.contains(control) || qobject_cast<QPushButton*>(m_widgets[static_cast<std::size_t>(control)]);
    return m_core.isEnabled(control) && (!runsSomething || m_handlers.contains(control));
}

} // namespace tarvelint
