// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace tarvelint {

/// The caption a form takes: `candidate` when no open form bears it, else "Tarvelint 1", "Tarvelint 2" ... (the
/// number grouped with `grouping`), the first that is free.
[[nodiscard]] std::string uniqueCaption(std::string candidate, std::span<const std::string> openForms,
                                        std::string_view grouping);

} // namespace tarvelint
