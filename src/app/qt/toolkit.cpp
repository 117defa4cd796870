// SPDX-License-Identifier: MIT
#include "app/qt/toolkit.h"

#include "app/qt/frm_main.h"
#include "app/qt/message_box.h"
#include "app/qt/plot_area.h"
#include "app/qt/window_list.h"
#include "app/qt/window_place.h"
#include "dialogs/change_form.h"
#include "dialogs/column_setup_dialog.h"
#include "dialogs/file_dialogs.h"
#include "dialogs/save_contents_dialog.h"
#include "view/window_layout.h"

#include <QApplication>
#include <QEventLoop>
#include <QScreen>
#include <QStatusBar>
#include <QTimer>

#include <algorithm>
#include <cmath>
#include <vector>

namespace tarvelint {

namespace {

/// Rounded to nearest, halves to even; within what a window system can place.
int pixels(float twips)
{
    constexpr double kFarthest = 30000;
    const double at = std::nearbyint(static_cast<double>(twips) / kTwipsPerPixel);
    return std::isnan(at) ? 0 : static_cast<int>(std::clamp(at, -kFarthest, kFarthest));
}

float twips(int pixels)
{
    return static_cast<float>(pixels * kTwipsPerPixel);
}

Qt::CursorShape cursorShape(Pointer pointer)
{
    switch (pointer) {
    case Pointer::cross: return Qt::CrossCursor;
    case Pointer::fourWay: return Qt::SizeAllCursor;
    case Pointer::northSouth: return Qt::SizeVerCursor;
    case Pointer::hourglass: return Qt::WaitCursor;
    case Pointer::standard: break;
    }
    return Qt::ArrowCursor;
}

QRect freeAreaAt(const QRect& place)
{
    std::vector<QRect> free;
    for (const QScreen* screen : QGuiApplication::screens()) free.push_back(screen->availableGeometry());
    return areaOf(free, place);
}

QSize frameOf(const QWidget& window)
{
    return window.frameGeometry().size() - window.size();
}

} // namespace

QtToolkit::QtToolkit(FrmMain& frmMain, WindowList& windows)
    : askForFile(tarvelint::askForFile), m_frmMain(frmMain), m_windows(windows)
{
}

QtToolkit::~QtToolkit() = default;

void QtToolkit::showAll()
{
    for (int i = 0; i < static_cast<int>(Control::count); ++i) changed(static_cast<Control>(i));
    for (int index = 0; index < 2; ++index) showList(index);
    scrollBarChanged();
}

void QtToolkit::changed(Control control)
{
    m_frmMain.form().controls().show(control, m_frmMain.core().control(control));
}

void QtToolkit::listChanged(int index)
{
    // One change of thousands, often: shown once, when the command has ended.
    m_listStale.at(static_cast<std::size_t>(index)) = true;
}

void QtToolkit::showList(int index)
{
    const auto i = static_cast<std::size_t>(index);
    if (!m_listStale[i]) return;
    m_listStale[i] = false;
    const Engine& core = m_frmMain.core();
    m_frmMain.form().showList(index, core.record.labels, core.view.entriesAreLabels, core.view.chosen(index));
}

void QtToolkit::scrollBarChanged()
{
    m_frmMain.form().showScrollBar(m_frmMain.core().view.HScroll1);
}

void QtToolkit::pointerChanged()
{
    const Pointer pointer = m_frmMain.core().pointer();
    m_frmMain.form().plot(0).setCursor(cursorShape(pointer));
    if (pointer == Pointer::hourglass)
        m_frmMain.form().setCursor(Qt::WaitCursor);
    else
        m_frmMain.form().unsetCursor();
}

void QtToolkit::captionChanged()
{
    m_frmMain.form().setWindowTitle(QString::fromStdString(m_frmMain.core().caption()));
}

Surface& QtToolkit::surface(int index)
{
    return m_frmMain.form().plot(index).surface();
}

void QtToolkit::focus(Control control)
{
    if (QWidget* target = m_frmMain.form().controls().widget(control)) target->setFocus(Qt::OtherFocusReason);
}

void QtToolkit::beep()
{
    QApplication::beep();
}

Answer QtToolkit::messageBox(const Message& message)
{
    QWidget* over = &m_frmMain.form();
    // Nobody sees a question over a minimised window.
    if (over->isMinimized()) over->setWindowState(over->windowState() & ~Qt::WindowMinimized);
    if (m_columnSetup && m_columnSetup->isVisible()) over = m_columnSetup;
    ++m_questions;
    const Answer answer = askInBox(*over, message);
    --m_questions;
    return answer;
}

std::optional<ChosenFile> QtToolkit::openFileDialog(const FileDialog& dialog)
{
    return askForFile(&m_frmMain.form(), dialog, false);
}

std::optional<ChosenFile> QtToolkit::saveFileDialog(const FileDialog& dialog)
{
    return askForFile(&m_frmMain.form(), dialog, true);
}

void QtToolkit::showColumnSetup(bool blocking)
{
    if (!m_columnSetup) {
        m_columnSetup = new ColumnSetupDialog(
            *m_frmMain.core().forms.labelFrm, [this](const auto& body) { m_frmMain.command(body); },
            [this](const auto& body) { m_frmMain.answer(body); }, &m_frmMain.form());
        m_windows.opened(m_columnSetup);
    }
    m_columnSetup->showFor(blocking);
}

void QtToolkit::hideColumnSetup()
{
    if (m_columnSetup) m_columnSetup->hide();
}

void QtToolkit::unloadColumnSetup()
{
    if (!m_columnSetup) return;
    m_columnSetup->hide();
    m_columnSetup->deleteLater();
    m_columnSetup = nullptr;
}

void QtToolkit::cancelColumnSetup()
{
    if (m_columnSetup && m_columnSetup->isVisible()) m_columnSetup->reject();
}

void QtToolkit::showSaveContents()
{
    if (!m_saveContents) {
        m_saveContents = new SaveContentsDialog(
            *m_frmMain.core().forms.typeFrm, [this](const auto& body) { m_frmMain.answer(body); }, &m_frmMain.form());
        m_windows.opened(m_saveContents);
    }
    m_saveContents->ask();
}

void QtToolkit::unloadSaveContents()
{
    if (!m_saveContents) return;
    m_saveContents->deleteLater();
    m_saveContents = nullptr;
}

void QtToolkit::cancelQuestions()
{
    if (ChangeForm* open = m_windows.openChangeForm(); open != nullptr && open->isFor(m_frmMain.form())) open->reject();
    const auto dialogs = m_frmMain.form().findChildren<QDialog*>();
    for (QDialog* dialog : dialogs)
        if (dialog->isVisible() && dialog != m_columnSetup) dialog->reject();
}

std::optional<std::string> QtToolkit::askValue(const std::string& old)
{
    const auto typed = m_windows.changeForm().ask(m_frmMain.form(), old);
    if (m_frmMain.isToClose()) throw WindowClosing();
    return typed;
}

bool QtToolkit::isValueDialogOpen() const
{
    return m_windows.openChangeForm() != nullptr;
}

void QtToolkit::raiseValueDialog()
{
    if (ChangeForm* open = m_windows.openChangeForm()) open->comeForward();
}

void QtToolkit::setPlotToolTip(const std::string& text)
{
    m_frmMain.form().plot(0).setToolTip(QString::fromStdString(text));
}

void QtToolkit::paintStatus()
{
    m_frmMain.form().sbStatusBar().repaint();
}

void QtToolkit::letPendingEventsRun()
{
    QCoreApplication::processEvents();
    if (m_frmMain.isToClose()) throw WindowClosing();
}

void QtToolkit::letEventsRunFor(std::chrono::milliseconds time)
{
    QEventLoop loop;
    QTimer::singleShot(time, Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec();
    if (m_frmMain.isToClose()) throw WindowClosing();
}

void QtToolkit::unload()
{
    m_frmMain.unload();
}

Geometry QtToolkit::geometry() const
{
    const MainForm& form = m_frmMain.form();
    return {twips(form.pos().x()), twips(form.pos().y()), twips(form.width()), twips(form.height())};
}

void QtToolkit::setGeometry(const Geometry& geometry)
{
    const QSize size = QSize(pixels(geometry.width), pixels(geometry.height)) + frameOf(m_frmMain.form());
    placeWithFrame({QPoint(pixels(geometry.left), pixels(geometry.top)), size});
}

void QtToolkit::comeOntoTheScreen()
{
    const MainForm& form = m_frmMain.form();
    if (form.windowState() == Qt::WindowNoState) placeWithFrame(form.frameGeometry());
}

void QtToolkit::placeWithFrame(const QRect& wanted)
{
    MainForm& form = m_frmMain.form();
    const QRect free = freeAreaAt(wanted);
    const QSize frame = frameOf(form);
    form.setMinimumSize(leastSize(free.size() - frame));
    const QRect place = placedIn(free, wanted, form.minimumSize() + frame);
    form.move(place.topLeft());
    form.resize(place.size() - frame);
}

void QtToolkit::keepLeastSize()
{
    MainForm& form = m_frmMain.form();
    form.setMinimumSize(leastSize(form.screen()->availableSize() - frameOf(form)));
}

bool QtToolkit::isMinimised() const
{
    return m_frmMain.form().isMinimized();
}

Geometry QtToolkit::screen() const
{
    const QRect all = m_frmMain.form().screen()->geometry();
    return {0, 0, twips(all.right() + 1), twips(all.bottom() + 1)};
}

} // namespace tarvelint
