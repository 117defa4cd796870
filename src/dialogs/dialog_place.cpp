// SPDX-License-Identifier: MIT
#include "dialogs/dialog_place.h"

#include <algorithm>

namespace tarvelint {

namespace {

/// The start of a stretch moved into an area from `from` up to but not including `to`.
int within(int from, int to, int start, int length)
{
    return std::max(from, std::min(start, to - length));
}

} // namespace

QPoint besideWindow(const QRect& free, const QRect& window, QSize dialog)
{
    const auto left = [&](int start) { return within(free.left(), free.right() + 1, start, dialog.width()); };
    const auto top = [&](int start) { return within(free.top(), free.bottom() + 1, start, dialog.height()); };
    const QPoint places[] = {{window.right() + 1, top(window.top())},
                             {window.left() - dialog.width(), top(window.top())},
                             {left(window.left()), window.bottom() + 1}};
    for (const QPoint& place : places)
        if (free.contains(QRect(place, dialog))) return place;
    const QPoint over = window.center() - QRect({}, dialog).center();
    return {left(over.x()), top(over.y())};
}

} // namespace tarvelint
