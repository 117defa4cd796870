// SPDX-License-Identifier: MIT
#include "app/qt/plot_area.h"

#include <QPainter>
#include <QTimer>
#include <QWheelEvent>

#include <cstdlib>

namespace tarvelint {

PlotArea::PlotArea(int index, QWidget* parent) : QWidget(parent), m_index(index), m_surface([this] { update(); })
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::StrongFocus);
}

void PlotArea::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.drawImage(0, 0, m_surface.pixels());
    if (m_index == 0) painter.fillRect(0, height() - 1, width(), 1, palette().mid()); // the companion follows at once
    // A window that moves to a screen of another scale is painted anew, but not told why.
    if (m_surface.ratio() == devicePixelRatioF()) return;
    QTimer::singleShot(0, this, [this] {
        fitSurface();
        Q_EMIT scaleChanged();
    });
}

void PlotArea::wheelEvent(QWheelEvent* event)
{
    // Some desktops turn the wheel sideways while Alt is held, touchpads move both ways at once.
    const QPoint turned = event->angleDelta();
    const int angle = std::abs(turned.x()) > std::abs(turned.y()) ? turned.x() : turned.y();
    if (angle != 0) Q_EMIT wheelTurned(angle, event->modifiers().testFlag(Qt::ControlModifier));
    event->accept();
}

} // namespace tarvelint
