// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace tarvelint {

/// A list of columns that cannot be read, or names a column that the file does not have.
class ColumnChoiceFault : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Columns named by a list such as "1-4,9,Tair": numbers and ranges from 1, and labels (byte for byte; the first column
/// of that label). A whole number is always a column number.
/// @return one flag per column, True where the list names it
/// @throws ColumnChoiceFault
[[nodiscard]] std::vector<bool> chosenColumns(std::string_view list, std::span<const std::string> labels);

} // namespace tarvelint
