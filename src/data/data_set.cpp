// SPDX-License-Identifier: MIT
#include "data/data_set.h"

#include <new>
#include <utility>

namespace tarvelint {

void Values::allocate(std::int32_t columns, std::int32_t lines)
{
    const auto cells = static_cast<std::size_t>(columns) * static_cast<std::size_t>(lines) * kLayers;
    // calloc hands out zeroed pages untouched: a large record is written once, by the reader.
    std::unique_ptr<double, Free> fresh(static_cast<double*>(std::calloc(cells > 0 ? cells : 1, sizeof(double))));
    if (!fresh) throw std::bad_alloc();
    m_cells = std::move(fresh);
    m_columns = columns;
    m_lines = lines;
}

void DataSet::allocate(std::int16_t newColumns, std::int32_t newLines)
{
    std::vector<bool> flags(static_cast<std::size_t>(newLines), false);
    values.allocate(newColumns, newLines);
    lullFlags = std::move(flags);
    columns = newColumns;
    lines = newLines;
}

} // namespace tarvelint
