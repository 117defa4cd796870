// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

class QKeyEvent;

namespace tarvelint {

class Engine;

/// What a key does that no text box, list or button has taken: the keys of the key table, those that scroll, and those
/// of the row cursor. Empty for a key that does nothing here.
/// @param isOnPlot  the main area has the focus: Enter acts there
[[nodiscard]] std::function<void()> plotKeyHandler(Engine& engine, const QKeyEvent& key, bool isOnPlot);

} // namespace tarvelint
