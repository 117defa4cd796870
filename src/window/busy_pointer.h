// SPDX-License-Identifier: MIT
#pragma once

#include "window/window.h"

namespace tarvelint {

/// While it lives its window shows the hourglass; then the pointer is as it was, however the work ends.
class BusyPointer {
public:
    explicit BusyPointer(Window& window) : m_window(window), m_pointer(window.pointer())
    {
        window.setPointer(Pointer::hourglass);
    }
    ~BusyPointer() { m_window.setPointer(m_pointer); }
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;

private:
    Window& m_window;
    Pointer m_pointer;
};

} // namespace tarvelint
