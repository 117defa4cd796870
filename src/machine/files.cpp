// SPDX-License-Identifier: MIT
#include "machine/files.h"

#include <QFileInfo>
#include <QSaveFile>

#include <cerrno>
#include <fstream>
#include <system_error>

#include <unistd.h>

namespace tarvelint {

namespace {

FileFailure failureOf(int code, const std::string& reason)
{
    const bool inUse = code == EACCES || code == EPERM || code == EBUSY || code == ETXTBSY;
    return {inUse ? FileFailure::Kind::inUse : FileFailure::Kind::other, reason};
}

FileFailure systemFailure(int code)
{
    return failureOf(code, std::generic_category().message(code));
}

/// QSaveFile writes beside the target and renames; the old file is whole until then.
class QtSafeFile : public SafeFile {
public:
    explicit QtSafeFile(const std::string& path) : m_file(QString::fromStdString(path))
    {
        const QFileInfo target(m_file.fileName());
        if (target.isDir()) throw systemFailure(EISDIR);
        if (target.exists() && !target.isFile())
            throw FileFailure(FileFailure::Kind::other, path + " is not a regular file");
        if (target.exists() && access(path.c_str(), W_OK) != 0) throw systemFailure(errno);
        errno = 0;
        if (!m_file.open(QIODevice::WriteOnly)) throw currentFailure();
    }
    void write(std::string_view bytes) override
    {
        errno = 0;
        if (m_file.write(bytes.data(), static_cast<qint64>(bytes.size())) != static_cast<qint64>(bytes.size()))
            throw writeFailure();
    }
    void commit() override
    {
        errno = 0;
        // commit() forgets that writing out its own buffer failed, and would put a cut file in the old one's place.
        if (!m_file.flush()) throw writeFailure();
        if (!m_file.commit()) throw currentFailure();
    }

private:
    [[nodiscard]] FileFailure currentFailure() const { return failureOf(errno, m_file.errorString().toStdString()); }
    /// A disk that took only a part leaves its reason in errno; the file then knows of an "Unknown error" only.
    [[nodiscard]] FileFailure writeFailure() const { return errno != 0 ? systemFailure(errno) : currentFailure(); }
    QSaveFile m_file;
};

} // namespace

std::unique_ptr<std::istream> DiskFiles::openForReading(const std::string& path)
{
    const QFileInfo source(QString::fromStdString(path));
    if (source.isDir()) throw systemFailure(EISDIR);
    // A pipe or a device may never end, or wait for ever before it begins.
    if (source.exists() && !source.isFile()) throw FileFailure(FileFailure::Kind::other, "It is not a regular file");
    errno = 0;
    auto stream = std::make_unique<std::ifstream>(path, std::ios::binary);
    if (!*stream) throw systemFailure(errno != 0 ? errno : EIO);
    return stream;
}

std::unique_ptr<SafeFile> DiskFiles::createSafely(const std::string& path)
{
    return std::make_unique<QtSafeFile>(path);
}

bool DiskFiles::exists(const std::string& path) const
{
    return QFileInfo::exists(QString::fromStdString(path));
}

} // namespace tarvelint
