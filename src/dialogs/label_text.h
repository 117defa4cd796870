// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <string>
#include <string_view>

namespace tarvelint {

/// `text` with a blank for each line end, tab, NUL or other control character: a label is part of one line of a file.
[[nodiscard]] QString blanksForControls(QString text);

/// A column label as the screen shows it. Loggers write labels in whatever encoding they know: bytes that are valid
/// UTF-8 are taken as that, all others as Windows-1252, which gives every byte a character; control characters show as
/// blanks.
[[nodiscard]] QString labelForScreen(std::string_view bytes);

/// The bytes of a label after editing. Text that still reads as `original` does gives `original` back byte for byte;
/// other text has blanks for control characters and keeps the original's encoding where that has all the characters,
/// else it becomes UTF-8.
[[nodiscard]] std::string labelFromScreen(const QString& typed, std::string_view original);

} // namespace tarvelint
