// SPDX-License-Identifier: MIT
#pragma once

#include "data/setting_defaults.h"

#include <cassert>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

namespace tarvelint {

/// The three layers of every cell, numbered as files and commands count them.
enum Layer : int { kUnconverted = 1, kBaseline = 2, kConverted = 3 };
inline constexpr int kLayers = 3;

/// Some of the three layers, as a file holds them.
struct LayerSet {
    bool unconverted = false;
    bool baseline = false;
    bool converted = false;
    bool operator==(const LayerSet&) const = default;
};

/// One layer of one column, addressed by 0-based row; rows lie `stride` doubles apart.
template <class T>
class ColumnView {
public:
    ColumnView(T* first, std::ptrdiff_t stride) : m_first(first), m_stride(stride) {}
    T& operator[](std::ptrdiff_t row) const { return m_first[row * m_stride]; }

private:
    T* m_first;
    std::ptrdiff_t m_stride;
};

/// The grid (layer 1 to 3, column from 0, row from 0) in one allocation, layer fastest, then column,
/// then row: a row's cells, and the three layers of a cell, are neighbours in memory.
class Values {
public:
    /// Drops the old content and creates all cells as 0. @throws std::bad_alloc
    void allocate(std::int32_t columns, std::int32_t lines);

    [[nodiscard]] double& operator()(int layer, std::int32_t column, std::int32_t row)
    {
        return m_cells.get()[index(layer, column, row)];
    }
    [[nodiscard]] double operator()(int layer, std::int32_t column, std::int32_t row) const
    {
        return m_cells.get()[index(layer, column, row)];
    }
    [[nodiscard]] ColumnView<double> column(int layer, std::int32_t column)
    {
        return {m_cells.get() + index(layer, column, 0), rowStride()};
    }
    [[nodiscard]] ColumnView<const double> column(int layer, std::int32_t column) const
    {
        return {m_cells.get() + index(layer, column, 0), rowStride()};
    }
    /// The first layer of the first cell of a row; cell c of layer l lies at `3 * c + l - 1`.
    [[nodiscard]] double* row(std::int32_t row) { return m_cells.get() + row * rowStride(); }
    [[nodiscard]] const double* row(std::int32_t row) const { return m_cells.get() + row * rowStride(); }
    [[nodiscard]] std::ptrdiff_t rowStride() const { return std::ptrdiff_t{m_columns} * kLayers; }

private:
    [[nodiscard]] std::ptrdiff_t index(int layer, std::int32_t column, std::int32_t row) const
    {
        assert(layer >= 1 && layer <= kLayers && column >= 0 && column < m_columns && row >= 0 && row < m_lines);
        return row * rowStride() + std::ptrdiff_t{column} * kLayers + (layer - 1);
    }
    struct Free {
        void operator()(double* cells) const { std::free(cells); }
    };
    std::unique_ptr<double, Free> m_cells;
    std::int32_t m_columns = 0;
    std::int32_t m_lines = 0;
};

/// One record: its shape, its three layers and what its file says about them.
struct DataSet {
    std::int16_t columns = 0;
    std::int32_t lines = 0;
    Values values;
    std::vector<std::string> labels; ///< one per column, bytes as the file had them
    bool labelsAreText = false;      ///< at least one field of the line last split into labels is no number
    std::vector<bool> lullFlags;     ///< one per row: inside a qualifying VPD and PAR lull
    /// The number that stands for a missing value, in every layer.
    std::int32_t blank = defaults::kBlank.as<std::int32_t>();
    bool zeroOut = false; ///< an absent converted layer is filled with 0 instead of `blank`

    /// Sizes the grid and the lull flags together; every cell 0, every flag False.
    /// @throws std::bad_alloc and changes nothing
    void allocate(std::int16_t newColumns, std::int32_t newLines);

    [[nodiscard]] bool isBlank(double value) const { return value == static_cast<double>(blank); }
    /// What may stand in a cell: a value that is not finite becomes `blank`.
    [[nodiscard]] double storable(double value) const { return std::isfinite(value) ? value : blank; }
    [[nodiscard]] bool hasColumn(std::int32_t column0) const { return column0 >= 0 && column0 < columns; }
    [[nodiscard]] bool hasRow(std::int32_t row) const { return row >= 0 && row < lines; }
};

} // namespace tarvelint
