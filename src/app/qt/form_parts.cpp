// SPDX-License-Identifier: MIT
#include "app/qt/form_parts.h"

#include <QEvent>
#include <QPainter>
#include <QStyle>
#include <QVBoxLayout>
#include <QWheelEvent>

namespace tarvelint {

void ElidedLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, width());
    style()->drawItemText(&painter, rect(), static_cast<int>(alignment()), palette(), isEnabled(), shown,
                          foregroundRole());
    setToolTip(shown == text() ? QString() : QStringLiteral("<qt>%1</qt>").arg(text().toHtmlEscaped()));
}

void CalmList::wheelEvent(QWheelEvent* event)
{
    event->ignore(); // for what lies around it
}

void PlotGrid::setGeometry(const QRect& place)
{
    const int below = itemAtPosition(2, 1)->sizeHint().height() + 2 * verticalSpacing();
    QGridLayout::setGeometry(place.adjusted(0, 0, 0, -((place.height() - below) % 2)));
}

PlotFrame::PlotFrame(QWidget* plot)
{
    setFrameStyle(QFrame::Box | QFrame::Plain);
    auto* inside = new QVBoxLayout(this);
    inside->setContentsMargins(0, 0, 0, 0);
    inside->addWidget(plot);
    plot->installEventFilter(this);
    setLine(false);
}

bool PlotFrame::eventFilter(QObject*, QEvent* event)
{
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut)
        setLine(event->type() == QEvent::FocusIn);
    return false;
}

} // namespace tarvelint
