#include "ownerlock.h"

#include "terminal.h"

#include <QFile>

#include <cerrno>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// Somebody may remove the file between the opening and the locking. The lock would then be on a
// file that nobody else can find.
bool isStillThere(int descriptor, const QByteArray &path)
{
    struct stat opened = {};
    struct stat found = {};
    return fstat(descriptor, &opened) == 0 && lstat(path.constData(), &found) == 0
        && opened.st_dev == found.st_dev && opened.st_ino == found.st_ino;
}

} // namespace

OwnerLock::~OwnerLock()
{
    if (!file.isEmpty())
        QFile::remove(file);
    release();
}

OwnerLock::State OwnerLock::lockFolder(const QString &path)
{
    return lock(path, O_RDONLY | O_DIRECTORY, LOCK_EX);
}

OwnerLock::State OwnerLock::lockByFile(const QString &path)
{
    constexpr int attempts = 100;
    State state = Impossible;
    for (int i = 0; i < attempts && state == Impossible; ++i) {
        state = lock(path, O_RDWR | O_CREAT, LOCK_EX);
        if (error != ENOENT)
            break;
    }
    if (state == Held)
        file = path;
    return state;
}

OwnerLock::State OwnerLock::keepFree(const QString &path)
{
    return lock(path, O_RDONLY, LOCK_SH);
}

OwnerLock::State OwnerLock::lock(const QString &path, int flags, int operation)
{
    const QByteArray name = QFile::encodeName(path);
    descriptor = open(name.constData(), flags | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, 0600);
    const bool locked = descriptor >= 0 && flock(descriptor, operation | LOCK_NB) == 0;
    error = locked ? 0 : errno;
    if (locked && isStillThere(descriptor, name))
        return Held;
    if (locked)
        error = ENOENT;
    release();
    return error == EWOULDBLOCK ? HeldByOther : Impossible;
}

void OwnerLock::release()
{
    if (descriptor >= 0)
        close(descriptor);
    descriptor = -1;
}

QString OwnerLock::errorText() const
{
    return systemErrorText(error);
}
