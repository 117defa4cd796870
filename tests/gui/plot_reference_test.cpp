// SPDX-License-Identifier: MIT
#include "app/qt/plot_surface.h"

#include <QTest>

#include <array>
#include <functional>
#include <random>

namespace tarvelint::test {

namespace {

constexpr QSize kSize(120, 90);
constexpr std::array kColors{colors::kBlack, colors::kRed, colors::kCyan, colors::kBlue, colors::kWhite};

/// Draws every operation by itself, at once and with a pen of its own: slow, and plainly what was asked for.
class OneByOne : public Surface {
public:
    explicit OneByOne(qreal ratio) : m_image(kSize * ratio, QImage::Format_RGB32)
    {
        m_image.setDevicePixelRatio(ratio);
        m_image.fill(PlotSurface::kBackground);
    }
    [[nodiscard]] const QImage& pixels() const { return m_image; }

    [[nodiscard]] float scaleWidth() const override { return kSize.width(); }
    [[nodiscard]] float scaleHeight() const override { return kSize.height(); }
    void erase() override { m_image.fill(PlotSurface::kBackground); }
    void setPenWidth(int width) override { m_penWidth = width; }
    void moveTo(float x, float y) override { m_current = {x, y}; }
    void lineTo(float x, float y, Color color) override
    {
        QPointF from = m_current;
        QPointF to(x, y);
        m_current = to;
        if (!clipSegment(from, to, kSize, m_penWidth)) return;
        with(color, color, [&](QPainter& painter) { painter.drawLine(from, to); });
    }
    void line(float x1, float y1, float x2, float y2, Color color) override
    {
        moveTo(x1, y1);
        lineTo(x2, y2, color);
    }
    void filledBox(float x1, float y1, float x2, float y2, Color color) override
    {
        const QRectF box = QRectF(QPointF(x1, y1), QPointF(x2, y2)).normalized().intersected(QRectF({0, 0}, kSize));
        with(color, color, [&](QPainter& painter) { painter.fillRect(box, painter.brush()); });
    }
    void circle(float x, float y, float radius, Color color, Color fill) override
    {
        m_current = {x, y};
        with(color, fill, [&](QPainter& painter) { painter.drawEllipse(m_current, radius, radius); });
    }

private:
    static QColor qt(Color color) { return {color.red, color.green, color.blue}; }
    void with(Color color, Color fill, const std::function<void(QPainter&)>& draw)
    {
        QPainter painter(&m_image);
        painter.setPen(QPen(qt(color), m_penWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.setBrush(qt(fill));
        draw(painter);
    }

    QImage m_image;
    QPointF m_current;
    int m_penWidth = 1;
};

/// The same random drawing for every surface it is asked for.
class RandomDrawing {
public:
    RandomDrawing(unsigned seed, int penWidth) : m_engine(seed), m_penWidth(penWidth) {}

    void on(Surface& area)
    {
        area.setPenWidth(m_penWidth);
        trace(area);
        area.erase();
        bands(area);
        points(area);
        trace(area);
        area.line(0, number(90), 120, number(90), colors::kBlue);
        area.setPenWidth(5 - m_penWidth);
        trace(area);
        bands(area);
    }

private:
    float number(float below) { return below * (static_cast<float>(m_engine() % 65536) / 65536.0F); }
    Color color() { return kColors.at(m_engine() % kColors.size()); }

    /// Some of them beside the area; then boxes that touch, of other heights or backwards, and lines between them.
    void bands(Surface& area)
    {
        const auto step = static_cast<float>(m_penWidth);
        for (float x = -8; x < 128; x += step)
            if (m_engine() % 3 != 0) area.filledBox(x, 0, x + step, 90, m_engine() % 9 == 0 ? color() : colors::kWhite);
        const Color shared = color();
        area.filledBox(60, 10, 50, 30, shared);
        area.filledBox(50, 10, 60, 30, shared);
        area.filledBox(60, 10, 70, 31, shared);
        area.filledBox(70, 9, 80, 31, shared);
        area.filledBox(80, 9, 75, 31, shared);
        area.filledBox(75, 9, 85, 31, shared);
        area.line(40, 20, 90, 20, shared == colors::kWhite ? colors::kBlack : colors::kWhite);
        area.filledBox(45, 15, 47, 25, shared);
        area.line(40, 20, 90, 21, shared == colors::kWhite ? colors::kBlack : colors::kWhite);
    }
    void points(Surface& area)
    {
        area.moveTo(-number(5000), number(90));
        for (int i = 0; i < 5; ++i) {
            const float x = number(120);
            const float y = number(90);
            area.lineTo(x, y, colors::kRed);
            area.circle(x, y, 3, colors::kRed, i == 2 ? colors::kYellow : colors::kRed);
        }
    }
    void trace(Surface& area)
    {
        Color used = color();
        area.moveTo(0, number(90));
        for (float x = 0; x < 125; x += static_cast<float>(m_penWidth)) {
            if (m_engine() % 8 == 0) used = color();
            area.lineTo(x, height(), used);
        }
    }
    /// A gap, a value far off, the same height as a pixel, or anything.
    float height()
    {
        switch (m_engine() % 12) {
        case 0: return 0;
        case 1: return 64000;
        case 2: return -64000;
        case 3: return 45;
        case 4: return number(300) - 100;
        default: return number(90);
        }
    }

    std::mt19937 m_engine;
    int m_penWidth;
};

} // namespace

class PlotReferenceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void whatIsDrawnTogetherLooksLikeWhatIsDrawnOneByOne_data()
    {
        QTest::addColumn<qreal>("ratio");
        for (const qreal ratio : {1.0, 1.25, 1.5, 2.0}) QTest::addRow("%g", ratio) << ratio;
    }
    void whatIsDrawnTogetherLooksLikeWhatIsDrawnOneByOne()
    {
        QFETCH(const qreal, ratio);
        for (unsigned seed = 0; seed < 200; ++seed) {
            const int penWidth = 1 + static_cast<int>(seed % 4);
            OneByOne reference(ratio);
            PlotSurface surface([] {});
            surface.resize(kSize, ratio);
            RandomDrawing(seed, penWidth).on(reference);
            RandomDrawing(seed, penWidth).on(surface);
            QVERIFY2(surface.pixels() == reference.pixels(), qPrintable(QString::number(seed)));
        }
    }
};

} // namespace tarvelint::test

QTEST_MAIN(tarvelint::test::PlotReferenceTest)
#include "plot_reference_test.moc"
