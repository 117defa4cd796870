// SPDX-License-Identifier: MIT
#include "app/qt/window_place.h"

#include "view/window_layout.h"

#include <algorithm>
#include <cstdint>

namespace tarvelint {

namespace {

std::int64_t shownIn(const QRect& free, const QRect& place)
{
    const QRect shown = free.intersected(place);
    return std::int64_t{shown.width()} * shown.height();
}

} // namespace

QSize leastSize(QSize free)
{
    return QSize(kLeastWidth, kLeastHeight).boundedTo(free);
}

QRect areaOf(std::span<const QRect> free, const QRect& place)
{
    return *std::ranges::max_element(free, {}, [&](const QRect& area) { return shownIn(area, place); });
}

QRect placedIn(const QRect& free, QRect place, QSize least)
{
    place.setSize(place.size().expandedTo(least).boundedTo(free.size()));
    place.moveLeft(std::clamp(place.left(), free.left(), free.right() + 1 - place.width()));
    place.moveTop(std::clamp(place.top(), free.top(), free.bottom() + 1 - place.height()));
    return place;
}

} // namespace tarvelint
