// SPDX-License-Identifier: MIT
#pragma once

#include "data/data_set.h"

#include <cstdint>
#include <utility>

namespace tarvelint {

/// Whether a cell has a baseline to be converted on.
[[nodiscard]] inline bool hasBaseline(const DataSet& data, std::int32_t column, std::int32_t row)
{
    return !data.isBlank(data.values(kBaseline, column, row));
}

/// Stores in the converted layer what `convert(reading, baseline)` makes of a cell; a value that is not finite becomes
/// missing. A template, for it runs once a cell.
template <class Convert>
void convertCell(DataSet& data, std::int32_t column, std::int32_t row, Convert&& convert)
{
    const double converted =
        std::forward<Convert>(convert)(data.values(kUnconverted, column, row), data.values(kBaseline, column, row));
    data.values(kConverted, column, row) = data.storable(converted);
}

} // namespace tarvelint
