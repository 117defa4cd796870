// SPDX-License-Identifier: MIT
#pragma once

#include "data/data_set.h"
#include "data/file_format.h"
#include "data/line_reader.h"
#include "data/progress.h"

#include <functional>
#include <istream>
#include <optional>
#include <string>

namespace tarvelint {

/// Reads a delimited record into a data set, with or without this program's header line. The data set
/// handed in carries the window's settings (`blank`, `zeroOut`, the parameter columns); after a failure
/// it is unspecified and to be thrown away, so callers pass a fresh one and keep the old.
class DataFileReader {
public:
    /// @param settingBlank asks the settings store for the missing-value number; called only for files
    ///        that write missing values as dots
    DataFileReader(std::istream& stream, std::string name, char delimiter, DataSet& target, Progress& progress,
                   std::function<std::int32_t()> settingBlank);

    /// @throws FormatFault with the text for the user; std::bad_alloc never escapes (it becomes a fault)
    void load();

    [[nodiscard]] bool hadHeader() const { return m_hadHeader; }
    [[nodiscard]] bool hadLabelsLine() const { return m_hadLabelsLine; }
    /// What the user should know about a record that was read all the same (a file shorter than its
    /// header says); empty when all is well.
    [[nodiscard]] const std::string& warning() const { return m_warning; }

    /// Splits `linestring` into the data set's labels, one per field; sets `columns` when it is 0, and
    /// `labelsAreText`. @throws FormatFault when there are more than 32,767 fields
    void readLabels(std::string_view linestring, char delim);

private:
    bool m_hadHeader = false;
    bool m_hadLabelsLine = false;
    std::string m_warning;
};

} // namespace tarvelint
