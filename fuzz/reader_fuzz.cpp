// SPDX-License-Identifier: MIT
#include "data/data_file_reader.h"
#include "data/data_file_writer.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <sstream>

namespace {

using namespace tarvelint;

struct Silence : Progress {
    void status(const std::string&) override {}
    void row(std::int32_t) override {}
};

struct StringSink : TextSink {
    std::string text;
    void write(std::string_view bytes) override { text.append(bytes); }
};

void require(bool holds)
{
    if (!holds) std::abort();
}

/// A header may promise a far larger grid than a small file fills: right, but too slow to search with.
bool promisesTooMuch(const std::string& file, char delimiter)
{
    constexpr std::int64_t kMostCells = 1 << 20;
    try {
        std::istringstream stream(file);
        LineReader lines(stream, "fuzz");
        const std::string first(lines.next().value_or(""));
        if (!isHeaderLine(first)) return false;
        const FileHeader header = parseHeader(first, delimiter);
        const std::int64_t columns = header.withLabels ? header.columns : std::ssize(file);
        return columns * header.rows > kMostCells;
    } catch (const FormatFault&) {
        return false;
    }
}

DataSet load(const std::string& file, char delimiter, std::int32_t blank)
{
    std::istringstream stream(file);
    DataSet data;
    Silence progress;
    DataFileReader(stream, "fuzz", delimiter, data, progress, [=] { return blank; }).load();
    return data;
}

void checkShape(const DataSet& data)
{
    require(data.columns >= 1 && data.lines >= 1);
    require(std::ssize(data.labels) == data.columns && std::ssize(data.lullFlags) == data.lines);
    for (std::int32_t r = 0; r < data.lines; ++r)
        for (std::ptrdiff_t cell = 0; cell < data.values.rowStride(); ++cell)
            require(std::isfinite(data.values.row(r)[cell]));
}

/// A record that was read can be written and read again: same shape, and what was missing stays missing.
void checkRoundTrip(const DataSet& data, char delimiter)
{
    StringSink sink;
    Silence progress;
    writeDataFile(data, {}, delimiter, {"today", ","}, sink, progress);
    const DataSet again = load(sink.text, delimiter, data.blank);
    require(again.columns == data.columns && again.lines == data.lines && again.blank == data.blank);
    for (std::int32_t r = 0; r < data.lines; ++r)
        for (std::ptrdiff_t cell = 0; cell < data.values.rowStride(); ++cell)
            require(!data.isBlank(data.values.row(r)[cell]) || data.isBlank(again.values.row(r)[cell]));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    constexpr std::size_t kMostBytes = 1 << 16;
    if (size > kMostBytes) return 0;
    const std::string file(bytes, bytes + size);
    for (const char delimiter : {' ', '\t', ','}) {
        if (promisesTooMuch(file, delimiter)) continue;
        try {
            const DataSet data = load(file, delimiter, 99999);
            checkShape(data);
            checkRoundTrip(data, delimiter);
        } catch (const FormatFault& fault) {
            require(*fault.what() != '\0');
        }
    }
    return 0;
}
