// SPDX-License-Identifier: MIT
#include "app/qt/frm_main.h"

#include "app/qt/plot_area.h"
#include "app/qt/window_list.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QWindow>
#include <QWindowStateChangeEvent>

#include <utility>

namespace tarvelint {

namespace {

BoxKey boxKeyOf(const QKeyEvent& event)
{
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter: return BoxKey::enter;
    case Qt::Key_Backspace: return BoxKey::backspace;
    case Qt::Key_Delete: return BoxKey::deleteKey;
    case Qt::Key_Escape: return BoxKey::escape;
    default: return BoxKey::other;
    }
}

} // namespace

FrmMain::FrmMain(const Environment& environment, const StringTable& table, WindowList& windows)
    : m_toolkit(*this, windows), m_core(m_toolkit, m_toolkit, environment, windows), m_form(table), m_windows(windows)
{
    for (const auto& [entry, text] : m_form.entryTexts()) m_core.setText(entry, text);
    wireCommands();
    wireBoxes();
    wireScrollBar();
    wirePlots();
    m_toolkit.showAll();
    m_form.installEventFilter(this);
}

void FrmMain::wireCommands()
{
    using enum Control;
    const auto on = [this](Control control, const std::function<void()>& handler) {
        m_form.controls().onTriggered(control, this, [this, control, handler] {
            if (m_core.isEnabled(control) && !m_plotInput.endsScrolling(handler)) command(handler);
        });
    };
    Engine& core = m_core;
    on(mnuFileNew, [&core] { core.lifecycle.mnuFileNew_Click(); });
    on(mnuFileOpen, [&core] { core.files.mnuFileOpen_Click(); });
    on(mnuFileClose, [&core] { core.lifecycle.mnuFileClose_Click(); });
    on(mnuFileSave, [&core] { core.files.mnuFileSave_Click(); });
    on(mnuFileSaveAs, [&core] { core.files.mnuFileSaveAs_Click(); });
    on(mnuFileExit, [&core] { core.lifecycle.mnuFileExit_Click(); });
    on(mnuEditUndo, [&core] { core.undo.mnuEditUndo_Click(); });
    on(mnuViewToolbar, [&core] { core.lifecycle.mnuViewToolbar_Click(); });
    on(mnuViewStatusBar, [&core] { core.lifecycle.mnuViewStatusBar_Click(); });
    on(mnuViewRefresh, [&core] { core.scrolling.mnuViewRefresh_Click(); });
    on(mnuViewLabels, [&core] { core.forms.mnuViewLabels_Click(); });
    on(mnuViewZoomIn, [&core] { core.scrolling.mnuViewZoomIn_Click(); });
    on(mnuViewZoomOut, [&core] { core.scrolling.mnuViewZoomOut_Click(); });
    for (const Control either : {mnuToolsView, viewButton}) on(either, [&core] { core.display.viewButton_Click(); });
    on(mnuToolsConvert, [&core] { core.conversion.mnuToolsConvert_Click(); });
    on(convButton, [&core] { core.conversion.convButton_Click(); });
    on(mnuToolsRecalculateSelection, [&core] { core.recalculation.mnuToolsRecalculateSelection_Click(); });
    on(mnuToolsRecalculate, [&core] { core.recalculation.mnuToolsRecalculate_Click(); });
    on(mnuToolsRecalculateAll, [&core] { core.recalculation.mnuToolsRecalculateAll_Click(); });
    on(mnuToolsOptions, [&core] { core.lifecycle.mnuToolsOptions_Click(); });
    on(eqButton, [&core] { core.lifecycle.eqButton_Click(); });
    on(mnuEditClear, [&core] { core.tools.mnuEditClear_Click(); });
    on(mnuToolsDelete, [&core] { core.tools.mnuToolsDelete_Click(); });
    on(mnuToolsInterpolate, [&core] { core.tools.mnuToolsInterpolate_Click(); });
    on(mnuToolsBreak, [&core] { core.pointing.mnuToolsBreak_Click(); });
    on(mnuToolsMode, [&core] { core.pointing.mnuToolsMode_Click(); });
    on(mnuEditSelectAll, [&core] { core.selection.mnuEditSelectAll_Click(); });
    on(mnuHelpAbout, [this] { m_windows.showAbout(m_form); });
    on(labelButton, [&core] { core.forms.labelButton_Click(); });
    on(baseButton, [&core] { core.blockMaxima.baseButton_Click(); });
}

