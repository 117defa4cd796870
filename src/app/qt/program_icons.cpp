// SPDX-License-Identifier: MIT
#include "app/qt/program_icons.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QSvgRenderer>

#include <memory>
#include <utility>

/// `Q_INIT_RESOURCE` works outside of namespaces only.
static void initTarvelintResources()
{
    Q_INIT_RESOURCE(tarvelint);
}

namespace tarvelint {

namespace {

QPixmap drawn(QSvgRenderer& drawing, QSize size)
{
    QPixmap pixels(size);
    pixels.fill(Qt::transparent);
    QPainter painter(&pixels);
    drawing.render(&painter);
    return pixels;
}

class GlyphEngine : public QIconEngine {
public:
    explicit GlyphEngine(std::shared_ptr<QSvgRenderer> drawing) : m_drawing(std::move(drawing)) {}

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State) override
    {
        QPixmap pixels = drawn(*m_drawing, size);
        QPainter painter(&pixels);
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(pixels.rect(), color(mode));
        return pixels;
    }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override
    {
        painter->drawPixmap(rect, pixmap(rect.size() * painter->device()->devicePixelRatioF(), mode, state));
    }

    [[nodiscard]] QIconEngine* clone() const override { return new GlyphEngine(*this); }

private:
    /// Themes do not all make disabled text pale, but all tell text from ground.
    static QColor color(QIcon::Mode mode)
    {
        constexpr float kPale = 0.4F;
        QColor text = QGuiApplication::palette().color(QPalette::Active, QPalette::WindowText);
        if (mode == QIcon::Disabled) text.setAlphaF(kPale);
        return text;
    }

    std::shared_ptr<QSvgRenderer> m_drawing;
};

} // namespace

void useProgramResources()
{
    initTarvelintResources();
}

QIcon glyphIcon(const QString& file)
{
    useProgramResources();
    return QIcon(new GlyphEngine(std::make_shared<QSvgRenderer>(file)));
}

QIcon programIcon()
{
    useProgramResources();
    QSvgRenderer drawing(QStringLiteral(":/tarvelint.svg"));
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64, 128, 256}) icon.addPixmap(drawn(drawing, {size, size}));
    return icon;
}

} // namespace tarvelint
