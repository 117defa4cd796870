// SPDX-License-Identifier: MIT
#pragma once

#include "data/data_set.h"

#include <cstdint>
#include <vector>

namespace tarvelint::test {

/// Makes columns of readings (layer 1), all of one length, the whole of a data set; baseline and converted start as 0.
inline void setReadings(DataSet& data, const std::vector<std::vector<double>>& columns)
{
    data.allocate(static_cast<std::int16_t>(columns.size()),
                  columns.empty() ? 0 : static_cast<std::int32_t>(columns.front().size()));
    for (std::int32_t c = 0; c < data.columns; ++c)
        for (std::int32_t r = 0; r < data.lines; ++r)
            data.values(kUnconverted, c, r) = columns[static_cast<std::size_t>(c)][static_cast<std::size_t>(r)];
}

/// One layer of one column, top to bottom.
inline std::vector<double> columnOf(const DataSet& data, int layer, std::int32_t column0)
{
    std::vector<double> cells;
    for (std::int32_t r = 0; r < data.lines; ++r) cells.push_back(data.values(layer, column0, r));
    return cells;
}

} // namespace tarvelint::test
