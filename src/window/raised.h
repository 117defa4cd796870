// SPDX-License-Identifier: MIT
#pragma once

namespace tarvelint {

/// A flag that is True for as long as this lives, however its scope is left.
class Raised {
public:
    explicit Raised(bool& flag) : m_flag(flag) { m_flag = true; }
    ~Raised() { m_flag = false; }
    Raised(const Raised&) = delete;
    Raised& operator=(const Raised&) = delete;

private:
    bool& m_flag;
};

} // namespace tarvelint
