// SPDX-License-Identifier: MIT
#pragma once

#include "data/data_set.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

/// The data file format as pure functions on text: delimiters, the header line, field splitting, and
/// which layer blocks a file holds.
namespace tarvelint {

/// The word that opens a header line, and the application's title.
inline constexpr std::string_view kTitle = "Tarvelint";

/// 1-based, as the file dialogs list them.
enum class FileType { space = 1, tab = 2, comma = 3 };

/// What is known of a file type.
struct FileTypeFacts {
    FileType type = FileType::space;
    char delimiter = ' ';
    std::string_view extension; ///< with its dot, as files are saved under it
    std::string_view name;      ///< for a person, as the file dialogs begin it
    std::string_view word;      ///< on a command line
};

/// In the order of the file dialogs.
inline constexpr std::array<FileTypeFacts, 3> kFileTypes{{
    {FileType::space, ' ', ".asc", "Space Delimited", "space"},
    {FileType::tab, '\t', ".txt", "Tab delimited", "tab"},
    {FileType::comma, ',', ".csv", "Comma Delimited", "comma"},
}};

[[nodiscard]] constexpr const FileTypeFacts& factsOf(FileType type)
{
    return kFileTypes[static_cast<std::size_t>(type) - 1];
}
[[nodiscard]] constexpr char delimiterOf(FileType type)
{
    return factsOf(type).delimiter;
}
/// The type whose extension a file name has; case does not matter, and any other extension counts as comma.
[[nodiscard]] FileType fileTypeOfExtension(std::string_view path);

/// Takes the next field off the front of `rest`, the unread part of a line; nullopt when none is left.
/// Splits as `splitFields` does, without holding all fields of a long line.
[[nodiscard]] std::optional<std::string_view> takeField(std::string_view& rest, char delimiter);

/// Fields of a line without its end. "," ends a field every time; blanks and tabs count as one
/// delimiter in runs and are ignored at the start of the line. A delimiter at the end of the line makes
/// no further field.
[[nodiscard]] std::vector<std::string_view> splitFields(std::string_view line, char delimiter);

/// A fault in a header line or in the shape of a file; the text is ready for a message box.
class FormatFault : public std::runtime_error {
public:
    explicit FormatFault(const std::string& text, std::string title = {})
        : std::runtime_error(text), m_title(std::move(title))
    {
    }
    /// Title of the message box; empty means the application's.
    [[nodiscard]] const std::string& title() const { return m_title; }

private:
    std::string m_title;
};

/// A fault whose text says which file it is in.
class NamedFault : public FormatFault {
public:
    using FormatFault::FormatFault;
};

/// A count or missing value of a header that cannot be used; the text does not name the file.
class HeaderValueFault : public FormatFault {
public:
    using FormatFault::FormatFault;
};

/// What a header line says.
struct FileHeader {
    LayerSet layers;
    std::int16_t columns = 0;
    std::int32_t rows = 0; ///< per layer
    bool withLabels = false;
    bool blankIsDot = false; ///< missing values are written as dots
    std::int32_t blank = 0;  ///< when `blankIsDot` is False
};

/// Whether the first non-empty line of a file begins as the header of this program does, and is no row or labels.
[[nodiscard]] bool isHeaderLine(std::string_view line);

/// @throws FormatFault with the fixed text of the first fault, in the order layers, columns, rows,
/// labels, blank, closing quote; a count that is no number, does not fit or is below 1 names itself, and
/// so, last of all, does a quoted blank that is no 32-bit number.
[[nodiscard]] FileHeader parseHeader(std::string_view line, char delimiter);

/// What the save dialog chose by its boxes.
struct SaveChoices {
    bool unconverted = true;
    bool baseline = true;
    bool converted = true;
    bool header = true;
    bool dots = true;
};

/// What a file is to hold.
struct FileContents : SaveChoices {
    bool labels = false; ///< a line of labels above each layer
};

/// The header line without its end. `longDate` and `grouping` come from the system.
[[nodiscard]] std::string composeHeader(const FileContents& choices, char delimiter, std::int16_t columns,
                                        std::int32_t lines, std::int32_t blank, std::string_view longDate,
                                        std::string_view grouping);

/// One layer block of a file with a header.
struct LayerRead {
    Layer layer = kUnconverted;
    std::int64_t skipLines = 0; ///< lines before the block's first data line, from the top of the record
    bool fillBase = false;      ///< fill the baseline layer after this block
    bool fillOut = false;       ///< fill the converted layer after this block
};

/// The blocks to read for the layers of a file, in order.
/// @throws FormatFault for no layer at all, which no parsed header says
[[nodiscard]] std::vector<LayerRead> layerReads(const LayerSet& layers, std::int32_t lines, bool withLabels);

} // namespace tarvelint
