// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

namespace tarvelint::test {

/// How often the program has asked for memory; counted in programs that are built with allocations.cpp.
[[nodiscard]] std::size_t allocationsSoFar();

} // namespace tarvelint::test
