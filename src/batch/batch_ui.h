// SPDX-License-Identifier: MIT
#pragma once

#include "app/application.h"
#include "window/ui.h"
#include "window/window.h"

#include <cstdint>
#include <ostream>
#include <string>
#include <utility>

namespace tarvelint {

/// A plot area that nobody sees.
class NoSurface : public Surface {
public:
    [[nodiscard]] float scaleWidth() const override { return 0; }
    [[nodiscard]] float scaleHeight() const override { return 0; }
    void erase() override {}
    void setPenWidth(int) override {}
    void moveTo(float, float) override {}
    void lineTo(float, float, Color) override {}
    void line(float, float, float, float, Color) override {}
    void filledBox(float, float, float, float, Color) override {}
    void circle(float, float, float, Color, Color) override {}
};

/// The toolkit of a program without windows: messages become lines on the error stream, and on a terminal the status
/// text and row counter are shown while a file is read or written.
class BatchUi : public Ui {
public:
    /// @param err  where messages and progress go; outlives the toolkit
    BatchUi(std::ostream& err, bool showsProgress) : m_err(err), m_showsProgress(showsProgress) {}
    /// Progress is read off this window from now on.
    void watch(const Window& window) { m_window = &window; }
    /// The error stream, at the start of a line of the program's own.
    [[nodiscard]] std::ostream& message();
    /// Wipes the progress line, so that what follows starts at the left.
    void endProgress();

    /// What an equation could not do since the last call, in the words of its first message; `count` 0 when all was
    /// well.
    struct EquationErrors {
        std::int64_t count = 0;
        std::int32_t firstRow = 0; ///< 0-based
        std::string firstText;
    };
    [[nodiscard]] EquationErrors takeEquationErrors() { return std::exchange(m_errors, {}); }

    void changed(Control) override {}
    void listChanged(int) override {}
    void scrollBarChanged() override {}
    void pointerChanged() override {}
    void captionChanged() override {}
    [[nodiscard]] Surface& surface(int) override { return m_surface; }
    void focus(Control) override {}
    void beep() override {}
    Answer messageBox(const Message& box) override;
    [[nodiscard]] std::optional<ChosenFile> openFileDialog(const FileDialog&) override { return {}; }
    [[nodiscard]] std::optional<ChosenFile> saveFileDialog(const FileDialog&) override { return {}; }
    void showColumnSetup(bool) override {}
    void hideColumnSetup() override {}
    void unloadColumnSetup() override {}
    void showSaveContents() override {}
    void unloadSaveContents() override {}
    void paintStatus() override { letPendingEventsRun(); }
    void letPendingEventsRun() override;
    void unload() override {}
    [[nodiscard]] Geometry geometry() const override { return {}; }
    void setGeometry(const Geometry&) override {}
    [[nodiscard]] bool isMinimised() const override { return false; }
    [[nodiscard]] Geometry screen() const override { return {}; }

private:
    std::ostream& m_err;
    bool m_showsProgress;
    const Window* m_window = nullptr;
    bool m_progressShown = false;
    EquationErrors m_errors;
    NoSurface m_surface;
};

/// One window and nothing around it.
class BatchApplication : public Application {
public:
    [[nodiscard]] std::vector<std::string> otherCaptions(const Window&) const override { return {}; }
    void showOptions(Window&, bool) override {}
    void unloadOptions() override {}
    void newWindow() override {}
    void exitFrom(Window&) override {}
};

} // namespace tarvelint
