// SPDX-License-Identifier: MIT
#pragma once

#include <stdexcept>

namespace tarvelint {

/// A rule broken in the middle of a command that no rule of its own answers: one message box, and the command ends.
class CommandFailure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

} // namespace tarvelint
