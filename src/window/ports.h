// SPDX-License-Identifier: MIT
#pragma once

#include "data/data_file_writer.h"

#include <chrono>
#include <istream>
#include <memory>
#include <stdexcept>
#include <string>

/// The small doors to the machine. Each has a double in tests/support.
namespace tarvelint {

/// What long operations measure their pauses by.
class Clock {
public:
    virtual ~Clock() = default;
    /// Monotonic time since an arbitrary start.
    [[nodiscard]] virtual std::chrono::milliseconds now() const = 0;
};

/// What the user's system settings say about dates and numbers.
class SystemStyle {
public:
    virtual ~SystemStyle() = default;
    /// Today's date in the system's long form.
    [[nodiscard]] virtual std::string longDate() const = 0;
    /// The digit grouping sign, UTF-8; empty where the system groups no digits.
    [[nodiscard]] virtual std::string grouping() const = 0;
};

/// A file could not be opened, read or written; the text is the system's reason.
class FileFailure : public std::runtime_error {
public:
    enum class Kind { inUse, other }; ///< inUse: permission denied, busy
    FileFailure(Kind kind, const std::string& reason) : std::runtime_error(reason), m_kind(kind) {}
    [[nodiscard]] Kind kind() const { return m_kind; }

private:
    Kind m_kind;
};

/// A file in the making: written beside its target, which stays as it was until `commit` replaces it in
/// one step. Destroyed without `commit`, it leaves nothing behind. Both throw FileFailure.
class SafeFile : public TextSink {
public:
    /// Puts what was written in the target's place. To be called once, last.
    virtual void commit() = 0;
};

/// The file system as commands see it. Paths are the system's bytes.
class Files {
public:
    virtual ~Files() = default;
    /// A seekable stream. @throws FileFailure (missing, a folder, no permission)
    [[nodiscard]] virtual std::unique_ptr<std::istream> openForReading(const std::string& path) = 0;
    /// @throws FileFailure; refuses a read-only target, a folder and anything that is no regular file
    [[nodiscard]] virtual std::unique_ptr<SafeFile> createSafely(const std::string& path) = 0;
    /// Whether anything bears that name, be it a folder.
    [[nodiscard]] virtual bool exists(const std::string& path) const = 0;
};

} // namespace tarvelint
