// SPDX-License-Identifier: MIT
#pragma once

#include <unistd.h>

namespace tarvelint::test {

/// The rest of the process is without privileges: root would pass every permission. For children of `EXPECT_EXIT`.
inline void becomeNobody()
{
    constexpr uid_t kNobody = 65534;
    if (::geteuid() == 0 && (::setgid(kNobody) != 0 || ::setuid(kNobody) != 0)) ::_exit(9);
}

} // namespace tarvelint::test
