// SPDX-License-Identifier: MIT
#include "app/handler_boundary.h"

#include "data/file_format.h"
#include "data/numbers.h"
#include "window/raised.h"

#include <new>

namespace tarvelint {

void HandlerBoundary::command(const std::function<void()>& body)
{
    if (m_window.view.isHeld && !m_busy) return;
    gesture(body);
}

void HandlerBoundary::gesture(const std::function<void()>& body)
{
    if (m_busy) return remindOfValueDialog();
    {
        const Raised busy(m_busy);
        const Pointer pointer = m_window.pointer();
        const std::string status = m_window.text(Control::statusPanel1);
        if (!guarded(body)) {
            m_window.setPointer(pointer);
            m_window.setStatus(1, status);
        }
    }
    for (const auto& next : std::exchange(m_afterwards, {})) gesture(next);
}

/// What is dropped because a value is being typed brings the dialog to mind.
void HandlerBoundary::remindOfValueDialog()
{
    if (!m_window.dialogs.isValueDialogOpen()) return;
    m_window.ui.beep();
    m_window.dialogs.raiseValueDialog();
}

void HandlerBoundary::answer(const std::function<void()>& body)
{
    static_cast<void>(guarded(body));
}

void HandlerBoundary::record(const std::function<void()>& body)
{
    static_cast<void>(guarded(body));
}

bool HandlerBoundary::guarded(const std::function<void()>& body)
{
    try {
        body();
        return true;
    } catch (const WindowClosing&) {
        // The window goes once its stack has unwound; there is nobody to tell.
    } catch (const FormatFault& fault) {
        show(fault.what(), fault.title());
    } catch (const NumericOverflow& overflow) {
        show(overflow.what(), {});
    } catch (const std::bad_alloc&) {
        show("There is not enough memory for this. Close other windows or programs and try again.", {});
    } catch (const std::exception& failure) {
        show(failure.what(), {});
    }
    return false;
}

void HandlerBoundary::show(const std::string& text, const std::string& title)
{
    m_window.ui.messageBox({text, title.empty() ? std::string(kTitle) : title, Buttons::ok, Icon::critical});
}

} // namespace tarvelint
