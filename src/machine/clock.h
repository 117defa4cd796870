// SPDX-License-Identifier: MIT
#pragma once

#include "window/ports.h"

#include <chrono>
#include <cstdint>
#include <ctime>

namespace tarvelint {

class SteadyClock : public Clock {
public:
    [[nodiscard]] std::chrono::milliseconds now() const override
    {
#ifdef CLOCK_MONOTONIC_COARSE
        // Every row of a long loop asks, and a few milliseconds either way do not matter: the last tick will do.
        timespec tick{};
        clock_gettime(CLOCK_MONOTONIC_COARSE, &tick);
        return std::chrono::milliseconds(std::int64_t{tick.tv_sec} * 1000 + tick.tv_nsec / 1'000'000);
#else
        return std::chrono::duration_cast<std::chrono::milliseconds>(
            std::chrono::steady_clock::now().time_since_epoch());
#endif
    }
};

} // namespace tarvelint
