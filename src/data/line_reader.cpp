// SPDX-License-Identifier: MIT
#include "data/line_reader.h"

#include "data/file_format.h"
#include "data/numbers.h"

#include <cstring>

namespace tarvelint {

namespace {
constexpr std::size_t kChunk = std::size_t{256} << 10U;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
} // namespace

LineReader::LineReader(std::istream& stream, std::string name)
    : m_stream(stream), m_name(std::move(name)), m_buffer(kChunk)
{
    m_stream.clear();
    m_stream.seekg(0, std::ios::end);
    m_bytes = m_stream.tellg();
    if (m_bytes < 0) fail("cannot be read: the system gives no access to its contents");
    findLineEnd();
    findTop();
}

void LineReader::findLineEnd()
{
    rewind(0);
    do {
        m_limit = 0; // nothing is kept: this is only a look ahead
        refill();
        if (std::memchr(m_buffer.data(), '\n', m_limit) != nullptr) return;
    } while (!m_streamEnded);
    m_lineEnd = '\r';
}

void LineReader::findTop()
{
    rewind(0);
    refill();
    if (std::string_view(m_buffer.data(), m_limit).starts_with(kByteOrderMark)) {
        m_position = kByteOrderMark.size();
        m_top = static_cast<std::int64_t>(m_position);
    }
    for (auto line = next(); line && m_leadingEmptyLines <= kMaxLeadingEmptyLines; line = next()) {
        if (!line->empty()) {
            rewind(m_top);
            return;
        }
        m_top = m_streamOffset - static_cast<std::int64_t>(m_limit - m_position);
        ++m_leadingEmptyLines;
        m_linesRead = 0;
    }
    throw FormatFault("This file seems to be corrupt!", "Error reading file:");
}

std::optional<std::string_view> LineReader::next()
{
    std::size_t searched = 0;
    for (;;) {
        const char* const line = m_buffer.data() + m_position;
        const std::size_t available = m_limit - m_position;
        if (const void* end = std::memchr(line + searched, m_lineEnd, available - searched))
            return take(static_cast<std::size_t>(static_cast<const char*>(end) - line), 1);
        searched = available;
        if (available > kMaxLine) return take(available, 0); // too long already
        if (refill()) continue;
        if (available == 0) return std::nullopt;
        return take(available, 0);
    }
}

std::string_view LineReader::take(std::size_t length, std::size_t endLength)
{
    const std::string_view line(m_buffer.data() + m_position, length);
    if (m_nulSeen && line.find('\0') != std::string_view::npos)
        fail("is not a text file: " + currentLine() +
             " holds a NUL byte. Export the record as plain text (not \"Unicode\" or UTF-16) and open that file");
    if (length > kMaxLine)
        fail("cannot be read: " + currentLine() +
             " is longer than 4 MB. Check that the file is a text table with one line per time step");
    m_position += length + endLength;
    ++m_linesRead;
    // Without its LF, a CR is what was left of the last line end of a file that was cut.
    return m_lineEnd == '\n' && line.ends_with('\r') ? line.substr(0, length - 1) : line;
}

bool LineReader::seekLine(std::int64_t line0)
{
    if (line0 < m_linesRead) rewind(m_top);
    while (m_linesRead < line0)
        if (!next()) return false;
    return m_position < m_limit || refill();
}

std::int64_t LineReader::countLines()
{
    while (next()) {
    }
    return m_linesRead;
}

void LineReader::rewind(std::int64_t offset)
{
    m_stream.clear();
    m_stream.seekg(offset);
    if (m_stream.fail()) fail("cannot be read: the system does not go back to its start");
    m_streamOffset = offset;
    m_position = m_limit = 0;
    m_linesRead = 0;
    m_streamEnded = m_nulSeen = false;
}

/// Appends a chunk to the unread rest of the buffer. False when the stream had no more.
bool LineReader::refill()
{
    if (m_streamEnded) return false;
    std::memmove(m_buffer.data(), m_buffer.data() + m_position, m_limit - m_position);
    m_limit -= m_position;
    m_position = 0;
    if (m_buffer.size() < m_limit + kChunk) m_buffer.resize(m_limit + kChunk);
    char* const room = m_buffer.data() + m_limit;
    m_stream.read(room, kChunk);
    if (m_stream.bad()) fail("cannot be read: the system reports an error near " + currentLine());
    const auto count = static_cast<std::size_t>(m_stream.gcount());
    m_streamEnded = count < kChunk;
    m_nulSeen = m_nulSeen || std::memchr(room, 0, count) != nullptr;
    m_limit += count;
    m_streamOffset += static_cast<std::int64_t>(count);
    return count > 0;
}

void LineReader::fail(const std::string& what) const
{
    throw NamedFault('"' + m_name + "\" " + what + '.');
}

std::string LineReader::currentLine() const
{
    return "line " + plainText(m_leadingEmptyLines + m_linesRead + 1);
}

} // namespace tarvelint
