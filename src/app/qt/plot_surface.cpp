// SPDX-License-Identifier: MIT
#include "app/qt/plot_surface.h"

#include <algorithm>
#include <utility>

namespace tarvelint {

namespace {

QColor qt(Color color)
{
    return {color.red, color.green, color.blue};
}

} // namespace

bool clipSegment(QPointF& from, QPointF& to, QSizeF size, double margin)
{
    const QPointF step = to - from;
    double enter = 0;
    double leave = 1;
    // Liang and Barsky 1984: each edge narrows the stretch of the segment that is inside.
    const auto narrow = [&](double direction, double distance) {
        if (direction == 0) return distance >= 0;
        const double at = distance / direction;
        if (direction < 0)
            enter = std::max(enter, at);
        else
            leave = std::min(leave, at);
        return enter <= leave;
    };
    const bool visible = narrow(-step.x(), from.x() + margin) && narrow(step.x(), size.width() + margin - from.x()) &&
                         narrow(-step.y(), from.y() + margin) && narrow(step.y(), size.height() + margin - from.y());
    if (!visible) return false;
    const QPointF start = from;
    if (leave < 1) to = start + leave * step;
    if (enter > 0) from = start + enter * step;
    return true;
}

PlotSurface::PlotSurface(std::function<void()> drawn) : m_drawn(std::move(drawn)), m_image(1, 1, QImage::Format_RGB32)
{
    m_image.fill(kBackground);
}

void PlotSurface::resize(QSize size, qreal ratio)
{
    const QSize wanted = size.expandedTo({1, 1});
    if (wanted == m_size && ratio == this->ratio()) return;
    const QImage old = pixels();
    QImage fresh(wanted * ratio, QImage::Format_RGB32);
    fresh.setDevicePixelRatio(ratio);
    fresh.fill(kBackground);
    if (ratio == old.devicePixelRatio()) QPainter(&fresh).drawImage(0, 0, old);
    m_image = std::move(fresh);
    m_size = wanted;
    m_drawn();
}

const QImage& PlotSurface::pixels()
{
    if (m_painter.isActive()) m_painter.end();
    return m_image;
}

QPainter& PlotSurface::painter()
{
    if (!m_painter.isActive()) {
        m_painter.begin(&m_image);
        m_painter.setRenderHint(QPainter::Antialiasing, false);
        m_drawn();
    }
    return m_painter;
}

void PlotSurface::erase()
{
    painter().fillRect(QRect({0, 0}, m_size), QColor(kBackground));
}

void PlotSurface::usePen(Color color)
{
    // Round caps cover both ends, so joined segments show no gap and a segment of no length is a dot.
    const QPen pen(qt(color), m_penWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    if (painter().pen() != pen) m_painter.setPen(pen);
}

void PlotSurface::segment(QPointF from, QPointF to, Color color)
{
    if (!clipSegment(from, to, m_size, m_penWidth)) return;
    usePen(color);
    m_painter.drawLine(from, to);
}

void PlotSurface::lineTo(float x, float y, Color color)
{
    const QPointF end(x, y);
    segment(m_current, end, color);
    m_current = end;
}

void PlotSurface::line(float x1, float y1, float x2, float y2, Color color)
{
    segment({x1, y1}, {x2, y2}, color);
    m_current = {x2, y2};
}

void PlotSurface::filledBox(float x1, float y1, float x2, float y2, Color color)
{
    const QRectF box = QRectF(QPointF(x1, y1), QPointF(x2, y2)).normalized();
    painter().fillRect(box.intersected(QRectF({0, 0}, m_size)), qt(color));
}

void PlotSurface::circle(float x, float y, float radius, Color color, Color fill)
{
    m_current = {x, y};
    const double reach = static_cast<double>(radius) + m_penWidth;
    const QRectF seen = QRectF({0, 0}, m_size).adjusted(-reach, -reach, reach, reach);
    if (!seen.contains(m_current)) return;
    usePen(color);
    m_painter.setBrush(qt(fill));
    m_painter.drawEllipse(m_current, radius, radius);
}

} // namespace tarvelint
