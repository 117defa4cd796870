// SPDX-License-Identifier: MIT
#pragma once

#include "window/ports.h"

#include <functional>
#include <string>

#include <sys/types.h>

struct stat;

namespace tarvelint {

/// The system calls of a save that may be refused, the system's own unless a test puts in others. Each gives a negative
/// number and sets `errno` when it fails.
struct SaveCalls {
    SaveCalls();
    std::function<int(const char* path, int flags, mode_t mode)> open;
    std::function<ssize_t(int file, const void* bytes, std::size_t count)> write;
    std::function<int(int file)> sync; ///< of the file, later of its folder
    std::function<int(int file)> close;
    std::function<int(const char* from, const char* to)> rename;
};

/// A file in the making on the real disk. It lies beside its target, behind whatever links lead there, under a name of
/// its own; the new file has the permissions of the one it replaces.
class DiskSafeFile : public SafeFile {
public:
    /// @throws FileFailure; refuses a target that is a folder, no regular file, or may not be written
    DiskSafeFile(const std::string& path, SaveCalls calls);
    ~DiskSafeFile() override;
    DiskSafeFile(const DiskSafeFile&) = delete;
    DiskSafeFile& operator=(const DiskSafeFile&) = delete;

    void write(std::string_view bytes) override;
    void commit() override;

private:
    void refuseUnlessWritable(const struct stat& old);
    void openTemporary(mode_t mode);
    void closeTemporary();
    void syncTemporary();
    void syncFolder();

    SaveCalls m_calls;
    std::string m_target;
    std::string m_temporary; ///< empty once it has taken the target's place
    int m_file = -1;
};

} // namespace tarvelint
