// SPDX-License-Identifier: MIT
#pragma once

#include "data/settings_store.h"
#include "window/controls.h"
#include "window/surface.h"

#include <chrono>
#include <string>

namespace tarvelint {

enum class Icon { none, information, warning, critical };
enum class Buttons { ok, okCancel, yesNo, yesNoCancel };
enum class Answer { ok, cancel, yes, no };

/// A message box; texts are UTF-8.
struct Message {
    std::string text;
    std::string title;
    Buttons buttons = Buttons::ok;
    Icon icon = Icon::none;
};

/// Pointer shapes over the plot, by the numbers commands know them by.
enum class Pointer { standard = 0, cross = 2, fourWay = 5, northSouth = 7, hourglass = 11 };

/// The toolkit as a command sees it. State lives in the window; `...Changed` says that it is to be shown
/// again. Everything modal goes through here, so a test that is asked an unexpected question can fail at once.
class Ui {
public:
    virtual ~Ui() = default;

    /// Text, check mark, enabledness or visibility of a control.
    virtual void changed(Control control) = 0;
    virtual void listChanged(int index) = 0; ///< entries or choice of `varList(index)`
    virtual void scrollBarChanged() = 0;
    virtual void pointerChanged() = 0;
    virtual void captionChanged() = 0;

    /// Plot area 0 (main) or 1 (companion); lives as long as the window.
    [[nodiscard]] virtual Surface& surface(int index) = 0;
    /// Keys go to this control from now on.
    virtual void focus(Control control) = 0;
    virtual void beep() = 0;
    /// What the main area says beside the pointer; empty for nothing.
    virtual void setPlotToolTip(const std::string& text) = 0;
    /// Waits for the answer. A box closed in any other way gives the least harmful one: OK where there is nothing else,
    /// No to yes or no, else Cancel.
    virtual Answer messageBox(const Message& message) = 0;

    /// Paints the status bar at once, without taking events: for a computation that must not be entered again.
    virtual void paintStatus() = 0;
    /// Paints what is due and takes pending events. May throw to give a long command up (its window is closing).
    virtual void letPendingEventsRun() = 0;
    /// The same for at least that long, sleeping while nothing is due.
    virtual void letEventsRunFor(std::chrono::milliseconds time) = 0;
    /// Closes the window; its close handling still runs.
    virtual void unload() = 0;

    /// The window's place and size on the screen, in twips, as they are now: maximised ones too.
    [[nodiscard]] virtual Geometry geometry() const = 0;
    /// A place that no screen shows is moved onto one.
    virtual void setGeometry(const Geometry& geometry) = 0;
    [[nodiscard]] virtual bool isMinimised() const = 0;
    /// Right and bottom edge of the window's screen, as width and height, in twips of the same coordinates.
    [[nodiscard]] virtual Geometry screen() const = 0;
};

} // namespace tarvelint
