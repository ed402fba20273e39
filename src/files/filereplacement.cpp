#include "filereplacement.h"

#include "filelock.h"
#include "uninterrupted.h"

#include <QFile>
#include <QFileInfo>

#include <cstdio>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr mode_t onlyOwner = 0600;
constexpr mode_t rights = 07777;

QByteArray hiddenBeside(const QString &fileName, const char *ending)
{
    const QFileInfo file(fileName);
    return QFile::encodeName(file.path() + QLatin1String("/.") + file.fileName()) + ending;
}

// The name of a file is on the disk once its folder is.
void syncFolder(const QByteArray &path)
{
    const QByteArray folder = path.left(path.lastIndexOf('/') + 1);
    const int handle = uninterrupted(
        [&folder] { return open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); });
    if (handle < 0)
        return;
    fsync(handle);
    close(handle);
}

} // namespace

FileReplacement::FileReplacement(const QString &fileName, int original)
    : name(QFile::encodeName(fileName)), hidden(hiddenBeside(fileName, ".new")), original(original)
{
}

FileReplacement::~FileReplacement()
{
    if (ownHandle < 0)
        return;
    unlink(hidden.constData());
    close(ownHandle);
}

bool FileReplacement::create()
{
    struct stat status = {};
    if (fstat(original, &status) != 0)
        return false;
    // With the original locked it can only be what somebody has left who was killed.
    unlink(hidden.constData());
    ownHandle = uninterrupted([this] {
        return open(hidden.constData(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC,
                    onlyOwner);
    });
    if (ownHandle < 0)
        return false;
    // Who finds it in its place waits until what was there before is gone: both have the same
    // names.
    FileLock::tryLock(ownHandle);
    return takeOverRights(status);
}

// Nobody but the superuser gives files away, but everybody may to a group of his own. What the
// group may do is not for another one.
bool FileReplacement::takeOverRights(const struct stat &status)
{
    constexpr mode_t ofGroup = 070;
    const bool isOfGroup = fchown(ownHandle, status.st_uid, status.st_gid) == 0
        || fchown(ownHandle, uid_t(-1), status.st_gid) == 0;
    return fchmod(ownHandle, status.st_mode & (isOfGroup ? rights : rights & ~ofGroup)) == 0;
}

bool FileReplacement::write(const QByteArray &bytes)
{
    return writeAll(ownHandle, bytes.constData(), bytes.size());
}

// Not every two file systems copy among themselves, nor does every kernel.
bool FileReplacement::copyBlock(qint64 offset, qint64 &copied)
{
    constexpr std::size_t much = 1024UL * 1024 * 1024;
    constexpr int blockSize = 256 * 1024;
    off64_t from = offset;
    copied = copy_file_range(original, &from, ownHandle, nullptr, much, 0);
    if (copied > 0 || (copied < 0 && (errno == ENOSPC || errno == EDQUOT || errno == EFBIG)))
        return copied > 0;
    QByteArray block(blockSize, Qt::Uninitialized);
    do {
        copied = pread64(original, block.data(), std::size_t(block.size()), offset);
    } while (copied < 0 && errno == EINTR);
    return copied >= 0 && writeAll(ownHandle, block.constData(), copied);
}

bool FileReplacement::copyFrom(qint64 offset)
{
    qint64 copied = 1;
    while (copied > 0) {
        if (!copyBlock(offset, copied))
            return false;
        offset += copied;
    }
    return true;
}

bool FileReplacement::finish()
{
    struct stat status = {};
    if (fstat(original, &status) != 0)
        return false;
    const timespec times[2] = {status.st_atim, status.st_mtim};
    return futimens(ownHandle, times) == 0 && fsync(ownHandle) == 0;
}

bool FileReplacement::isOriginal(const QByteArray &path) const
{
    struct stat there = {};
    struct stat ours = {};
    return lstat(path.constData(), &there) == 0 && fstat(original, &ours) == 0
        && there.st_ino == ours.st_ino && there.st_dev == ours.st_dev;
}

FileReplacement::Placing FileReplacement::putInPlace()
{
    const Placing placed = exchange();
    if (placed == Placing::Done)
        syncFolder(name);
    return placed;
}

// What was deleted is not there to be exchanged, so that it cannot come back.
FileReplacement::Placing FileReplacement::exchange()
{
    const auto swap = [this] {
        return renameat2(AT_FDCWD, hidden.constData(), AT_FDCWD, name.constData(), RENAME_EXCHANGE);
    };
    if (swap() != 0) {
        if (errno == ENOENT)
            return Placing::OriginalGone;
        return errno == EINVAL || errno == ENOSYS || errno == EOPNOTSUPP ? moveAside()
                                                                         : Placing::Failed;
    }
    if (isOriginal(hidden))
        return Placing::Done;
    // Somebody has put another file there, which is to stay.
    static_cast<void>(swap() == 0);
    return Placing::OriginalGone;
}

// For a moment nothing is there: on file systems that cannot exchange.
FileReplacement::Placing FileReplacement::moveAside()
{
    const QByteArray aside = hidden + ".old";
    if (rename(name.constData(), aside.constData()) != 0)
        return errno == ENOENT ? Placing::OriginalGone : Placing::Failed;
    const bool isMeant = isOriginal(aside);
    if (isMeant && rename(hidden.constData(), name.constData()) == 0) {
        unlink(aside.constData());
        return Placing::Done;
    }
    const int error = errno;
    static_cast<void>(rename(aside.constData(), name.constData()) == 0);
    errno = error;
    return isMeant ? Placing::Failed : Placing::OriginalGone;
}
