// SPDX-License-Identifier: MIT
#include "batch/batch_ui.h"

namespace tarvelint {

Answer BatchUi::messageBox(const Message& box)
{
    if (box.buttons == Buttons::okCancel) {
        // The equation's errors, one a row: counted, and answered as a person would who wants the rest converted.
        if (m_errors.count++ == 0) {
            m_errors.firstText = box.text.substr(0, box.text.find("\r\nLine is "));
            m_errors.firstRow = m_window->conversionRow;
        }
        return Answer::ok;
    }
    message() << box.text << '\n';
    return box.buttons == Buttons::ok ? Answer::ok : Answer::cancel;
}

std::ostream& BatchUi::message()
{
    endProgress();
    return m_err << "tarvelint-batch: ";
}

void BatchUi::letPendingEventsRun()
{
    if (!m_showsProgress || m_window == nullptr) return;
    m_err << "\r\033[K" << m_window->text(Control::statusPanel1) << ' ' << m_window->text(Control::rowLabel)
          << std::flush;
    m_progressShown = true;
}

void BatchUi::endProgress()
{
    if (m_progressShown) m_err << "\r\033[K" << std::flush;
    m_progressShown = false;
}

} // namespace tarvelint
