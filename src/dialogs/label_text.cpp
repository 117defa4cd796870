// SPDX-License-Identifier: MIT
#include "dialogs/label_text.h"

#include <QStringDecoder>

#include <algorithm>
#include <array>
#include <iterator>
#include <optional>

namespace tarvelint {

namespace {

/// Windows-1252 from 0x80 to 0x9F; elsewhere it equals Latin-1. Its five unassigned bytes stand for themselves, so that
/// every byte gives one character.
constexpr std::array<char16_t, 32> kWindows1252{0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                                0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

std::optional<QString> asUtf8(std::string_view bytes)
{
    // A byte-order mark inside a label is part of it.
    QStringDecoder decode(QStringDecoder::Utf8,
                          QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom);
    QString text = decode(QByteArrayView(bytes.data(), static_cast<qsizetype>(bytes.size())));
    if (decode.hasError()) return std::nullopt;
    return text;
}

QString asWindows1252(std::string_view bytes)
{
    QString text;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        text += QChar(byte >= 0x80 && byte <= 0x9F ? kWindows1252[byte - 0x80U] : char16_t{byte});
    }
    return text;
}

std::optional<std::string> inWindows1252(const QString& text)
{
    std::string bytes;
    for (const QChar c : text) {
        const char16_t code = c.unicode();
        const auto* const special = std::find(kWindows1252.begin(), kWindows1252.end(), code);
        if (special != kWindows1252.end())
            bytes += static_cast<char>(0x80 + std::distance(kWindows1252.begin(), special));
        else if (code < 0x80 || (code >= 0xA0 && code <= 0xFF))
            bytes += static_cast<char>(code);
        else
            return std::nullopt;
    }
    return bytes;
}

} // namespace

QString blanksForControls(QString text)
{
    for (QChar& c : text)
        if (c.category() == QChar::Other_Control || c == QChar::LineSeparator || c == QChar::ParagraphSeparator)
            c = QLatin1Char(' ');
    return text;
}

QString labelForScreen(std::string_view bytes)
{
    const auto text = asUtf8(bytes);
    return blanksForControls(text ? *text : asWindows1252(bytes));
}

std::string labelFromScreen(const QString& typed, std::string_view original)
{
    const QString text = blanksForControls(typed);
    if (text == labelForScreen(original)) return std::string(original);
    if (asUtf8(original)) return text.toStdString();
    // Windows-1252 bytes that happen to be valid UTF-8 would read as another text the next time.
    const auto bytes = inWindows1252(text);
    return bytes && labelForScreen(*bytes) == text ? *bytes : text.toStdString();
}

} // namespace tarvelint
