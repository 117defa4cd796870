// SPDX-License-Identifier: MIT
#pragma once

#include "app/application.h"
#include "app/string_table.h"
#include "window/window.h"

#include <QObject>
#include <QPointer>
#include <QWidget>

#include <functional>
#include <vector>

namespace tarvelint {

class FrmMain;
class ChangeForm;
class OptionsDialog;

/// All open forms in the order of their opening: main windows, their dialogs, the splash. Main windows are made and
/// destroyed here and nowhere else.
class WindowList : public QObject, public Application {
    Q_OBJECT
public:
    /// Both, and what the environment refers to, outlive the list. Its windows wear the program's style.
    WindowList(const Environment& environment, const StringTable& table);
    ~WindowList() override;

    /// A new main window, loaded but not shown.
    FrmMain& create();
    /// A dialog or the splash has been loaded; it leaves the list when it is destroyed.
    void opened(QWidget* form);
    [[nodiscard]] std::vector<FrmMain*> mainWindows() const;
    /// The same without their widgets.
    [[nodiscard]] std::vector<Window*> windows() const;

    [[nodiscard]] std::vector<std::string> otherCaptions(const Window& self) const override;
    void showOptions(Window& parent, bool selectEquation) override;
    void unloadOptions() override;
    void newWindow() override;
    void exitFrom(Window& self) override;

    /// The one value dialog; made when it is first asked for.
    [[nodiscard]] ChangeForm& changeForm();
    /// The same while it waits for a value, else null.
    [[nodiscard]] ChangeForm* openChangeForm() const;

    /// The about box: the splash once more, over the window it was asked from.
    void showAbout(QWidget& over);

Q_SIGNALS:
    /// No main window is left.
    void lastClosed();

private:
    struct Form {
        QPointer<QWidget> widget;
        FrmMain* window = nullptr; ///< of a main window
    };
    [[nodiscard]] static std::string captionOf(const Form& form);
    void closed(FrmMain* window);
    void runIn(const Window& window, const std::function<void()>& body);

    Environment m_environment;
    const StringTable& m_table;
    std::vector<Form> m_forms;
    QPointer<OptionsDialog> m_options;
    QPointer<ChangeForm> m_changeForm;
};

} // namespace tarvelint
