// SPDX-License-Identifier: MIT
#pragma once

#include "window/surface.h"

#include <QColor>
#include <QImage>
#include <QLineF>
#include <QPainter>
#include <QPointF>
#include <QSize>
#include <QVarLengthArray>

#include <functional>
#include <optional>

namespace tarvelint {

/// The pixels of one plot area. They stay until erased or drawn over; a resize keeps what still fits. A drawing is
/// begun by its first operation and ended when somebody looks at the pixels.
class PlotSurface : public Surface {
public:
    /// Warm grey in every theme: lull bands are white and must stand out from it.
    static constexpr QRgb kBackground = qRgb(0xE4, 0xE2, 0xDC);

    /// @param drawn  called when a drawing begins: the area has to be painted anew
    explicit PlotSurface(std::function<void()> drawn);

    /// @param size   device-independent pixels
    /// @param ratio  device pixels to one of them; a new ratio erases
    void resize(QSize size, qreal ratio);
    [[nodiscard]] qreal ratio() const { return m_image.devicePixelRatio(); }
    /// Ends the drawing.
    [[nodiscard]] const QImage& pixels();

    [[nodiscard]] float scaleWidth() const override { return static_cast<float>(m_size.width()); }
    [[nodiscard]] float scaleHeight() const override { return static_cast<float>(m_size.height()); }
    void erase() override;
    void setPenWidth(int width) override;
    void moveTo(float x, float y) override { m_current = {x, y}; }
    void lineTo(float x, float y, Color color) override;
    void line(float x1, float y1, float x2, float y2, Color color) override;
    void filledBox(float x1, float y1, float x2, float y2, Color color) override;
    void circle(float x, float y, float radius, Color color, Color fill) override;

private:
    struct Box {
        float x1 = 0;
        float y1 = 0;
        float x2 = 0;
        float y2 = 0;
        Color color;
    };

    static constexpr qsizetype kLinesTogether = 64;

    void begin();
    /// For the next operation: begun, and with everything before it drawn.
    [[nodiscard]] QPainter& painter();
    void drawWaiting();
    void segment(QPointF from, QPointF to, Color color);
    [[nodiscard]] bool isNear(QPointF point) const;
    void usePen(Color color);

    std::function<void()> m_drawn;
    QSize m_size{1, 1};
    QImage m_image; // outlives its painter
    QPainter m_painter;
    // What waits for more of its kind; at most one of the two is there. Neighbouring bands of a row each are filled as
    // one box, line by line of the image, and lines of one colour are drawn together.
    std::optional<Box> m_waitingBox;
    QVarLengthArray<QLineF, kLinesTogether> m_waitingLines; ///< in the pen's colour and width
    std::optional<Color> m_penColor;                        ///< the painter's, in the present width; none: not set yet
    QPointF m_current;
    int m_penWidth = 1;
};

/// The part of a segment inside 0..size, widened by `margin` on every side; False when there is none. Far ends (values
/// reach 64000 units beyond the area) would overflow the rasteriser.
[[nodiscard]] bool clipSegment(QPointF& from, QPointF& to, QSizeF size, double margin);

} // namespace tarvelint
