// SPDX-License-Identifier: MIT
#pragma once

namespace tarvelint {

/// As `scanNumber`, but a number that is too large gives an infinity instead of none; for `leadingNumber`.
/// `value` becomes 0 when there is no number.
[[nodiscard]] const char* scanAnySize(const char* first, const char* last, double& value);

} // namespace tarvelint
