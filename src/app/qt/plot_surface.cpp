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
    if (m_painter.isActive()) {
        drawWaiting();
        m_painter.end();
    }
    return m_image;
}

void PlotSurface::begin()
{
    if (m_painter.isActive()) return;
    m_painter.begin(&m_image);
    m_painter.setRenderHint(QPainter::Antialiasing, false);
    m_penColor.reset();
    m_drawn();
}

QPainter& PlotSurface::painter()
{
    begin();
    drawWaiting();
    return m_painter;
}

void PlotSurface::erase()
{
    painter().fillRect(QRect({0, 0}, m_size), QColor(kBackground));
}

void PlotSurface::setPenWidth(int width)
{
    if (m_painter.isActive()) drawWaiting();
    m_penWidth = width;
    m_penColor.reset();
}

void PlotSurface::usePen(Color color)
{
    if (m_penColor == color) return;
    m_penColor = color;
    // Round caps cover both ends, so joined segments show no gap and a segment of no length is a dot.
    m_painter.setPen(QPen(qt(color), m_penWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
}

bool PlotSurface::isNear(QPointF point) const
{
    const double margin = m_penWidth;
    return point.x() >= -margin && point.x() <= m_size.width() + margin && point.y() >= -margin &&
           point.y() <= m_size.height() + margin;
}

void PlotSurface::segment(QPointF from, QPointF to, Color color)
{
    if (!(isNear(from) && isNear(to)) && !clipSegment(from, to, m_size, m_penWidth)) return;
    begin();
    if (m_waitingBox || m_penColor != color || m_waitingLines.size() == kLinesTogether) drawWaiting();
    usePen(color);
    m_waitingLines.append({from, to});
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
    begin();
    const Box box{x1, y1, x2, y2, color};
    const bool joins = m_waitingBox && m_waitingBox->color == color && m_waitingBox->x2 == x1 && x1 <= x2 &&
                       m_waitingBox->x1 <= x1 && m_waitingBox->y1 == y1 && m_waitingBox->y2 == y2;
    if (joins) {
        m_waitingBox->x2 = x2;
    } else {
        drawWaiting();
        m_waitingBox = box;
    }
}

void PlotSurface::drawWaiting()
{
    m_painter.drawLines(m_waitingLines.data(), static_cast<int>(m_waitingLines.size()));
    m_waitingLines.clear();
    if (!m_waitingBox) return;
    const Box& box = *m_waitingBox;
    const QRectF filled = QRectF(QPointF(box.x1, box.y1), QPointF(box.x2, box.y2)).normalized();
    m_painter.fillRect(filled.intersected(QRectF({0, 0}, m_size)), qt(box.color));
    m_waitingBox.reset();
}

void PlotSurface::circle(float x, float y, float radius, Color color, Color fill)
{
    m_current = {x, y};
    const double reach = static_cast<double>(radius) + m_penWidth;
    const QRectF seen = QRectF({0, 0}, m_size).adjusted(-reach, -reach, reach, reach);
    if (!seen.contains(m_current)) return;
    QPainter& onImage = painter();
    usePen(color);
    onImage.setBrush(qt(fill));
    onImage.drawEllipse(m_current, radius, radius);
}

} // namespace tarvelint
