// SPDX-License-Identifier: MIT
#pragma once

#include "data/data_file_writer.h"
#include "data/data_set.h"
#include "data/file_format.h"
#include "data/progress.h"
#include "data/setting_defaults.h"
#include "window/ports.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace tarvelint {

/// A record as a file holds it.
struct LoadedRecord {
    DataSet data;
    bool hadHeader = false;
    bool hadLabelsLine = false;
    LayerSet layers;
    std::string warning; ///< what the user should know about a record that was read all the same
};

/// How a file's absent numbers are to be taken.
struct MissingValues {
    std::int32_t blank = defaults::kBlank.as<std::int32_t>(); ///< of files that do not say
    bool zeroOut = false;                                     ///< fill an absent converted layer with 0
    std::function<std::int32_t()> settingBlank;               ///< asked for files that write missing values as dots
};

/// Reads the whole file. What `progress` throws passes through.
/// @throws FormatFault when it cannot be opened or is no record
[[nodiscard]] LoadedRecord readRecord(Files& files, const std::string& path, FileType type,
                                      const MissingValues& missing, Progress& progress);

/// Replaces the file in one step. @throws FileFailure and leaves the old file as it was
void writeRecord(Files& files, const std::string& path, FileType type, const DataSet& data, const FileContents& choices,
                 const HeaderStyle& style, Progress& progress);

/// What a file type makes of the first row of a file.
struct TypeGuess {
    FileType type = FileType::space;
    std::size_t fields = 0;
};

/// The type that splits the first row of a file into most fields, when `chosen` finds but one field in it; none when
/// `chosen` will do, for a file with a header line, for one of a single line, and for one that cannot be read.
[[nodiscard]] std::optional<TypeGuess> likelierType(Files& files, const std::string& path, FileType chosen);

} // namespace tarvelint
