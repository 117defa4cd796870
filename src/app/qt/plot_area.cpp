// SPDX-License-Identifier: MIT
#include "app/qt/plot_area.h"

#include <QPainter>
#include <QTimer>

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

} // namespace tarvelint
