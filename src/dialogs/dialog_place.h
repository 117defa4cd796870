// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

namespace tarvelint {

/// Where a dialog stands so that the plots of its window stay in view: right of the window, else left of it, else below
/// it, wherever there is room for all of the dialog first; else over the window's middle. It does not leave the free
/// area; one larger than that begins at its upper left corner.
/// @param free    what panels leave of the screen, in device-independent pixels like all here
/// @param window  the window with its frame
/// @param dialog  the size of the dialog with its frame
/// @return the upper left corner of the dialog's frame
[[nodiscard]] QPoint besideWindow(const QRect& free, const QRect& window, QSize dialog);

} // namespace tarvelint
