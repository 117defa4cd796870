// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace tarvelint {

struct DataSet;
class Window;

/// Straight lines between the highest readings of consecutive 48-row blocks, in the baseline layer of a column
/// (0-based) of a record with at least one row; the first line starts at row 0. Rows after the last maximum stay as
/// they are.
/// @return False when the column has no reading, and nothing was written
bool drawBlockMaxima(DataSet& data, std::int32_t column);

/// The "Baseline" button.
class BlockMaxima {
public:
    explicit BlockMaxima(Window& window) : m_window(window) {}

    /// Lays that baseline under the column on view. Takes an undo copy of the whole column; nothing happens when no
    /// column is chosen.
    void baseButton_Click();

private:
    Window& m_window;
};

} // namespace tarvelint
