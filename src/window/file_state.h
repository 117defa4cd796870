// SPDX-License-Identifier: MIT
#pragma once

#include "data/file_format.h"

#include <optional>
#include <string>

namespace tarvelint {

/// The files of a window's record. Paths are the system's bytes.
struct FileState {
    std::string filePath;                  ///< the file opened, empty for a new window
    std::string savePath;                  ///< the file last saved, empty until then
    std::optional<FileType> fileDelimiter; ///< of the file opened or last saved; none for a new window
    SaveChoices choices;                   ///< what of the record a save writes
};

} // namespace tarvelint
