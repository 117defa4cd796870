// SPDX-License-Identifier: MIT
#pragma once

#include "data/data_set.h"
#include "data/file_format.h"
#include "data/line_reader.h"
#include "data/progress.h"

#include <cstdint>
#include <functional>
#include <istream>
#include <optional>
#include <string>
#include <string_view>

namespace tarvelint {

/// Reads a delimited record into a data set, with or without this program's header line. The data set
/// handed in says what stands for absent numbers (`blank`, `zeroOut`); after a failure
/// it is unspecified and to be thrown away, so callers pass a fresh one and keep the old.
class DataFileReader {
public:
    /// A grid of more cells than this (400 MB in three layers) must stand in some proportion to its file: a field takes
    /// two bytes as a rule, and lines that are cut short rarely lack nine fields in ten.
    static constexpr std::int64_t kMaxSmallGrid = std::int64_t{1} << 24U;
    static constexpr std::int64_t kMostCellsPerByte = 5;

    /// @param stream seekable; read from its start
    /// @param name the file's name for messages
    /// @param settingBlank asks the settings store for the missing-value number; called only for files
    ///        that write missing values as dots
    DataFileReader(std::istream& stream, std::string name, char delimiter, DataSet& target, Progress& progress,
                   std::function<std::int32_t()> settingBlank);

    /// Reads the whole file: header if any, labels, every layer block. What `progress` throws passes through.
    /// @throws FormatFault with the text for the user; std::bad_alloc never escapes (it becomes a fault)
    void load();

    [[nodiscard]] bool hadHeader() const { return m_hadHeader; }
    /// Layers the file holds; a headerless one holds readings only.
    [[nodiscard]] const LayerSet& layers() const { return m_layers; }
    [[nodiscard]] bool hadLabelsLine() const { return m_hadLabelsLine; }
    /// What the user should know about a record that was read all the same (a file shorter than its
    /// header says); empty when all is well.
    [[nodiscard]] const std::string& warning() const { return m_warning; }

    /// Splits `linestring` into the data set's labels, one per field; sets `columns` when it is 0, and
    /// `labelsAreText`. Then surplus labels are dropped and missing ones become the column's number.
    /// @throws FormatFault when `columns` would have to be more than 32,767
    void readLabels(std::string_view linestring, char delim);

    /// Reads one layer block. When `lines` is below 1 it first counts the file's lines and sizes the data set.
    /// Rows that the file lacks become missing values and leave a `warning`.
    /// @param arrayDim  layer 1 to 3; 0 reads a headerless file into layer 1
    /// @param skipLines lines before the block's first data line, from the first non-empty one
    /// @param fillBase  fill the baseline layer with the missing-value number afterwards
    /// @param fillOut   fill the converted layer afterwards: 0 when `zeroOut`, else the missing-value number
    void readFile(int arrayDim, std::int64_t skipLines, bool fillBase, bool fillOut);

private:
    void loadHeaderless(std::string_view firstLine);
    void loadWithHeader(std::string_view firstLine);
    [[nodiscard]] FileHeader parseNamed(std::string_view firstLine) const;
    void readHeaderLabels();
    void numberColumns();
    void countRows(std::int64_t skipLines);
    void allocate();
    void storeMissingRows(int layer, std::int32_t fromRow);
    void fillRow(std::int32_t row, bool fillBase, bool fillOut);
    LineReader& lines();
    [[nodiscard]] NamedFault fault(const std::string& what) const;

    std::istream& m_stream;
    std::string m_name;
    char m_delimiter;
    DataSet& m_data;
    Progress& m_progress;
    std::function<std::int32_t()> m_settingBlank;
    std::optional<LineReader> m_lines;
    std::int32_t m_missing; ///< the number stored for a missing value during this read
    bool m_hadHeader = false;
    LayerSet m_layers{.unconverted = true};
    bool m_hadLabelsLine = false;
    std::string m_warning;
};

} // namespace tarvelint
