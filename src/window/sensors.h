// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cassert>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

namespace tarvelint {

/// The sensor columns of a record and their baseline points (`basePoints`). A sensor is known by its ordinal; ordinals,
/// columns and rows are 0-based. Empty until zero flow has been looked for.
class Sensors {
public:
    /// Takes these sensor columns, in the order of their ordinals, and drops every point.
    /// @param sensorCols  0-based, one per sensor
    /// @param lines       rows of the record
    void assign(std::vector<std::int32_t> sensorCols, std::int32_t lines)
    {
        m_sensorCols = std::move(sensorCols);
        m_lines = lines;
        m_basePoints.assign(m_sensorCols.size() * static_cast<std::size_t>(lines), false);
        m_areEdited = false;
    }
    /// Points were added, moved or removed by the user since they were placed.
    [[nodiscard]] bool areEdited() const { return m_areEdited; }
    void markEdited() { m_areEdited = true; }
    /// The record is another one: no sensor, no point.
    void clear() { assign({}, 0); }

    [[nodiscard]] std::int32_t count() const { return static_cast<std::int32_t>(m_sensorCols.size()); }
    /// Rows that points can stand in: those of the record they were made for.
    [[nodiscard]] std::int32_t lines() const { return m_lines; }
    [[nodiscard]] bool has(std::int32_t sensor) const { return sensor >= 0 && sensor < count(); }
    [[nodiscard]] std::int32_t column(std::int32_t sensor) const
    {
        return m_sensorCols[static_cast<std::size_t>(sensor)];
    }
    /// The sensor of a column, -1 when it is none.
    [[nodiscard]] std::int32_t ordinalOf(std::int32_t column0) const
    {
        const auto found = std::find(m_sensorCols.begin(), m_sensorCols.end(), column0);
        return found == m_sensorCols.end() ? -1 : static_cast<std::int32_t>(found - m_sensorCols.begin());
    }

    /// Whether a row of the record bears a point; False for a sensor or row that is not there.
    [[nodiscard]] bool isPoint(std::int32_t sensor, std::int32_t row) const
    {
        return has(sensor) && hasRow(row) && m_basePoints[index(sensor, row)];
    }
    /// Both numbers must be within the bounds.
    void setPoint(std::int32_t sensor, std::int32_t row, bool mark)
    {
        assert(has(sensor) && hasRow(row));
        m_basePoints[index(sensor, row)] = mark;
    }
    /// The last point at or before a row; none for a sensor that is not there.
    [[nodiscard]] std::optional<std::int32_t> pointUpTo(std::int32_t sensor, std::int32_t row) const
    {
        for (std::int32_t r = std::min(row, m_lines - 1); has(sensor) && r >= 0; --r)
            if (m_basePoints[index(sensor, r)]) return r;
        return std::nullopt;
    }
    /// The first point at or after a row.
    [[nodiscard]] std::optional<std::int32_t> pointFrom(std::int32_t sensor, std::int32_t row) const
    {
        for (std::int32_t r = std::max(row, 0); has(sensor) && r < m_lines; ++r)
            if (m_basePoints[index(sensor, r)]) return r;
        return std::nullopt;
    }

private:
    [[nodiscard]] bool hasRow(std::int32_t row) const { return row >= 0 && row < m_lines; }
    [[nodiscard]] std::size_t index(std::int32_t sensor, std::int32_t row) const
    {
        return static_cast<std::size_t>(sensor) * static_cast<std::size_t>(m_lines) + static_cast<std::size_t>(row);
    }

    std::vector<std::int32_t> m_sensorCols;
    std::vector<bool> m_basePoints; ///< row by row of one sensor after the other
    std::int32_t m_lines = 0;
    bool m_areEdited = false;
};

} // namespace tarvelint
