#include "directoryentry.h"

#include <QFile>

#include <tuple>

#include <sys/stat.h>

namespace {

qint64 nanoseconds(const timespec &time)
{
    constexpr qint64 perSecond = 1000000000;
    return time.tv_sec * perSecond + time.tv_nsec;
}

std::optional<FileIdentity> identityFrom(const struct stat &status)
{
    if (!S_ISREG(status.st_mode))
        return {};
    return FileIdentity{status.st_size, nanoseconds(status.st_mtim), nanoseconds(status.st_ctim),
                        status.st_ino};
}

} // namespace

std::optional<FileIdentity> FileIdentity::of(const QString &path)
{
    struct stat status = {};
    if (stat(QFile::encodeName(path).constData(), &status) != 0)
        return {};
    return identityFrom(status);
}

std::optional<FileIdentity> FileIdentity::of(int handle)
{
    struct stat status = {};
    if (fstat(handle, &status) != 0)
        return {};
    return identityFrom(status);
}

bool operator==(const FileIdentity &a, const FileIdentity &b)
{
    return std::tie(a.size, a.modified, a.changed, a.inode)
        == std::tie(b.size, b.modified, b.changed, b.inode);
}

bool describes(const DirectoryEntry &entry, const FileIdentity &now)
{
    return entry.file == now;
}
