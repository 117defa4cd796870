// SPDX-License-Identifier: MIT
#pragma once

#include "data/settings_store.h"
#include "window/dialogs.h"
#include "window/ports.h"
#include "window/surface.h"
#include "window/ui.h"

#include <array>
#include <deque>
#include <functional>
#include <map>
#include <sstream>
#include <string>
#include <vector>

/// Doubles of everything modal or ambient. A double that is asked an unexpected question throws, so a
/// test fails at once and never hangs.
namespace tarvelint::test {

class MemorySettings : public SettingsStore {
public:
    std::map<std::string, std::string, std::less<>> values;
    std::vector<std::string> log; ///< "read Key" and "write Key=text", in order

    std::string readSetting(std::string_view key, std::string_view defaultText) override
    {
        log.push_back("read " + std::string(key));
        const auto found = values.find(key);
        return found == values.end() ? std::string(defaultText) : found->second;
    }
    void writeSetting(std::string_view key, std::string_view text) override
    {
        log.push_back("write " + std::string(key) + "=" + std::string(text));
        values[std::string(key)] = std::string(text);
    }
};

class FixedStyle : public SystemStyle {
public:
    std::string date = "Friday, 20 November 2026";
    std::string sign = ",";
    [[nodiscard]] std::string longDate() const override { return date; }
    [[nodiscard]] std::string grouping() const override { return sign; }
};

class ManualClock : public Clock {
public:
    mutable std::chrono::milliseconds time{0};
    std::chrono::milliseconds step{0}; ///< added at every look
    [[nodiscard]] std::chrono::milliseconds now() const override { return time += step; }
};

/// Files in memory, with failures on demand.
class MemoryFiles : public Files {
public:
    std::map<std::string, std::string> contents;
    std::map<std::string, FileFailure> failOnOpen;
    std::map<std::string, FileFailure> failOnCreate;
    std::size_t diskRoom = static_cast<std::size_t>(-1); ///< bytes until "No space left on device"
    int opened = 0;

    [[nodiscard]] std::unique_ptr<std::istream> openForReading(const std::string& path) override
    {
        ++opened;
        if (const auto failure = failOnOpen.find(path); failure != failOnOpen.end()) throw failure->second;
        const auto found = contents.find(path);
        if (found == contents.end()) throw FileFailure(FileFailure::Kind::other, "No such file or directory");
        return std::make_unique<std::istringstream>(found->second);
    }
    [[nodiscard]] std::unique_ptr<SafeFile> createSafely(const std::string& path) override
    {
        if (const auto failure = failOnCreate.find(path); failure != failOnCreate.end()) throw failure->second;
        return std::make_unique<File>(*this, path);
    }
    [[nodiscard]] bool exists(const std::string& path) const override { return contents.contains(path); }

private:
    class File : public SafeFile {
    public:
        File(MemoryFiles& files, std::string path) : m_files(files), m_path(std::move(path)) {}
        void write(std::string_view bytes) override
        {
            if (m_text.size() + bytes.size() > m_files.diskRoom)
                throw FileFailure(FileFailure::Kind::other, "No space left on device");
            m_text.append(bytes);
        }
        void commit() override { m_files.contents[m_path] = m_text; }

    private:
        MemoryFiles& m_files;
        std::string m_path;
        std::string m_text;
    };
};

/// One drawing operation as it was asked for.
struct DrawOp {
    std::string what; ///< "erase", "penWidth", "moveTo", "lineTo", "line", "box", "circle"
    std::vector<float> at;
    Color color;
    Color fill;
    bool operator==(const DrawOp&) const = default;
};

class RecordingSurface : public Surface {
public:
    float width = 100;
    float height = 110;
    std::vector<DrawOp> ops;

    [[nodiscard]] float scaleWidth() const override { return width; }
    [[nodiscard]] float scaleHeight() const override { return height; }
    void erase() override { ops.push_back({"erase", {}, {}, {}}); }
    void setPenWidth(int w) override { ops.push_back({"penWidth", {static_cast<float>(w)}, {}, {}}); }
    void moveTo(float x, float y) override { ops.push_back({"moveTo", {x, y}, {}, {}}); }
    void lineTo(float x, float y, Color color) override { ops.push_back({"lineTo", {x, y}, color, {}}); }
    void line(float x1, float y1, float x2, float y2, Color color) override
    {
        ops.push_back({"line", {x1, y1, x2, y2}, color, {}});
    }
    void filledBox(float x1, float y1, float x2, float y2, Color color) override
    {
        ops.push_back({"box", {x1, y1, x2, y2}, color, color});
    }
    void circle(float x, float y, float radius, Color color, Color fill) override
    {
        ops.push_back({"circle", {x, y, radius}, color, fill});
    }

