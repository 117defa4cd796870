// SPDX-License-Identifier: MIT
#include "dialogs/contents_area.h"

#include <QLayout>
#include <QScrollBar>

namespace tarvelint {

ContentsArea::ContentsArea(QWidget* contents)
{
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus); // the focus is the contents' own
    setWidgetResizable(true);
    setWidget(contents);
    contents->layout()->setContentsMargins({});
}

void ContentsArea::setRoom(QSize room)
{
    m_room = {QWIDGETSIZE_MAX, QWIDGETSIZE_MAX};
    widget()->layout()->setContentsMargins({});
    constexpr int kGap = 6; // between the contents and their scroll bar
    if (sizeHint().height() > room.height()) widget()->layout()->setContentsMargins(0, 0, kGap, 0);
    m_room = room;
    updateGeometry();
}

void ContentsArea::bringIntoView(QWidget* widget)
{
    if (!this->widget()->isAncestorOf(widget)) return;
    const QSize seen = viewport()->size();
    if (widget->width() > seen.width() || widget->height() > seen.height()) return;
    // Not ensureWidgetVisible(): of a text box that shows no more than the line of the cursor.
    const QPoint middle = widget->mapTo(this->widget(), widget->rect().center());
    ensureVisible(middle.x(), middle.y(), widget->width() / 2 + 1, widget->height() / 2 + 1);
}

QSize ContentsArea::sizeHint() const
{
    const QLayout& contents = *widget()->layout();
    QSize wanted = contents.totalSizeHint();
    // Wrapped texts count with the height they need at this width.
    if (contents.hasHeightForWidth()) wanted.setHeight(contents.totalHeightForWidth(wanted.width()));
    return withinRoom(wanted);
}

QSize ContentsArea::minimumSizeHint() const
{
    const QLayout& contents = *widget()->layout();
    return contents.hasHeightForWidth() ? sizeHint() : withinRoom(contents.totalMinimumSize());
}

QSize ContentsArea::withinRoom(QSize wanted) const
{
    if (wanted.height() > m_room.height()) wanted.rwidth() += verticalScrollBar()->sizeHint().width();
    if (wanted.width() > m_room.width()) wanted.rheight() += horizontalScrollBar()->sizeHint().height();
    return wanted.boundedTo(m_room);
}

} // namespace tarvelint
