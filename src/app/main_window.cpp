// SPDX-License-Identifier: MIT
#include "app/main_window.h"

#include "app/captions.h"

namespace tarvelint {

void MainWindow::setcaption(std::string& captn)
{
    captn = uniqueCaption(captn, m_application.otherCaptions(*this), env.style.grouping());
    setCaption(captn);
}

} // namespace tarvelint
