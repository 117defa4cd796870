// SPDX-License-Identifier: MIT
#pragma once

#include "data/data_set.h"
#include "data/file_format.h"
#include "data/progress.h"

#include <string>
#include <string_view>

namespace tarvelint {

/// Where bytes go: a file that is written beside its target, or a test's string. `write` throws on failure.
class TextSink {
public:
    virtual ~TextSink() = default;
    virtual void write(std::string_view bytes) = 0;
};

/// What the system contributes to a header line.
struct HeaderStyle {
    std::string longDate;
    std::string grouping;
};

/// Writes the chosen layers of a data set, each as a block of lines ended by CR LF, through one fixed
/// buffer. Labels stand byte for byte, but for what would make another field or line of them ("_" instead; the column's
/// number for an empty one where delimiters count in runs). What `sink` or `progress` throws passes through.
void writeDataFile(const DataSet& data, const FileContents& choices, char delimiter, const HeaderStyle& style,
                   TextSink& sink, Progress& progress);

} // namespace tarvelint
