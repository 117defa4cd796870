// SPDX-License-Identifier: MIT
#include "app/qt/plot_area.h"

#include <QMouseEvent>
#include <QPainter>
#include <QTimer>

#include <algorithm>

namespace tarvelint {

namespace {

float xOf(const QMouseEvent& event)
{
    return static_cast<float>(event.position().x());
}

PointerButton buttonOf(const QMouseEvent& event)
{
    switch (event.button()) {
    case Qt::LeftButton: return PointerButton::left;
    case Qt::RightButton: return PointerButton::right;
    default: return PointerButton::other;
    }
}

PointerPress pressOf(const QMouseEvent& event)
{
    return {buttonOf(event), event.modifiers() == Qt::ShiftModifier, xOf(event)};
}

} // namespace

PlotArea::PlotArea(int index, QWidget* parent) : QWidget(parent), m_index(index), m_surface([this] { update(); })
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
}

void PlotArea::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.drawImage(0, 0, m_surface.pixels());
    if (m_index == 0) painter.fillRect(0, height() - 1, width(), 1, palette().mid()); // the companion follows at once
    if (m_cursor) {
        painter.setPen(QPen(palette().color(QPalette::Highlight), 1, Qt::DashLine));
        const int x = std::min(*m_cursor, width() - 1); // the record's last row may lie just beyond the edge
        painter.drawLine(x, 0, x, height() - 1);
    }
    // A window that moves to a screen of another scale is painted anew, but not told why.
    if (m_surface.ratio() == devicePixelRatioF()) return;
    QTimer::singleShot(0, this, [this] {
        fitSurface();
        Q_EMIT scaleChanged();
    });
}

void PlotArea::showRowCursor(std::optional<int> x)
{
    if (x == m_cursor) return;
    m_cursor = x;
    update();
}

void PlotArea::mousePressEvent(QMouseEvent* event)
{
    setFocus(Qt::MouseFocusReason);
    Q_EMIT pressed(pressOf(*event));
}

void PlotArea::mouseMoveEvent(QMouseEvent* event)
{
    Q_EMIT moved(xOf(*event), event->buttons() != Qt::NoButton);
}

void PlotArea::mouseReleaseEvent(QMouseEvent* event)
{
    Q_EMIT released(buttonOf(*event), xOf(*event));
}

void PlotArea::mouseDoubleClickEvent(QMouseEvent* event)
{
    Q_EMIT doubleClicked(pressOf(*event));
}

} // namespace tarvelint
