// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <istream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvelint {

/// The lines of a stream through one buffer that never grows beyond `kMaxLine` and a chunk. LF or CR LF ends a line; a
/// lone CR does too when the stream holds no LF at all. A UTF-8 byte-order mark is skipped, and so are
/// empty lines before the first non-empty one: line 0 is the first non-empty line of the record.
class LineReader {
public:
    static constexpr std::size_t kMaxLine = 4U << 20U; ///< bytes; a record of 32,767 columns needs under 1 MB

    /// `name` is the file's name for messages. The stream must be seekable.
    /// @throws FormatFault for a stream that cannot be read
    LineReader(std::istream& stream, std::string name);

    /// The next line without its end, valid until the next call; nullopt at the end of the stream.
    /// @throws FormatFault for a line longer than `kMaxLine`, a NUL byte (a binary file) or a read error;
    /// the text names the file and the line
    [[nodiscard]] std::optional<std::string_view> next();

    /// Moves so that `next` returns line `line0` (0-based from the first non-empty line), forwards from where it
    /// stands or again from the top. False when the stream ends before that line.
    bool seekLine(std::int64_t line0);

    /// Number of lines from the first non-empty one to the end; leaves the position at the end.
    [[nodiscard]] std::int64_t countLines();

    [[nodiscard]] std::int64_t bytes() const; ///< size of the stream
    [[nodiscard]] std::int64_t linesRead() const; ///< lines passed since the top of the record
    [[nodiscard]] std::int64_t leadingEmptyLines() const; ///< add to a line number for what an editor shows

private:
    std::istream& m_stream;
    std::string m_name;
};

} // namespace tarvelint
