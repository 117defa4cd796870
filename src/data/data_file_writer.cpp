// SPDX-License-Identifier: MIT
#include "data/data_file_writer.h"

#include "data/numbers.h"

#include <algorithm>
#include <cmath>

namespace tarvelint {

namespace {

/// Collects text and hands it on in pieces of about `kSize` bytes.
class Buffer {
public:
    explicit Buffer(TextSink& sink) : m_sink(sink), m_text(kSize, '\0') {}

    void append(std::string_view text)
    {
        while (!text.empty()) {
            const auto part = text.substr(0, kSize - m_used);
            part.copy(m_text.data() + m_used, part.size());
            m_used += part.size();
            text.remove_prefix(part.size());
            if (m_used == kSize) flush();
        }
    }
    /// Room for a number and its delimiter; `end` tells how much of it was used.
    char* room()
    {
        if (kSize - m_used < kNumberTextRoom + 1) flush();
        return m_text.data() + m_used;
    }
    void end(const char* end) { m_used = static_cast<std::size_t>(end - m_text.data()); }
    void flush()
    {
        if (m_used > 0) m_sink.write(std::string_view(m_text).substr(0, m_used));
        m_used = 0;
    }

private:
    static constexpr std::size_t kSize = std::size_t{128} << 10U;
    TextSink& m_sink;
    std::string m_text;
    std::size_t m_used = 0;
};

/// A label as the next reading takes it for one field: a delimiter in it becomes "_", and an empty one, where
/// delimiters count in runs, the column's number. Line feeds and NULs, which no file brings, would end the line or the
/// reading; other control characters go back as they came.
std::string labelField(std::string label, char delimiter, std::size_t column1)
{
    if (label.empty() && delimiter != ',') return plainText(static_cast<std::int64_t>(column1));
    std::replace_if(
        label.begin(), label.end(), [=](char c) { return c == delimiter || c == '\n' || c == '\0'; }, '_');
    return label;
}

class LayerWriter {
public:
    LayerWriter(const DataSet& data, const FileContents& choices, char delimiter, Buffer& buffer, Progress& progress)
        : m_data(data), m_choices(choices), m_delimiter(delimiter), m_buffer(buffer), m_progress(progress),
          m_blankText(fileText(data.blank))
    {
    }

    /// One layer block: labels when chosen, then a line for each row. Every line ends with a delimiter.
    void WriteToFile(Layer layer)
    {
        if (m_choices.labels) {
            for (std::size_t c = 0; c < m_data.labels.size(); ++c) {
                m_buffer.append(labelField(m_data.labels[c], m_delimiter, c + 1));
                m_buffer.append({&m_delimiter, 1});
            }
            m_buffer.append("\r\n");
        }
        for (std::int32_t row = 0; row < m_data.lines; ++row) {
            const double* const cells = m_data.values.row(row) + (layer - 1);
            for (std::ptrdiff_t c = 0; c < m_data.columns; ++c) writeCell(cells[c * kLayers]);
            m_buffer.append("\r\n");
            m_progress.row(row + 1);
        }
    }

private:
    void writeCell(double value)
    {
        char* const text = m_buffer.room();
        char* end = writeFileText(text, value);
        // Missing is what reads like `blank`, so a value that differs from it beyond the 15th digit is missing
        // too; a value farther away than a half cannot read like it.
        if (m_choices.dots && std::abs(value - m_data.blank) < 0.5 &&
            std::string_view(text, static_cast<std::size_t>(end - text)) == m_blankText) {
            *text = '.';
            end = text + 1;
        }
        *end++ = m_delimiter;
        m_buffer.end(end);
    }

    const DataSet& m_data;
    const FileContents& m_choices;
    char m_delimiter;
    Buffer& m_buffer;
    Progress& m_progress;
    std::string m_blankText;
};

} // namespace

void writeDataFile(const DataSet& data, const FileContents& choices, char delimiter, const HeaderStyle& style,
                   TextSink& sink, Progress& progress)
{
    Buffer buffer(sink);
    if (choices.header) {
        buffer.append(
            composeHeader(choices, delimiter, data.columns, data.lines, data.blank, style.longDate, style.grouping));
        buffer.append("\r\n");
    }
    LayerWriter writer(data, choices, delimiter, buffer, progress);
    const auto writeBlock = [&](bool chosen, Layer layer) {
        if (!chosen) return;
        writer.WriteToFile(layer);
        if (layer != kConverted) buffer.append("\r\n"); // separates it from a next block
    };
    writeBlock(choices.unconverted, kUnconverted);
    writeBlock(choices.baseline, kBaseline);
    writeBlock(choices.converted, kConverted);
    buffer.flush();
}

} // namespace tarvelint
