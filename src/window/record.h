// SPDX-License-Identifier: MIT
#pragma once

#include "data/data_set.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tarvelint {

/// The record of a window: its data set, what the user has decided about its columns, and whether all of it is saved.
struct Record : DataSet {
    std::vector<bool> parameters; ///< "Do not convert", by 0-based column; a column it does not reach is a sensor
    bool savesLabels = false;     ///< labels go into saved files; as the file came until the user decides
    bool saveCheck = true;        ///< no unsaved change

    [[nodiscard]] bool isEmpty() const { return lines <= 0 || columns <= 0; }
    [[nodiscard]] bool isParameter(std::int32_t column0) const
    {
        return column0 >= 0 && static_cast<std::size_t>(column0) < parameters.size() &&
               parameters[static_cast<std::size_t>(column0)];
    }
    /// The columns that are no parameters, 0-based and ascending.
    [[nodiscard]] std::vector<std::int32_t> sensorColumns() const
    {
        std::vector<std::int32_t> found;
        for (std::int32_t c = 0; c < columns; ++c)
            if (!isParameter(c)) found.push_back(c);
        return found;
    }
};

} // namespace tarvelint
