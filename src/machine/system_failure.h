// SPDX-License-Identifier: MIT
#pragma once

#include "window/ports.h"

#include <cerrno>
#include <system_error>

namespace tarvelint {

/// What the system refused with, in its own words.
[[nodiscard]] inline FileFailure systemFailure(int code)
{
    const bool inUse = code == EACCES || code == EPERM || code == EBUSY || code == ETXTBSY;
    return {inUse ? FileFailure::Kind::inUse : FileFailure::Kind::other, std::generic_category().message(code)};
}

} // namespace tarvelint
