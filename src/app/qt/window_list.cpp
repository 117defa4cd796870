// SPDX-License-Identifier: MIT
#include "app/qt/window_list.h"

#include "app/qt/frm_main.h"
#include "app/qt/frm_splash.h"
#include "app/qt/program_style.h"
#include "app/splash.h"
#include "dialogs/change_form.h"
#include "dialogs/options_dialog.h"

#include <algorithm>

namespace tarvelint {

WindowList::WindowList(const Environment& environment, const StringTable& table)
    : m_environment(environment), m_table(table)
{
    useProgramStyle(); // before the first widget is made
}

WindowList::~WindowList()
{
    delete m_options;
    delete m_changeForm;
    for (FrmMain* window : mainWindows()) delete window;
}

FrmMain& WindowList::create()
{
    auto* window = new FrmMain(m_environment, m_table, *this);
    connect(window, &FrmMain::closed, this, [this, window] { closed(window); });
    m_forms.push_back({&window->form(), window});
    window->command([window] { window->core().lifecycle.Form_Load(); });
    return *window;
}

void WindowList::opened(QWidget* form)
{
    std::erase_if(m_forms, [](const Form& other) { return !other.widget; });
    m_forms.push_back({form});
}

std::vector<FrmMain*> WindowList::mainWindows() const
{
    std::vector<FrmMain*> windows;
    for (const Form& form : m_forms)
        if (form.window) windows.push_back(form.window);
    return windows;
}

std::string WindowList::captionOf(const Form& form)
{
    if (form.window) return form.window->core().caption();
    // The splash shows the program's title in its frame, but that title belongs to the first main window.
    return qobject_cast<const FrmSplash*>(form.widget) ? std::string() : form.widget->windowTitle().toStdString();
}

std::vector<std::string> WindowList::otherCaptions(const Window& self) const
{
    std::vector<std::string> captions;
    for (const Form& form : m_forms)
        if (form.widget && (!form.window || &form.window->core() != &self)) captions.push_back(captionOf(form));
    return captions;
}

std::vector<Window*> WindowList::windows() const
{
    std::vector<Window*> cores;
    for (FrmMain* form : mainWindows()) cores.push_back(&form->core());
    return cores;
}

void WindowList::runIn(const Window& window, const std::function<void()>& body)
{
    for (FrmMain* form : mainWindows())
        if (&form->core() == &window) return form->command(body);
}

void WindowList::showOptions(Window& parent, bool selectEquation)
{
    if (!m_options) {
        m_options = new OptionsDialog(
            m_environment.settings, [this](Window& window, const auto& body) { runIn(window, body); },
            [this] { return windows(); });
        // Closed, it only waits for its deletion: the next opening gets a new one, filled from the store.
        connect(m_options, &QDialog::finished, this, [this] { m_options = nullptr; });
        opened(m_options);
    }
    m_options->showFor(parent);
    if (selectEquation) m_options->selectEquation();
}

void WindowList::unloadOptions()
{
    if (m_options) m_options->close();
}

ChangeForm& WindowList::changeForm()
{
    if (!m_changeForm) {
        m_changeForm = new ChangeForm;
        opened(m_changeForm);
    }
    return *m_changeForm;
}

ChangeForm* WindowList::openChangeForm() const
{
    return m_changeForm && m_changeForm->isWaitedFor() ? m_changeForm : nullptr;
}

void WindowList::newWindow()
{
    create().form().show();
}

void WindowList::exitFrom(Window& self)
{
    const std::string own = self.caption();
    auto forms = m_forms; // closing changes the list
    std::reverse(forms.begin(), forms.end());
    for (const Form& form : forms) {
        if (!form.widget || captionOf(form) == own) continue;
        if (form.window)
            form.window->unload();
        else
            form.widget->close();
    }
    self.ui.unload();
}

void WindowList::closed(FrmMain* window)
{
    std::erase_if(m_forms, [window](const Form& form) { return form.window == window; });
    window->deleteLater(); // its own code may still be on the stack
    if (mainWindows().empty()) Q_EMIT lastClosed();
}

void WindowList::showAbout(QWidget& over)
{
    auto* about = new FrmSplash(m_table, QStringLiteral(TARVELINT_VERSION), &over);
    about->tagText = QString::fromUtf8(kAboutTag.data(), static_cast<qsizetype>(kAboutTag.size()));
    about->setWindowModality(Qt::WindowModal);
    connect(about, &FrmSplash::dismissed, about, &QObject::deleteLater);
    opened(about);
    about->show();
}

} // namespace tarvelint
