// SPDX-License-Identifier: MIT
#include "batch/console.h"

#include "data/numbers.h"

namespace tarvelint {

std::string printable(std::string_view text)
{
    std::string shown(text);
    for (std::size_t i = 0; i < shown.size(); ++i) {
        const auto byte = static_cast<unsigned char>(shown[i]);
        const auto before = i == 0 ? 0U : static_cast<unsigned char>(text[i - 1]);
        // The control characters from U+0080 on are two bytes in UTF-8.
        if (byte < 0x20 || byte == 0x7F || (before == 0xC2 && byte >= 0x80 && byte < 0xA0)) shown[i] = '?';
        if (shown[i] == '?' && before == 0xC2 && byte >= 0x80) shown[i - 1] = '?';
    }
    return shown;
}

void Console::say(std::string_view message)
{
    endProgress();
    m_err << "tarvelint-batch: " << printable(message) << '\n';
}

void Console::status(const std::string& text)
{
    m_status = text;
    show(text);
}

void Console::row(std::int32_t row1)
{
    if (m_pacer.isDue()) show(m_status + ' ' + plainText(row1));
}

void Console::show(const std::string& text)
{
    if (!m_showsProgress) return;
    m_err << "\r\033[K" << printable(text) << std::flush;
    m_progressShown = true;
}

void Console::endProgress()
{
    if (m_progressShown) m_err << "\r\033[K" << std::flush;
    m_progressShown = false;
}

} // namespace tarvelint
