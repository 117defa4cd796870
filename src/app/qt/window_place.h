// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>
#include <QSize>

#include <span>

namespace tarvelint {

/// Places and sizes are in device-independent pixels; a free area is what panels leave of a screen.

/// The least size of a window on a screen with this free area: 7800 x 6650 twips rounded up, or what there is.
[[nodiscard]] QSize leastSize(QSize free);

/// The free area a window at this place belongs to: the one that shows most of it, else the first. There is one.
[[nodiscard]] QRect areaOf(std::span<const QRect> free, const QRect& place);

/// The place of a window moved wholly into a free area; it is made larger where it is below its least size, and smaller
/// where it is larger than the area.
[[nodiscard]] QRect placedIn(const QRect& free, QRect place, QSize least);

} // namespace tarvelint
