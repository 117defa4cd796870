// SPDX-License-Identifier: MIT
#include "data/data_file_reader.h"

#include "data/numbers.h"

#include <algorithm>
#include <limits>
#include <new>
#include <utility>

namespace tarvelint {

namespace {

constexpr std::int64_t kMostColumns = std::numeric_limits<std::int16_t>::max();
constexpr std::int64_t kMostRows = std::numeric_limits<std::int32_t>::max();

/// The number in a field; anything else (an empty field, a word, a dot) is a missing value.
/// @param at start of the field; on return its end, a delimiter or the end of the line
double fieldValue(const char*& at, const char* end, char delimiter, double missing)
{
    const char* start = at;
    while (start != end && *start == ' ') ++start;
    double value = missing;
    const char* after = scanNumber(start, end, value);
    if (after != nullptr && (after == end || *after == delimiter)) {
        at = after;
        return value;
    }
    // A dot alone is by far the most frequent text that is no number: files written by this program are full of it.
    if (after == nullptr && end - start > 0 && *start == '.' && (end - start == 1 || start[1] == delimiter)) {
        at = start + 1;
        return missing;
    }
    const char* const field = std::exchange(at, std::find(at, end, delimiter));
    return numericValue({field, static_cast<std::size_t>(at - field)}).value_or(missing);
}

/// Stores the fields of a line into one layer of a row. Cells the line has no field for keep their value,
/// except the one behind a last delimiter: what is left of the line, nothing, is its field.
void storeFields(std::string_view line, char delimiter, std::int32_t columns, double missing, double* firstCell)
{
    if (line.empty()) return;
    const bool runsCountOnce = delimiter != ',';
    const char* at = line.data();
    const char* const end = at + line.size();
    for (std::int32_t c = 0; c < columns; ++c) {
        while (runsCountOnce && at != end && *at == delimiter) ++at;
        firstCell[std::ptrdiff_t{c} * kLayers] = fieldValue(at, end, delimiter, missing);
        if (at == end) return;
        ++at;
    }
}

const char* statusText(int arrayDim)
{
    switch (arrayDim) {
    case 0: return "reading data";
    case kUnconverted: return "reading unconverted data";
    case kBaseline: return "reading baseline data";
    case kConverted: return "reading converted data";
    default: return nullptr;
    }
}

} // namespace

DataFileReader::DataFileReader(std::istream& stream, std::string name, char delimiter, DataSet& target,
                               Progress& progress, std::function<std::int32_t()> settingBlank)
    : m_stream(stream), m_name(std::move(name)), m_delimiter(delimiter), m_data(target), m_progress(progress),
      m_settingBlank(std::move(settingBlank)), m_missing(target.blank)
{
}

void DataFileReader::load()
{
    m_progress.status("Setting up memory");
    try {
        const std::string firstLine(lines().next().value_or(std::string_view{}));
        m_hadHeader = isHeaderLine(firstLine);
        m_hadHeader ? loadWithHeader(firstLine) : loadHeaderless(firstLine);
    } catch (const std::bad_alloc&) {
        throw fault("does not fit into memory. Close other windows, or split the file into shorter records.");
    }
}

void DataFileReader::loadHeaderless(std::string_view firstLine)
{
    m_data.columns = 0;
    readLabels(firstLine, m_delimiter);
    if (m_data.columns == 0)
        throw fault("holds no data: its first line has no field. Choose the file that holds the readings.");
    m_hadLabelsLine = m_data.labelsAreText;
    if (!m_hadLabelsLine) numberColumns();
    m_data.lines = 0;
    readFile(0, m_hadLabelsLine ? 1 : 0, true, true);
}

void DataFileReader::loadWithHeader(std::string_view firstLine)
{
    const FileHeader header = parseNamed(firstLine);
    if (header.rows > lines().bytes())
        throw fault("is shorter than its header says: " + plainText(header.rows) +
                    " rows cannot stand in so small a file. Correct the number of rows in its first line.");
    m_layers = header.layers;
    m_hadLabelsLine = header.withLabels;
    m_data.columns = header.columns;
    m_data.lines = header.rows;
    m_missing = header.blankIsDot ? m_settingBlank() : header.blank;
    readHeaderLabels();

    const auto reads = layerReads(header.layers, header.rows, header.withLabels);
    if (!lines().seekLine(reads.front().skipLines))
        throw fault("holds no data: there is no row below its header. Choose the file that holds the readings.");
    allocate();
    for (const LayerRead& read : reads) readFile(read.layer, read.skipLines, read.fillBase, read.fillOut);
    m_data.blank = m_missing;
}

FileHeader DataFileReader::parseNamed(std::string_view firstLine) const
{
    try {
        return parseHeader(firstLine, m_delimiter);
    } catch (const HeaderValueFault& unusable) {
        throw NamedFault(m_name + ": " + unusable.what());
    }
}

/// The line below the header: labels, or a first row whose delimiters give the number of columns.
void DataFileReader::readHeaderLabels()
{
    const auto below = lines().next();
    if (!below)
        throw fault("holds no data: there is no row below its header. Choose the file that holds the readings.");
    const std::string_view line = *below;
    if (m_hadLabelsLine) {
        readLabels(line, m_delimiter);
        return;
    }
    // Delimiters are counted one by one, runs too: rows without a trailing delimiter lose their last column.
    const std::int64_t delimiters = std::count(line.begin(), line.end(), m_delimiter);
    if (delimiters == 0)
        throw fault("holds no data: line " + plainText(lines().leadingEmptyLines() + 2) +
                    " has no delimiter. Check that the file type chosen is the one of the file.");
    if (delimiters > kMostColumns)
        throw fault("has " + plainText(delimiters) + " delimiters in line " +
                    plainText(lines().leadingEmptyLines() + 2) +
                    ", and 32,767 columns is the most. Split the file into narrower ones.");
    m_data.columns = static_cast<std::int16_t>(delimiters);
    m_data.labels.resize(static_cast<std::size_t>(delimiters));
    m_data.labelsAreText = false;
    numberColumns();
}

void DataFileReader::readLabels(std::string_view linestring, char delim)
{
    const std::int64_t room = m_data.columns == 0 ? kMostColumns : m_data.columns;
    std::int64_t fields = 0;
    m_data.labels.clear();
    m_data.labelsAreText = false;
    while (const auto field = takeField(linestring, delim)) {
        if (fields++ < room) m_data.labels.emplace_back(*field);
        m_data.labelsAreText = m_data.labelsAreText || !isNumeric(*field);
    }
    if (m_data.columns == 0) {
        if (fields > kMostColumns)
            throw fault("has " + plainText(fields) +
                        " columns in its first line, and 32,767 is the most. Split the file into narrower ones.");
        m_data.columns = static_cast<std::int16_t>(fields);
    }
    for (std::int64_t c = fields; c < m_data.columns; ++c) m_data.labels.push_back(plainText(c + 1));
}

void DataFileReader::numberColumns()
{
    for (std::size_t c = 0; c < m_data.labels.size(); ++c)
        m_data.labels[c] = plainText(static_cast<std::int64_t>(c) + 1);
}

void DataFileReader::readFile(int arrayDim, std::int64_t skipLines, bool fillBase, bool fillOut)
{
    const int layer = arrayDim == 0 ? static_cast<int>(kUnconverted) : arrayDim;
    if (m_data.lines < 1) countRows(skipLines);
    const char* const status = statusText(arrayDim);
    m_progress.status(status != nullptr ? status : "readFile: Invalid array dimension");
    if (status == nullptr) return;

    lines().seekLine(skipLines);
    for (std::int32_t row = 0; row < m_data.lines; ++row) {
        const auto line = lines().next();
        if (!line) {
            storeMissingRows(layer, row);
            for (; row < m_data.lines; ++row) fillRow(row, fillBase, fillOut);
            return;
        }
        storeFields(*line, m_delimiter, m_data.columns, m_missing, m_data.values.row(row) + (layer - 1));
        // Filled row by row while the row is at hand; the layers that are filled are never the one being read.
        fillRow(row, fillBase, fillOut);
        m_progress.row(row + 1);
    }
}

void DataFileReader::countRows(std::int64_t skipLines)
{
    const std::int64_t rows = lines().countLines() - skipLines;
    if (rows < 1)
        throw fault("holds no data: there is no row below its labels. Choose the file that holds the readings.");
    if (rows > kMostRows)
        throw fault("has " + plainText(rows) + " rows, and 2,147,483,647 is the most. Split the file.");
    m_data.lines = static_cast<std::int32_t>(rows);
    allocate();
}

void DataFileReader::allocate()
{
    // Some systems hand out any memory and kill the program when it is used: a grid out of all proportion to its file,
    // as a faulty header asks for, is refused unasked.
    const std::int64_t cells = std::int64_t{m_data.columns} * m_data.lines;
    if (cells > kMaxSmallGrid && cells / kMostCellsPerByte > lines().bytes()) throw std::bad_alloc();
    m_data.allocate(m_data.columns, m_data.lines);
}

/// The file has ended before row `fromRow` of this block: without a reading, its cells are missing values.
void DataFileReader::storeMissingRows(int layer, std::int32_t fromRow)
{
    m_warning = fault("ends at line " + plainText(lines().leadingEmptyLines() + lines().linesRead()) + ", although " +
                      plainText(m_data.lines) +
                      " rows per layer were expected. The rows that are there were read; all others hold "
                      "missing values.")
                    .what();
    for (std::int32_t row = fromRow; row < m_data.lines; ++row)
        for (std::int32_t c = 0; c < m_data.columns; ++c) m_data.values(layer, c, row) = m_missing;
}

void DataFileReader::fillRow(std::int32_t row, bool fillBase, bool fillOut)
{
    double* const cells = m_data.values.row(row);
    const std::ptrdiff_t size = fillBase || fillOut ? m_data.values.rowStride() : 0;
    const double out = m_data.zeroOut ? 0 : m_missing;
    for (std::ptrdiff_t cell = 0; cell < size; cell += kLayers) {
        if (fillBase) cells[cell + kBaseline - 1] = m_missing;
        if (fillOut) cells[cell + kConverted - 1] = out;
    }
}

LineReader& DataFileReader::lines()
{
    if (!m_lines) m_lines.emplace(m_stream, m_name);
    return *m_lines;
}

NamedFault DataFileReader::fault(const std::string& what) const
{
    return NamedFault('"' + m_name + "\" " + what);
}

} // namespace tarvelint
