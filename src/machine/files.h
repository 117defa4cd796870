// SPDX-License-Identifier: MIT
#pragma once

#include "machine/safe_file.h"
#include "window/ports.h"

#include <utility>

namespace tarvelint {

/// The real file system. A path is what the system takes it for: any bytes, UTF-8 or not.
class DiskFiles : public Files {
public:
    explicit DiskFiles(SaveCalls saveCalls = {}) : m_saveCalls(std::move(saveCalls)) {}

    [[nodiscard]] std::unique_ptr<std::istream> openForReading(const std::string& path) override;
    [[nodiscard]] std::unique_ptr<SafeFile> createSafely(const std::string& path) override;
    [[nodiscard]] bool exists(const std::string& path) const override;

private:
    SaveCalls m_saveCalls;
};

} // namespace tarvelint
