// SPDX-License-Identifier: MIT
#pragma once

#include "window/ports.h"

namespace tarvelint {

class SteadyClock : public Clock {
public:
    [[nodiscard]] std::chrono::milliseconds now() const override
    {
        return std::chrono::duration_cast<std::chrono::milliseconds>(
            std::chrono::steady_clock::now().time_since_epoch());
    }
};

} // namespace tarvelint
