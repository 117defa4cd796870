// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace tarvelint {

/// What a long file operation tells while it runs. An implementation may throw to give up.
class Progress {
public:
    virtual ~Progress() = default;
    /// What is being done now, as the status bar says it.
    virtual void status(const std::string& text) = 0;
    /// After each row: shows the row number (1-based) and lets pending events run. Called for every
    /// row; implementations act on it every few milliseconds.
    virtual void row(std::int32_t row1) = 0;
};

} // namespace tarvelint
