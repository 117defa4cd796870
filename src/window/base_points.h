// SPDX-License-Identifier: MIT
#pragma once

#include <cassert>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace tarvelint {

/// Marks of baseline points by sensor ordinal and row, both 0-based.
class BasePoints {
public:
    /// Drops every mark; bounds are 0..sensors-1 and 0..lines-1.
    void allocate(std::int32_t sensors, std::int32_t lines)
    {
        m_marks.assign(static_cast<std::size_t>(sensors) * static_cast<std::size_t>(lines), false);
        m_sensors = sensors;
        m_lines = lines;
    }
    /// Whether a row bears a point; both numbers must be within the bounds.
    [[nodiscard]] bool operator()(std::int32_t sensor, std::int32_t row) const { return m_marks[index(sensor, row)]; }
    void set(std::int32_t sensor, std::int32_t row, bool mark) { m_marks[index(sensor, row)] = mark; }
    /// 0 for a record whose points have not been looked for.
    [[nodiscard]] std::int32_t sensors() const { return m_sensors; }
    [[nodiscard]] std::int32_t lines() const { return m_lines; }

private:
    [[nodiscard]] std::size_t index(std::int32_t sensor, std::int32_t row) const
    {
        assert(sensor >= 0 && sensor < m_sensors && row >= 0 && row < m_lines);
        return static_cast<std::size_t>(sensor) * static_cast<std::size_t>(m_lines) + static_cast<std::size_t>(row);
    }
    std::vector<bool> m_marks;
    std::int32_t m_sensors = 0;
    std::int32_t m_lines = 0;
};

} // namespace tarvelint
