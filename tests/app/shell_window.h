// SPDX-License-Identifier: MIT
#pragma once

#include "app/application.h"
#include "app/engine.h"
#include "support/test_window.h"

#include <algorithm>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace tarvelint::test {

/// The application around one window under test: other forms' captions, and what the window asked of it.
class FakeApplication : public Application {
public:
    std::vector<std::string> captions;
    int exits = 0;
    std::vector<std::string> log; ///< what was asked about the options dialog
    std::function<void()> onNewWindow;
    std::function<void()> onUnloadOptions;

    [[nodiscard]] std::vector<std::string> otherCaptions(const Window&) const override { return captions; }
    void showOptions(Window&, bool selectEquation) override
    {
        log.emplace_back(selectEquation ? "show options, equation selected" : "show options");
    }
    void unloadOptions() override
    {
        log.emplace_back("unload options");
        if (onUnloadOptions) onUnloadOptions();
    }
    void newWindow() override
    {
        if (!onNewWindow) throw std::logic_error("unexpected new window");
        onNewWindow();
    }
    void exitFrom(Window&) override { ++exits; }
};

/// A freshly created main window on doubles. Commands enter by its boundary, as the user's do.
class Shell : public Ground {
public:
    FakeApplication application;
    Engine window{fakeUi, fakeUi, Environment{settings, style, files, clock}, application};

    Shell() { window.lifecycle.Form_Load(); }
    virtual ~Shell() = default;

    void command(const std::function<void()>& body) { window.boundary.command(body); }

    /// File > Open, and the user picks `path`.
    void open(const std::string& path, FileType type = FileType::comma)
    {
        fakeUi.openChoices.emplace_back(ChosenFile{path, type});
        command([this] { window.files.mnuFileOpen_Click(); });
    }
    void openText(const std::string& text, FileType type = FileType::comma, const std::string& path = "/data/run.csv")
    {
        files.contents[path] = text;
        open(path, type);
    }
    /// The user leaves the save-contents dialog by OK from now on.
    void acceptContents()
    {
        fakeUi.onSaveContents = [this] { window.forms.typeFrm->OKButton_Click(); };
    }
    /// File > Save As under `path`, everything chosen.
    void saveAs(const std::string& path, FileType type = FileType::comma)
    {
        acceptContents();
        fakeUi.saveChoices.emplace_back(ChosenFile{path, type});
        command([this] { window.files.mnuFileSaveAs_Click(); });
    }
    void save()
    {
        acceptContents();
        command([this] { window.files.mnuFileSave_Click(); });
    }

    /// What the column lists read.
    [[nodiscard]] std::vector<std::string> entries() const
    {
        std::vector<std::string> texts;
        for (std::int32_t c = 0; c < window.record.columns; ++c)
            texts.push_back(columnEntry(window.record.labels, window.view.entriesAreLabels, c));
        return texts;
    }
    [[nodiscard]] const std::string& status() const { return window.text(Control::statusPanel1); }
    [[nodiscard]] const std::string& status2() const { return window.text(Control::statusPanel2); }
    [[nodiscard]] bool logged(const std::string& event) const
    {
        return std::find(fakeUi.log.begin(), fakeUi.log.end(), event) != fakeUi.log.end();
    }
};

/// A record with the header this program writes: two rows of Day, Time and S1 in all layers.
inline const std::string kSavedRecord =
    "Tarvelint output: Friday, 20 November 2026,unconverted-baseline-converted,3 columns,2 rows each,with labels,"
    "blank='.'\r\n"
    "Day,Time,S1,\r\n180,0,9,\r\n180,30,.,\r\n\r\n"
    "Day,Time,S1,\r\n180,0,10,\r\n180,30,10,\r\n\r\n"
    "Day,Time,S1,\r\n180,0,7.5,\r\n180,30,.,\r\n\r\n";

/// A logger's own record, without header.
inline const std::string kLoggerRecord = "Day,Time,S1\r\n180,0,9\r\n180,30,8\r\n180,60,7\r\n";

} // namespace tarvelint::test