void FrmMain::wireBoxes()
{
    using enum Control;
    DisplayControls& display = m_core.display;
    for (int index = 0; index < 2; ++index) {
        wireCheck(element(scaleBox0, index),
                  [&display, index](bool checked) { display.scaleBox_Click(index, checked); });
        wireRangeBox(maxLabel0, index);
        wireRangeBox(minLabel0, index);
        connect(&m_form.list(index), &QComboBox::activated, this, [this, index](int entry) {
            m_toolkit.listChanged(index); // shown anew even when the choice is refused
            command([&] { m_core.lists.choose(index, entry); });
        });
    }
    wireCheck(refCheck, [&display](bool checked) { display.refCheck_Click(checked); });
    wireCheck(labelBox, [this](bool checked) { m_core.lists.labelBox_Click(checked); });
    wireCheck(highBox, [this](bool checked) { m_core.setChecked(highBox, checked); });
    wireReferenceBox();
}

void FrmMain::wireCheck(Control control, std::function<void(bool)> clicked)
{
    connect(m_form.controls().widget<QCheckBox>(control), &QCheckBox::clicked, this,
            [this, handler = std::move(clicked)](bool checked) { command([&] { handler(checked); }); });
}

void FrmMain::wireRangeBox(Control first, int index)
{
    const Control control = element(first, index);
    auto* box = m_form.controls().widget<QLineEdit>(control);
    box->installEventFilter(this);
    connect(box, &QLineEdit::textEdited, this, [this, control, first, index](const QString& text) {
        command([&] {
            DisplayControls& display = m_core.display;
            const bool top = first == Control::maxLabel0;
            top ? display.maxLabel_KeyPress(index) : display.minLabel_KeyPress(index);
            m_core.setText(control, text.toStdString());
            top ? display.maxLabel_KeyUp(index) : display.minLabel_KeyUp(index);
        });
    });
    connect(box, &QLineEdit::returnPressed, this, [this, first, index] {
        command([&] {
            first == Control::maxLabel0 ? m_core.display.maxLabel_KeyUp(index) : m_core.display.minLabel_KeyUp(index);
        });
    });
}

void FrmMain::wireReferenceBox()
{
    auto* box = m_form.controls().widget<QLineEdit>(Control::refBox);
    box->installEventFilter(this);
    connect(box, &QLineEdit::textEdited, this, [this](const QString& text) {
        command([&] {
            m_core.setText(Control::refBox, text.toStdString());
            m_core.display.refBox_Change();
        });
    });
}

void FrmMain::wireScrollBar()
{
    QScrollBar& bar = m_form.scrollBar();
    bar.installEventFilter(this);
    connect(&bar, &QScrollBar::sliderMoved, this,
            [this](int value) { command([&] { m_core.scrolling.HScroll1_Scroll(value); }); });
    connect(&bar, &QScrollBar::sliderReleased, this, [this] { command([&] { m_core.HScroll1_Change(); }); });
    connect(&bar, &QScrollBar::valueChanged, this, [this, &bar](int value) {
        if (bar.isSliderDown()) return; // the drag says so itself
        command([&] { m_core.setScrollValue(value); });
    });
}

void FrmMain::wirePlots()
{
    connect(&m_form, &MainForm::plotsResized, this, [this] { record([&] { m_core.scrolling.Form_Resize(); }); });
    connect(&m_form, &MainForm::wheelTurned, this,
            [this](int angle, bool zooms) { command([&] { m_core.scrolling.turnWheel(angle, zooms); }); });
    for (int index = 0; index < 2; ++index)
        connect(&m_form.plot(index), &PlotArea::scaleChanged, this, &FrmMain::redrawBoth);
}

void FrmMain::redrawBoth()
{
    record([&] { m_core.redrawBoth(); });
}

void FrmMain::record(const std::function<void()>& body)
{
    m_core.boundary.record(body);
    m_plotInput.showRowCursor();
    closeWhenUnwound();
}

