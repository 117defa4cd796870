// SPDX-License-Identifier: MIT
#pragma once

#include "window/ui.h"

class QWidget;

namespace tarvelint {

/// Shows a message over a window, which takes no input meanwhile, and waits for the answer: Enter gives OK or Yes,
/// Esc and the frame's close button the least harmful one.
[[nodiscard]] Answer askInBox(QWidget& over, const Message& message);

} // namespace tarvelint
