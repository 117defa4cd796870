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
    static constexpr std::int64_t kMaxLeadingEmptyLines = 10000;

    /// `name` is the file's name for messages. The stream must be seekable.
    /// @throws FormatFault for a stream that cannot be read, and for one without a non-empty line behind
    ///         at most `kMaxLeadingEmptyLines` empty ones
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

    [[nodiscard]] std::int64_t bytes() const { return m_bytes; }         ///< size of the stream
    [[nodiscard]] std::int64_t linesRead() const { return m_linesRead; } ///< lines passed since the top of the record
    /// Add to a line number for what an editor shows.
    [[nodiscard]] std::int64_t leadingEmptyLines() const { return m_leadingEmptyLines; }

private:
    void findLineEnd();
    void findTop();
    void rewind(std::int64_t offset);
    bool refill();
    [[nodiscard]] std::string_view take(std::size_t length, std::size_t endLength);
    [[noreturn]] void fail(const std::string& what) const;
    [[nodiscard]] std::string currentLine() const;

    std::istream& m_stream;
    std::string m_name;
    std::vector<char> m_buffer;
    std::size_t m_position = 0;      ///< of the next line in the buffer
    std::size_t m_limit = 0;         ///< end of what the buffer holds
    std::int64_t m_streamOffset = 0; ///< of the buffer's end
    std::int64_t m_bytes = 0;
    std::int64_t m_top = 0; ///< offset of the first non-empty line in the stream
    std::int64_t m_linesRead = 0;
    std::int64_t m_leadingEmptyLines = 0;
    char m_lineEnd = '\n';
    bool m_streamEnded = false;
    bool m_nulSeen = false;
};

} // namespace tarvelint
