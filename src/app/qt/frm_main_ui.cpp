// SPDX-License-Identifier: MIT
#include "app/qt/frm_main.h"

#include "app/qt/plot_area.h"
#include "app/qt/window_list.h"
#include "dialogs/column_setup_dialog.h"
#include "dialogs/save_contents_dialog.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QScreen>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStatusBar>

#include <algorithm>
#include <cmath>

namespace tarvelint {

namespace {

constexpr double kTwipsPerPixel = 15;

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

QMessageBox::StandardButtons standardButtons(Buttons buttons)
{
    switch (buttons) {
    case Buttons::okCancel: return QMessageBox::Ok | QMessageBox::Cancel;
    case Buttons::yesNo: return QMessageBox::Yes | QMessageBox::No;
    case Buttons::yesNoCancel: return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    case Buttons::ok: break;
    }
    return QMessageBox::Ok;
}

QMessageBox::Icon standardIcon(Icon icon)
{
    switch (icon) {
    case Icon::information: return QMessageBox::Information;
    case Icon::warning: return QMessageBox::Warning;
    case Icon::critical: return QMessageBox::Critical;
    case Icon::none: break;
    }
    return QMessageBox::NoIcon;
}

Answer answerOf(int button, Buttons buttons)
{
    switch (button) {
    case QMessageBox::Ok: return Answer::ok;
    case QMessageBox::Yes: return Answer::yes;
    case QMessageBox::No: return Answer::no;
    default: break; // Esc, or the window was closed meanwhile
    }
    if (buttons == Buttons::ok) return Answer::ok;
    return buttons == Buttons::yesNo ? Answer::no : Answer::cancel;
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

/// `place` as it is where a screen shows some of it, else moved onto the first screen.
QRect ontoAScreen(QRect place)
{
    const auto screens = QGuiApplication::screens();
    const bool shown = std::any_of(screens.begin(), screens.end(), [&](const QScreen* screen) {
        return screen->availableGeometry().intersects(place);
    });
    if (shown || screens.isEmpty()) return place;
    const QRect free = screens.first()->availableGeometry();
    place.moveLeft(std::clamp(place.left(), free.left(), std::max(free.left(), free.right() + 1 - place.width())));
    place.moveTop(std::clamp(place.top(), free.top(), std::max(free.top(), free.bottom() + 1 - place.height())));
    return place;
}

} // namespace

void FrmMain::changed(Control control)
{
    showControl(control);
}

void FrmMain::showAll()
{
    for (int i = 0; i < static_cast<int>(Control::count); ++i) showControl(static_cast<Control>(i));
    for (int index = 0; index < 2; ++index) showList(index);
    scrollBarChanged();
}

void FrmMain::showControl(Control control)
{
    if (m_actions.contains(control)) return showAction(control);
    QWidget* shown = m_widgets[static_cast<std::size_t>(control)];
    if (!shown) return;
    const ControlState& state = m_core.control(control);
    showText(*shown, control);
    shown->setEnabled(isUsable(control));
    if (shown->isHidden() == state.visible) shown->setVisible(state.visible);
    if (auto* button = qobject_cast<QAbstractButton*>(shown); button && button->isCheckable())
        button->setChecked(state.checked);
}

void FrmMain::showAction(Control control)
{
    const ControlState& state = m_core.control(control);
    QAction* action = m_actions.at(control);
    action->setText(QString::fromStdString(state.text));
    action->setEnabled(isUsable(control));
    action->setVisible(state.visible);
    if (action->isCheckable()) action->setChecked(state.checked);
    const auto [first, last] = m_tools.equal_range(control);
    for (auto tool = first; tool != last; ++tool) tool->second->setEnabled(isUsable(control));
}

void FrmMain::showText(QWidget& shown, Control control)
{
    const QString text = QString::fromStdString(m_core.text(control));
    if (auto* label = qobject_cast<QLabel*>(&shown)) {
        if (label->text() == text && !label->accessibleName().isEmpty()) return;
        label->setText(text);
        // Readers are told the accessible name in place of the text.
        label->setAccessibleName(m_spoken[control] + QStringLiteral(": ") +
                                 (text.isEmpty() ? QStringLiteral("none") : text));
    } else if (auto* box = qobject_cast<QLineEdit*>(&shown); box && box->text() != text) {
        const auto cursor = box->cursorPosition();
        box->setText(text);
        box->setCursorPosition(box->hasFocus() ? cursor : 0);
    }
}

void FrmMain::listChanged(int index)
{
    // One change of thousands, often: shown once, when the command has ended.
    m_listStale.at(static_cast<std::size_t>(index)) = true;
}

void FrmMain::showList(int index)
{
    const auto i = static_cast<std::size_t>(index);
    if (!m_listStale[i]) return;
    m_listStale[i] = false;
    const QSignalBlocker silent(m_lists[i]);
    m_listModels[i]->entriesChanged();
    m_lists[i]->setCurrentIndex(m_core.varList[i].chosen);
}

void FrmMain::scrollBarChanged()
{
    const ScrollBar& bar = m_core.HScroll1;
    if (m_scrollBar->isSliderDown()) return; // under the user's thumb it stands where that holds it
    const QSignalBlocker silent(m_scrollBar);
    m_scrollBar->setRange(bar.Min, bar.Max);
    m_scrollBar->setSingleStep(std::max(bar.SmallChange, 1));
    m_scrollBar->setPageStep(bar.LargeChange);
    m_scrollBar->setValue(bar.Value);
}

void FrmMain::pointerChanged()
{
    m_plots[0]->setCursor(cursorShape(m_core.pointer));
    if (m_core.pointer == Pointer::hourglass)
        setCursor(Qt::WaitCursor);
    else
        unsetCursor();
}

void FrmMain::captionChanged()
{
    setWindowTitle(QString::fromStdString(m_core.caption));
}

Surface& FrmMain::surface(int index)
{
    return m_plots.at(static_cast<std::size_t>(index))->surface();
}

void FrmMain::focus(Control control)
{
    if (QWidget* target = m_widgets[static_cast<std::size_t>(control)]) target->setFocus(Qt::OtherFocusReason);
}

void FrmMain::beep()
{
    QApplication::beep();
}

namespace {

/// A message quotes what the user wrote, and an equation may be longer than the screen is high: then the middle stands
/// in the box's details.
void setWords(QMessageBox& box, const QString& text)
{
    constexpr int kMost = 1200;
    constexpr int kTail = 200;
    const bool fits = text.size() <= kMost;
    box.setText(fits ? text : text.left(kMost - kTail) + QStringLiteral(" ... ") + text.right(kTail));
    if (!fits) box.setDetailedText(text);
}

} // namespace

Answer FrmMain::messageBox(const Message& message)
{
    if (isMinimized()) showNormal(); // nobody sees a question over a minimised window
    QMessageBox box(m_columnSetup && m_columnSetup->isVisible() ? static_cast<QWidget*>(m_columnSetup) : this);
    box.setObjectName(QStringLiteral("messageBox"));
    box.setWindowModality(Qt::WindowModal);
    box.setTextFormat(Qt::PlainText);
    box.setIcon(standardIcon(message.icon));
    box.setWindowTitle(QString::fromStdString(message.title));
    setWords(box, QString::fromStdString(message.text));
    box.setStandardButtons(standardButtons(message.buttons));
    if (message.buttons == Buttons::yesNo) box.setEscapeButton(QMessageBox::No);
    ++m_questions;
    const int button = box.exec();
    --m_questions;
    return answerOf(button, message.buttons);
}

std::optional<ChosenFile> FrmMain::openFileDialog(const FileDialog& dialog)
{
    return askForFile(this, dialog, false);
}

std::optional<ChosenFile> FrmMain::saveFileDialog(const FileDialog& dialog)
{
    return askForFile(this, dialog, true);
}

void FrmMain::showColumnSetup(bool blocking)
{
    if (!m_columnSetup) {
        m_columnSetup = new ColumnSetupDialog(
            *m_core.labelFrm, [this](const auto& body) { command(body); }, this);
        m_windows.opened(m_columnSetup);
    }
    m_columnSetup->showFor(blocking);
}

void FrmMain::hideColumnSetup()
{
    if (m_columnSetup) m_columnSetup->hide();
}

void FrmMain::unloadColumnSetup()
{
    if (!m_columnSetup) return;
    m_columnSetup->hide();
    m_columnSetup->deleteLater();
    m_columnSetup = nullptr;
}

void FrmMain::showSaveContents()
{
    if (!m_saveContents) {
        m_saveContents = new SaveContentsDialog(*m_core.typeFrm, this);
        m_windows.opened(m_saveContents);
    }
    m_saveContents->ask();
}

void FrmMain::unloadSaveContents()
{
    if (!m_saveContents) return;
    m_saveContents->deleteLater();
    m_saveContents = nullptr;
}

void FrmMain::cancelDialogs()
{
    const auto dialogs = findChildren<QDialog*>();
    for (QDialog* dialog : dialogs)
        if (dialog->isVisible() && dialog != m_columnSetup) dialog->reject();
}

void FrmMain::paintStatus()
{
    statusBar()->repaint();
}

void FrmMain::letPendingEventsRun()
{
    QCoreApplication::processEvents();
    if (m_closeAsked) throw WindowClosing();
}

void FrmMain::unload()
{
    // The toolkit swallows the closing of a window under a modal box: while there is one, the window is busy.
    if (isBusy()) return closeLater();
    if (m_columnSetup && m_columnSetup->isVisible()) m_columnSetup->reject(); // it may block this window
    close();
}

Geometry FrmMain::geometry() const
{
    return {twips(pos().x()), twips(pos().y()), twips(width()), twips(height())};
}

void FrmMain::setGeometry(const Geometry& geometry)
{
    const QSize largest = QWidget::screen()->virtualSize().expandedTo(minimumSize());
    const QSize size =
        QSize(pixels(geometry.width), pixels(geometry.height)).expandedTo(minimumSize()).boundedTo(largest);
    const QRect place = ontoAScreen({QPoint(pixels(geometry.left), pixels(geometry.top)), size});
    move(place.topLeft());
    resize(place.size());
}

Geometry FrmMain::screen() const
{
    const QRect all = QWidget::screen()->geometry();
    return {0, 0, twips(all.right() + 1), twips(all.bottom() + 1)};
}

} // namespace tarvelint
