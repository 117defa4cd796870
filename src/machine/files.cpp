// SPDX-License-Identifier: MIT
#include "machine/files.h"

#include "machine/system_failure.h"

#include <fstream>

#include <sys/stat.h>

namespace tarvelint {

std::unique_ptr<std::istream> DiskFiles::openForReading(const std::string& path)
{
    struct stat status = {};
    const bool found = ::stat(path.c_str(), &status) == 0;
    if (found && S_ISDIR(status.st_mode)) throw systemFailure(EISDIR);
    // A pipe or a device may never end, or wait for ever before it begins.
    if (found && !S_ISREG(status.st_mode)) throw FileFailure(FileFailure::Kind::other, "It is not a regular file");
    errno = 0;
    auto stream = std::make_unique<std::ifstream>(path, std::ios::binary);
    if (!*stream) throw systemFailure(errno != 0 ? errno : EIO);
    return stream;
}

std::unique_ptr<SafeFile> DiskFiles::createSafely(const std::string& path)
{
    return std::make_unique<DiskSafeFile>(path, m_saveCalls);
}

bool DiskFiles::exists(const std::string& path) const
{
    struct stat status = {};
    return ::stat(path.c_str(), &status) == 0;
}

} // namespace tarvelint
