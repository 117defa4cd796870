// SPDX-License-Identifier: MIT
#include "app/qt/plot_input.h"

#include "app/qt/frm_main.h"
#include "app/qt/plot_area.h"
#include "app/qt/plot_key_events.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>

#include <optional>

namespace tarvelint {

PlotInput::PlotInput(FrmMain& frmMain) : m_frmMain(frmMain), m_core(frmMain.core()), m_form(frmMain.form())
{
    const PlotArea& plot = m_form.plot(0);
    connect(&plot, &PlotArea::pressed, this, &PlotInput::takePress);
    connect(&plot, &PlotArea::doubleClicked, this, [this](const PointerPress& press) {
        if (press.button != PointerButton::left) return takePress(press);
        if (endsScrolling([this] { m_core.pointing.Picture1_DblClick(); })) return;
        m_frmMain.gesture([&] { m_core.pointing.Picture1_DblClick(); });
    });
    connect(&plot, &PlotArea::moved, this, &PlotInput::takeMove);
    connect(&plot, &PlotArea::released, this, &PlotInput::takeRelease);
    connect(&plot, &PlotArea::left, this, [this] { m_frmMain.record([&] { m_core.pointing.endHoverScrolling(); }); });
    m_form.installEventFilter(this);
    const auto buttons = m_form.findChildren<QAbstractButton*>();
    for (QAbstractButton* button : buttons) button->installEventFilter(this);
}

void PlotInput::takePress(const PointerPress& press)
{
    if (endsScrolling([this, press] { m_core.pointing.Picture1_MouseDown(press); })) return;
    m_frmMain.gesture([&] { m_core.pointing.Picture1_MouseDown(press); });
}

void PlotInput::takeMove(float x, bool isButtonDown)
{
    if (m_frmMain.isBusy()) return m_frmMain.record([&] { m_core.pointing.moveWhileBusy(x); });
    // A release while a message stood in the way went nowhere.
    if (m_core.view.isHeld && !isButtonDown) m_frmMain.gesture([&] { m_core.pointing.Picture1_MouseUp(x); });
    m_frmMain.gesture([&] { m_core.pointing.Picture1_MouseMove(x); });
}

void PlotInput::takeRelease(PointerButton button, float x)
{
    if (m_core.boundary.isWaitingAfterwards()) // its press is: both are carried out once scrolling has ended
        return m_core.boundary.afterwards([this, x] { m_core.pointing.Picture1_MouseUp(x); });
    if (button != m_core.view.heldButton) return;
    if (m_frmMain.isBusy()) return m_frmMain.record([&] { m_core.pointing.releaseWhileBusy(); });
    m_frmMain.gesture([&] { m_core.pointing.Picture1_MouseUp(x); });
}

bool PlotInput::endsScrolling(const std::function<void()>& body)
{
    if (!m_core.scrolling.isAtEdge() || m_core.view.isHeld) return false;
    m_frmMain.record([&] { m_core.pointing.endHoverScrolling(); });
    m_core.boundary.afterwards(body);
    return true;
}

void PlotInput::showRowCursor()
{
    const bool hasCursor = m_core.view.rowCursor >= 0;
    m_form.plot(0).showRowCursor(hasCursor ? std::optional(static_cast<int>(m_core.keys.cursorX())) : std::nullopt);
}

/// A button in focus would move the focus; arrows belong to the selection.
bool PlotInput::takeArrow(const QKeyEvent& key)
{
    const bool isArrow = key.key() >= Qt::Key_Left && key.key() <= Qt::Key_Down;
    return isArrow && takePlotKey(key);
}

/// A key that no control in focus has taken.
bool PlotInput::takePlotKey(const QKeyEvent& key)
{
    const QWidget* focused = m_form.focusWidget();
    if (qobject_cast<const QLineEdit*>(focused) != nullptr || qobject_cast<const QComboBox*>(focused) != nullptr)
        return false;
    if (key.key() == Qt::Key_Escape && m_core.view.isHeld) {
        m_frmMain.record([&] { m_core.pointing.endGesture(); });
        return true;
    }
    const std::function<void()> body = plotKeyHandler(m_core, key, focused == &m_form.plot(0));
    if (!body) return false;
    if (!endsScrolling(body)) m_frmMain.command(body);
    return true;
}

bool PlotInput::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress) {
        const auto& key = *static_cast<QKeyEvent*>(event);
        return watched == &m_form ? takePlotKey(key) : takeArrow(key);
    }
    if (event->type() != QEvent::WindowDeactivate || watched != &m_form) return false;
    if (m_core.view.isHeld || m_core.view.grabbedPoint >= 0) m_frmMain.record([&] { m_core.pointing.endGesture(); });
    m_frmMain.record([&] { m_core.pointing.endHoverScrolling(); });
    return false;
}

} // namespace tarvelint
