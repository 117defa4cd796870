// SPDX-License-Identifier: MIT
#pragma once

#include "window/window.h"

#include <functional>
#include <utility>
#include <vector>

namespace tarvelint {

/// Thrown out of `letPendingEventsRun` when the window is to go: the running command ends without a word.
class WindowClosing {};

/// The way by which user actions enter a window. Whatever the core throws ends here as one message box.
class HandlerBoundary {
public:
    explicit HandlerBoundary(Window& window) : m_window(window) {}

    /// A menu entry, button or key: dropped, never queued, while another command runs or the button is held on the
    /// plot. When it fails, pointer and status text are as they were before it.
    void command(const std::function<void()>& body);
    /// A button or the closing of a dialog that a command may be waiting for: always taken, also in the middle of a
    /// command, which goes on when the answer fails.
    void answer(const std::function<void()>& body);
    /// What the pointer does on the plot: like a command, also while it holds the button.
    void gesture(const std::function<void()>& body);
    /// The key or press that ends scrolling at an edge: a command once that has unwound.
    void afterwards(std::function<void()> body) { m_afterwards.push_back(std::move(body)); }
    [[nodiscard]] bool isWaitingAfterwards() const { return !m_afterwards.empty(); }
    /// A repaint, resize or pointer position: always taken, also in the middle of a command.
    void record(const std::function<void()>& body);
    [[nodiscard]] bool isBusy() const { return m_busy; }

private:
    /// False when `body` did not run to its end.
    [[nodiscard]] bool guarded(const std::function<void()>& body);
    void remindOfValueDialog();
    void show(const std::string& text, const std::string& title);

    Window& m_window;
    bool m_busy = false;
    std::vector<std::function<void()>> m_afterwards;
};

} // namespace tarvelint
