// SPDX-License-Identifier: MIT
#include "machine/safe_file.h"

#include "machine/system_failure.h"

#include <cstdio>
#include <filesystem>
#include <optional>
#include <random>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tarvelint {

namespace {

/// As many as the system follows in one name.
constexpr int kMostLinks = 40;
constexpr int kMostNamesTried = 100;
constexpr mode_t kPermissions = 0777;
/// What the system lets through of these for a new file is the user's choice.
constexpr mode_t kNewFile = 0666;

/// Of what the system finds behind all links; nullopt when there is nothing.
std::optional<struct stat> statusOf(const std::string& path)
{
    struct stat status = {};
    if (::stat(path.c_str(), &status) == 0) return status;
    if (errno != ENOENT) throw systemFailure(errno);
    return std::nullopt;
}

/// With its last "/"; empty where the name stands alone.
std::string folderOf(const std::string& path)
{
    return path.substr(0, path.rfind('/') + 1);
}

/// The name that a save to `path` has to replace or create. Only a link in last place is taken apart: the folders
/// before it go to the system as they are, because a ".." in them, after a link, is not the folder written before it.
std::string behindLinks(std::string path)
{
    for (int links = 0; links <= kMostLinks; ++links) {
        struct stat status = {};
        if (::lstat(path.c_str(), &status) != 0 && errno != ENOENT) throw systemFailure(errno);
        if (!S_ISLNK(status.st_mode)) return path;
        std::error_code error;
        std::string target = std::filesystem::read_symlink(path, error).native();
        if (error) throw systemFailure(error.value());
        if (!target.starts_with('/')) target.insert(0, folderOf(path));
        path = std::move(target);
    }
    throw systemFailure(ELOOP);
}

bool isSameFile(const struct stat& one, const std::optional<struct stat>& other)
{
    return other && one.st_dev == other->st_dev && one.st_ino == other->st_ino;
}

} // namespace

SaveCalls::SaveCalls()
    : open([](const char* path, int flags, mode_t mode) { return ::open(path, flags, mode); }), write(::write),
      sync(::fsync), close(::close), rename(std::rename)
{
}

DiskSafeFile::DiskSafeFile(const std::string& path, SaveCalls calls) : m_calls(std::move(calls))
{
    if (path.empty()) throw systemFailure(ENOENT);
    const auto old = statusOf(path);
    if (old && S_ISDIR(old->st_mode)) throw systemFailure(EISDIR);
    if (old && !S_ISREG(old->st_mode)) throw FileFailure(FileFailure::Kind::other, path + " is not a regular file");
    m_target = behindLinks(path);
    if (old) {
        refuseUnlessWritable(*old);
        openTemporary(old->st_mode & kPermissions);
        // Where it fails the file system keeps no such permissions; the file was made with no more than the old one's.
        static_cast<void>(::fchmod(m_file, old->st_mode & kPermissions));
    } else {
        openTemporary(kNewFile);
    }
}

void DiskSafeFile::refuseUnlessWritable(const struct stat& old)
{
    // The links of /proc read as names that may be another file's by now, or nobody's.
    if (!isSameFile(old, statusOf(m_target))) throw systemFailure(ENOENT);
    // Renaming asks the folder only: whether the file itself may be written shows when it is opened for that.
    const int probe = m_calls.open(m_target.c_str(), O_WRONLY | O_CLOEXEC | O_NOFOLLOW, 0);
    if (probe < 0) throw systemFailure(errno);
    m_calls.close(probe);
}

DiskSafeFile::~DiskSafeFile()
{
    if (m_file >= 0) m_calls.close(m_file);
    if (!m_temporary.empty()) ::unlink(m_temporary.c_str());
}

void DiskSafeFile::openTemporary(mode_t mode)
{
    // A short name of its own: the target's may already be as long as a name can be.
    std::random_device random;
    for (int tried = 0; tried < kMostNamesTried; ++tried) {
        std::string name = folderOf(m_target) + ".tarvelint-" + std::to_string(random());
        m_file = m_calls.open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
        if (m_file < 0 && errno == EEXIST) continue;
        if (m_file < 0) throw systemFailure(errno);
        m_temporary = std::move(name);
        return;
    }
    throw systemFailure(EEXIST);
}

void DiskSafeFile::write(std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t written = m_calls.write(m_file, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) throw systemFailure(written < 0 ? errno : EIO);
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
}

void DiskSafeFile::commit()
{
    syncTemporary();
    closeTemporary();
    if (m_calls.rename(m_temporary.c_str(), m_target.c_str()) != 0) throw systemFailure(errno);
    m_temporary.clear();
    syncFolder();
}

void DiskSafeFile::syncTemporary()
{
    while (m_calls.sync(m_file) != 0) {
        if (errno == EINTR) continue;
        // Some network and user-space file systems have no such call. Nothing was lost there, and to refuse would mean
        // that nobody can ever save on them; closing the file is then what tells whether the bytes have arrived.
        if (errno == EINVAL || errno == ENOTSUP) return;
        throw systemFailure(errno);
    }
}

void DiskSafeFile::closeTemporary()
{
    // An interrupted close has closed the file all the same.
    if (m_calls.close(std::exchange(m_file, -1)) != 0 && errno != EINTR) throw systemFailure(errno);
}

void DiskSafeFile::syncFolder()
{
    // From here on the new file is in place, whole: to call the save failed because the folder cannot be read or synced
    // would be wrong. After a power cut either file may stand under the name, and each of them is whole.
    const std::string folder = m_target.find('/') == std::string::npos ? "." : folderOf(m_target);
    const int file = m_calls.open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC, 0);
    if (file < 0) return;
    m_calls.sync(file);
    m_calls.close(file);
}

} // namespace tarvelint
