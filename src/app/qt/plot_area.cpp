// SPDX-License-Identifier: MIT
#include "app/qt/plot_area.h"

#include <QPainter>
#include <QTimer>

namespace tarvelint {

PlotArea::PlotArea(int index, QWidget* parent) : QWidget(parent), m_index(index), m_surface([this] { update(); })
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void PlotArea::paintEvent(QPaintEvent*)
{
    QPainter(this).drawImage(0, 0, m_surface.pixels());
    // A window that moves to a screen of another scale is painted anew, but not told why.
    if (m_surface.ratio() == devicePixelRatioF()) return;
    QTimer::singleShot(0, this, [this] {
        m_surface.resize(size(), devicePixelRatioF());
        Q_EMIT scaleChanged();
    });
}

void PlotArea::resizeEvent(QResizeEvent*)
{
    m_surface.resize(size(), devicePixelRatioF());
    Q_EMIT resized(m_index);
}

} // namespace tarvelint
