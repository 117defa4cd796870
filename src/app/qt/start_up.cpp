// SPDX-License-Identifier: MIT
#include "app/qt/start_up.h"

#include "app/qt/frm_main.h"
#include "app/qt/frm_splash.h"
#include "data/file_format.h"

#include <QApplication>
#include <QFile>

#include <sstream>

namespace tarvelint {

StartUp::StartUp() : m_windows({m_settings, m_style, m_files, m_clock}, m_table)
{
    useProgramResources();
    QApplication::setWindowIcon(programIcon());
    // The last window to close may be the splash, over a data window that has not been shown yet.
    QApplication::setQuitOnLastWindowClosed(false);
    QFile texts(QStringLiteral(":/about_texts.txt"));
    if (texts.open(QIODevice::ReadOnly)) {
        std::istringstream lines(texts.readAll().toStdString());
        m_table.addTexts(lines);
    }
}

void StartUp::Main()
{
    m_splash = new FrmSplash(m_table, QStringLiteral(TARVELINT_VERSION));
    connect(m_splash, &FrmSplash::mainFormWanted, this, &StartUp::showMainForm);
    m_windows.opened(m_splash);
    m_splash->show();
    m_splash->repaint();
    m_fMainForm = &m_windows.create();
}

void StartUp::showMainForm()
{
    if (m_splash) m_splash->deleteLater();
    if (!m_fMainForm) return;
    m_fMainForm->form().show();
    const std::string trouble = m_settings.trouble();
    if (trouble.empty()) return;
    m_fMainForm->command([&] {
        m_fMainForm->toolkit().messageBox({trouble, std::string(kTitle), Buttons::ok, Icon::warning});
    });
}

} // namespace tarvelint
