// SPDX-License-Identifier: MIT
#pragma once

#include "data/data_file_reader.h"
#include "data/data_file_writer.h"
#include "support/grid.h"

#include <algorithm>
#include <cstring>
#include <sstream>
#include <streambuf>
#include <string>
#include <vector>

/// Records as string literals, and what came of reading or writing them.
namespace tarvelint::test {

using Column = std::vector<double>;
using Labels = std::vector<std::string>;

struct RecordingProgress : Progress {
    std::vector<std::string> statuses;
    std::vector<std::int32_t> rows;
    void status(const std::string& text) override { statuses.push_back(text); }
    void row(std::int32_t row1) override { rows.push_back(row1); }
};

struct StringSink : TextSink {
    std::string text;
    std::size_t largestPiece = 0;
    void write(std::string_view bytes) override
    {
        largestPiece = std::max(largestPiece, bytes.size());
        text.append(bytes);
    }
};

/// The missing-value number of a fresh data set.
inline constexpr double kMissing = 99999;

/// A data set as a window with these settings hands it to the reader.
inline DataSet settings(std::int32_t blank, bool zeroOut = false)
{
    DataSet data;
    data.blank = blank;
    data.zeroOut = zeroOut;
    return data;
}

/// Layers as their codes in files and tables name them: unconverted 4, baseline 2, converted 1, summed.
inline LayerSet layersOf(int code)
{
    return {.unconverted = (code & 4) != 0, .baseline = (code & 2) != 0, .converted = (code & 1) != 0};
}

/// One layer of one row, left to right.
inline Column rowOf(const DataSet& data, int layer, std::int32_t row)
{
    Column cells;
    for (std::int32_t c = 0; c < data.columns; ++c) cells.push_back(data.values(layer, c, row));
    return cells;
}

struct Loaded {
    DataSet data;
    RecordingProgress progress;
    bool hadHeader = false;
    bool hadLabelsLine = false;
    LayerSet layers;
    std::string warning;
    int settingAsked = 0;

    [[nodiscard]] Column column(int layer, std::int32_t column0) const { return columnOf(data, layer, column0); }
    [[nodiscard]] Column row(std::int32_t row0, int layer = kUnconverted) const { return rowOf(data, layer, row0); }
};

inline Loaded load(std::istream& stream, char delimiter, DataSet settings = {}, std::int32_t settingBlank = 99999)
{
    Loaded loaded;
    loaded.data = std::move(settings);
    DataFileReader reader(stream, "record.csv", delimiter, loaded.data, loaded.progress, [&] {
        ++loaded.settingAsked;
        return settingBlank;
    });
    reader.load();
    loaded.hadHeader = reader.hadHeader();
    loaded.hadLabelsLine = reader.hadLabelsLine();
    loaded.layers = reader.layers();
    loaded.warning = reader.warning();
    return loaded;
}

inline Loaded load(const std::string& text, char delimiter = ',', DataSet settings = {},
                   std::int32_t settingBlank = 99999)
{
    std::istringstream stream(text);
    return load(stream, delimiter, std::move(settings), settingBlank);
}

/// The message a record is refused with; "" when it is read.
inline std::string refusal(std::istream& stream, char delimiter = ',')
{
    try {
        static_cast<void>(load(stream, delimiter));
    } catch (const FormatFault& fault) {
        return fault.what();
    }
    return "";
}

inline std::string refusal(const std::string& text, char delimiter = ',')
{
    std::istringstream stream(text);
    return refusal(stream, delimiter);
}

/// A seekable stream of any length that repeats a text and is never held in memory.
class MadeUpStream : private std::streambuf, public std::istream {
public:
    MadeUpStream(std::string repeated, std::int64_t size)
        : std::istream(static_cast<std::streambuf*>(this)), m_repeated(std::move(repeated)), m_size(size)
    {
    }

    std::int64_t bytesRead = 0; ///< in all, rereading included

private:
    std::streamsize xsgetn(char* room, std::streamsize wanted) override
    {
        const std::streamsize count = std::min<std::streamsize>(wanted, m_size - m_at);
        bytesRead += count;
        const auto period = static_cast<std::streamsize>(m_repeated.size());
        for (std::streamsize done = 0; done < count;) {
            const std::streamsize within = m_at % period;
            const std::streamsize part = std::min(period - within, count - done);
            std::memcpy(room + done, m_repeated.data() + within, static_cast<std::size_t>(part));
            done += part;
            m_at += part;
        }
        return count;
    }
    std::streampos seekoff(std::streamoff offset, std::ios::seekdir from, std::ios::openmode) override
    {
        m_at = offset + (from == std::ios::beg ? 0 : from == std::ios::cur ? m_at : m_size);
        return m_at;
    }
    std::streampos seekpos(std::streampos position, std::ios::openmode) override { return m_at = position; }

    std::string m_repeated;
    std::int64_t m_size;
    std::int64_t m_at = 0;
};

} // namespace tarvelint::test