    [[nodiscard]] std::vector<DrawOp> only(const std::string& what) const
    {
        std::vector<DrawOp> found;
        for (const auto& op : ops)
            if (op.what == what) found.push_back(op);
        return found;
    }
};

class FakeUi : public Ui, public Dialogs {
public:
    std::array<RecordingSurface, 2> surfaces;
    std::vector<std::string> log; ///< dialogs shown and unloaded, "paint status", in order of happening
    std::vector<Message> messages;
    std::deque<Answer> answers;      ///< answers to boxes with a choice; a box with OK only needs none
    std::function<void()> onMessage; ///< what happens while a box is shown
    std::deque<std::optional<ChosenFile>> openChoices;
    std::deque<std::optional<ChosenFile>> saveChoices;
    std::vector<FileDialog> fileDialogs;
    std::function<void()> onSaveContents; ///< plays the user in the save-contents dialog
    std::function<void()> onPendingEvents;
    std::function<void()> onPaintStatus;
    bool columnSetupShown = false;
    bool columnSetupBlocks = false;
    bool unloaded = false;
    int beeps = 0;
    std::vector<Control> focused;
    std::vector<Control> changes;
    int captionChanges = 0;
    int scrollBarChanges = 0;

    void changed(Control control) override { changes.push_back(control); }
    void listChanged(int) override {}
    void scrollBarChanged() override { ++scrollBarChanges; }
    void pointerChanged() override {}
    void captionChanged() override { ++captionChanges; }
    [[nodiscard]] Surface& surface(int index) override { return surfaces.at(static_cast<std::size_t>(index)); }
    void focus(Control control) override { focused.push_back(control); }
    void beep() override { ++beeps; }
    void setPlotToolTip(const std::string& text) override { plotToolTip = text; }
    std::string plotToolTip;
    [[nodiscard]] std::optional<std::string> askValue(const std::string& old) override
    {
        valuesAsked.push_back(old);
        if (onValueDialog) onValueDialog();
        if (typedValues.empty()) throw std::logic_error("unexpected value dialog");
        auto typed = typedValues.front();
        typedValues.pop_front();
        return typed;
    }
    [[nodiscard]] bool isValueDialogOpen() const override { return valueDialogOpen; }
    void raiseValueDialog() override { log.push_back("raise value dialog"); }
    std::vector<std::string> valuesAsked;
    std::deque<std::optional<std::string>> typedValues; ///< none: Cancel
    std::function<void()> onValueDialog;
    bool valueDialogOpen = false;
    Answer messageBox(const Message& message) override
    {
        messages.push_back(message);
        if (onMessage) onMessage();
        if (message.buttons == Buttons::ok) return Answer::ok;
        if (answers.empty()) throw std::logic_error("unexpected question: " + message.text);
        const Answer answer = answers.front();
        answers.pop_front();
        return answer;
    }
    [[nodiscard]] std::optional<ChosenFile> openFileDialog(const FileDialog& dialog) override
    {
        return answerDialog(dialog, openChoices);
    }
    [[nodiscard]] std::optional<ChosenFile> saveFileDialog(const FileDialog& dialog) override
    {
        return answerDialog(dialog, saveChoices);
    }
    void showColumnSetup(bool blocking) override
    {
        columnSetupShown = true;
        columnSetupBlocks = blocking;
        log.push_back("show column setup");
    }
    void hideColumnSetup() override { columnSetupShown = false; }
    void unloadColumnSetup() override
    {
        columnSetupShown = false;
        log.push_back("unload column setup");
    }
    void showSaveContents() override
    {
        log.push_back("show save contents");
        if (!onSaveContents) throw std::logic_error("unexpected save-contents dialog");
        onSaveContents();
    }
    void unloadSaveContents() override { log.push_back("unload save contents"); }
    void paintStatus() override
    {
        log.push_back("paint status");
        if (onPaintStatus) onPaintStatus();
    }
    void letPendingEventsRun() override
    {
        if (onPendingEvents) onPendingEvents();
    }
    void letEventsRunFor(std::chrono::milliseconds time) override
    {
        waited += time;
        letPendingEventsRun();
    }
    std::chrono::milliseconds waited{0};
    void unload() override { unloaded = true; }
    [[nodiscard]] Geometry geometry() const override { return place; }
    void setGeometry(const Geometry& geometry) override { place = geometry; }
    [[nodiscard]] bool isMinimised() const override { return minimised; }
    [[nodiscard]] Geometry screen() const override { return {0, 0, 19200, 15360}; }
    Geometry place;
    bool minimised = false;

private:
    std::optional<ChosenFile> answerDialog(const FileDialog& dialog, std::deque<std::optional<ChosenFile>>& choices)
    {
        fileDialogs.push_back(dialog);
        if (choices.empty()) throw std::logic_error("unexpected file dialog: " + dialog.title);
        auto choice = choices.front();
        choices.pop_front();
        return choice;
    }
};

} // namespace tarvelint::test