void FrmMain::answer(const std::function<void()>& body)
{
    m_core.boundary.answer(body);
    closeWhenUnwound();
}

void FrmMain::command(const std::function<void()>& body)
{
    m_core.boundary.command(body);
    showAll();
    closeWhenUnwound();
}

void FrmMain::showAll()
{
    m_core.keys.tellRow();
    m_toolkit.showAll();
    m_plotInput.showRowCursor();
}

void FrmMain::gesture(const std::function<void()>& body)
{
    m_core.boundary.gesture(body);
    showAll();
    closeWhenUnwound();
}

void FrmMain::unload()
{
    // The toolkit swallows the closing of a window under a modal box: while there is one, the window is busy.
    if (isBusy()) return closeLater();
    m_toolkit.cancelColumnSetup();
    m_form.close();
}

void FrmMain::closeLater()
{
    m_closeAsked = true;
    m_toolkit.cancelQuestions();
}

void FrmMain::closeWhenUnwound()
{
    if (!m_closeAsked || isBusy()) return;
    m_closeAsked = false;
    QMetaObject::invokeMethod(
        &m_form,
        [this] {
            m_toolkit.cancelColumnSetup(); // it may block the window, whose closing would be swallowed
            m_form.close();
        },
        Qt::QueuedConnection);
}

void FrmMain::firstPaint()
{
    connect(m_form.windowHandle(), &QWindow::screenChanged, this, [this] { m_toolkit.keepLeastSize(); });
    QMetaObject::invokeMethod(
        this, [this] { m_toolkit.comeOntoTheScreen(); }, Qt::QueuedConnection);
}

void FrmMain::closeEvent(QCloseEvent& event)
{
    if (m_closed) return; // asked once more while it waits to be destroyed
    event.ignore();
    if (m_closing) return; // asked once more while it asks whether to save
    if (isBusy()) return closeLater();
    record([&] { m_core.pointing.endGesture(); }); // as if the button had been released
    bool stays = true;
    const QScopedValueRollback closing(m_closing, true);
    command([&] {
        bool cancel = false;
        m_core.lifecycle.Form_QueryUnload(cancel);
        stays = cancel;
    });
    if (stays) return redrawBoth(); // a conversion that was broken off has changed data
    event.accept();
    m_closed = true;
    Q_EMIT closed();
}

bool FrmMain::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::Close:
        if (watched != &m_form) break;
        closeEvent(static_cast<QCloseEvent&>(*event));
        return true;
    case QEvent::Show:
        if (watched == &m_form) redrawBoth();
        break;
    case QEvent::Paint:
        if (watched == &m_form && m_form.isVisible() && !std::exchange(m_painted, true)) firstPaint();
        break;
    case QEvent::WindowStateChange: {
        const bool wasMinimised =
            static_cast<QWindowStateChangeEvent*>(event)->oldState().testFlag(Qt::WindowMinimized);
        if (watched == &m_form && wasMinimised && !m_form.isMinimized()) redrawBoth();
        break;
    }
    case QEvent::FocusIn:
    case QEvent::MouseButtonRelease: // it never keeps the focus, also where a click moves nothing
        if (watched == &m_form.scrollBar()) record([&] { m_core.scrolling.HScroll1_GotFocus(); });
        break;
    case QEvent::KeyPress:
        if (const auto* box = qobject_cast<QLineEdit*>(watched)) return takeKey(*box, *static_cast<QKeyEvent*>(event));
        break;
    default: break;
    }
    return false;
}

bool FrmMain::takeKey(const QLineEdit& box, const QKeyEvent& key)
{
    const BoxKey pressed = boxKeyOf(key);
    if (pressed == BoxKey::escape) {
        m_toolkit.focus(Control::Picture1_0);
        return true;
    }
    if (countsAsTyping(pressed)) keyInBox(box);
    return false;
}

void FrmMain::keyInBox(const QLineEdit& box)
{
    for (int index = 0; index < 2; ++index) {
        if (&box == m_form.controls().widget(element(Control::maxLabel0, index)))
            command([&] { m_core.display.maxLabel_KeyPress(index); });
        else if (&box == m_form.controls().widget(element(Control::minLabel0, index)))
            command([&] { m_core.display.minLabel_KeyPress(index); });
    }
}

} // namespace tarvelint
