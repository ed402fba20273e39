#include "directoryentry.h"

#include <QDateTime>
#include <QFile>

#include <tuple>

#include <sys/stat.h>

namespace {

qint64 nanoseconds(const timespec &time)
{
    constexpr qint64 perSecond = 1000000000;
    return time.tv_sec * perSecond + time.tv_nsec;
}

FileIdentity identityFrom(const struct stat &status)
{
    return {status.st_size, nanoseconds(status.st_mtim), nanoseconds(status.st_ctim),
            status.st_ino};
}

bool readStatus(const QString &path, struct stat &status)
{
    return stat(QFile::encodeName(path).constData(), &status) == 0;
}

} // namespace

bool FileIdentity::hasRested(qint64 nanoseconds) const
{
    constexpr qint64 perMillisecond = 1000000;
    return changed <= QDateTime::currentMSecsSinceEpoch() * perMillisecond - nanoseconds;
}

std::optional<FileIdentity> FileIdentity::of(const QString &path)
{
    struct stat status = {};
    if (!readStatus(path, status) || !S_ISREG(status.st_mode))
        return {};
    return identityFrom(status);
}

std::optional<FileIdentity> FileIdentity::of(int handle)
{
    struct stat status = {};
    if (fstat(handle, &status) != 0 || !S_ISREG(status.st_mode))
        return {};
    return identityFrom(status);
}

std::optional<FileIdentity> FileIdentity::ofAny(const QString &path)
{
    struct stat status = {};
    if (!readStatus(path, status))
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
