// SPDX-License-Identifier: MIT
#pragma once

#include "window/ports.h"

namespace tarvelint {

/// The real file system.
class DiskFiles : public Files {
public:
    [[nodiscard]] std::unique_ptr<std::istream> openForReading(const std::string& path) override;
    [[nodiscard]] std::unique_ptr<SafeFile> createSafely(const std::string& path) override;
    [[nodiscard]] bool exists(const std::string& path) const override;
};

} // namespace tarvelint
