// SPDX-License-Identifier: MIT
#include "batch/batch_ui.h"

namespace tarvelint {

Answer BatchUi::messageBox(const Message& message)
{
    endProgress();
    m_err << "tarvelint-batch: " << message.text << '\n';
    return message.buttons == Buttons::ok ? Answer::ok : Answer::cancel;
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
