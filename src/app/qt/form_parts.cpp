// SPDX-License-Identifier: MIT
#include "app/qt/form_parts.h"

#include <QEvent>
#include <QPainter>
#include <QStyle>
#include <QWheelEvent>

#include <cstdlib>

namespace tarvelint {

void ElidedLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, width());
    style()->drawItemText(&painter, rect(), static_cast<int>(alignment()), palette(), isEnabled(), shown,
                          foregroundRole());
}

bool ElidedLabel::event(QEvent* event)
{
    if (event->type() == QEvent::ToolTip)
        setToolTip(fontMetrics().horizontalAdvance(text()) > width() ? wholeTextTip(text()) : QString());
    return QLabel::event(event);
}

void CalmList::wheelEvent(QWheelEvent* event)
{
    event->ignore(); // for what lies around it
}

RangeBox::RangeBox(QWidget* parent) : QLineEdit(parent)
{
    setFont(smallPrint(font()));
    setAlignment(Qt::AlignRight);
    connect(this, &QLineEdit::textChanged, this, [this](const QString& text) { setToolTip(wholeTextTip(text)); });
}

void PlotsFrame::watch(QWidget* plot)
{
    m_plots.push_back(plot);
    plot->installEventFilter(this);
}

bool PlotsFrame::eventFilter(QObject*, QEvent* event)
{
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) update();
    if (event->type() != QEvent::Wheel) return false;
    turn(*static_cast<QWheelEvent*>(event));
    return true;
}

void PlotsFrame::turn(const QWheelEvent& event)
{
    // Some desktops turn the wheel sideways while Alt is held, touchpads move both ways at once.
    const QPoint turned = event.angleDelta();
    const int angle = std::abs(turned.x()) > std::abs(turned.y()) ? turned.x() : turned.y();
    if (angle != 0) Q_EMIT wheelTurned(angle, event.modifiers().testFlag(Qt::ControlModifier));
}

void PlotsFrame::paintEvent(QPaintEvent*)
{
    constexpr int kBar = 2;
    QPainter painter(this);
    for (const QWidget* plot : m_plots)
        if (plot->hasFocus())
            painter.fillRect(plot->x() - kBar, plot->y(), kBar, plot->height(), palette().highlight());
}

QString wholeTextTip(const QString& text)
{
    return text.isEmpty() ? QString() : QStringLiteral("<qt>%1</qt>").arg(text.toHtmlEscaped());
}

QFont smallPrint(const QFont& font)
{
    constexpr int kPixels = 9;
    QFont smaller(font);
    smaller.setPixelSize(kPixels);
    return smaller;
}

} // namespace tarvelint
