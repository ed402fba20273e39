#include "movefiles.h"

#include "chunkmove.h"
#include "filechecks.h"
#include "terminal.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>

#include <fcntl.h>
#include <unistd.h>

namespace {

bool isSupported(int error)
{
    return error != EINVAL && error != ENOSYS && error != EPERM && error != EOPNOTSUPP
        && error != EMLINK;
}

int linkAndRemove(const char *from, const char *to)
{
    if (link(from, to) != 0)
        return errno;
    unlink(from);
    return 0;
}

} // namespace

int moveFile(const QString &from, const QString &to)
{
    const QByteArray source = QFile::encodeName(from);
    const QByteArray target = QFile::encodeName(to);
    if (renameat2(AT_FDCWD, source.constData(), AT_FDCWD, target.constData(), RENAME_NOREPLACE)
        == 0)
        return 0;
    const int error = errno;
    // Not every file system can rename without replacing, and some have no hard links either.
    const int linkError = isSupported(error) ? error : linkAndRemove(source, target);
    if (isSupported(linkError) || linkError == 0)
        return linkError;
    if (faccessat(AT_FDCWD, target.constData(), F_OK, AT_SYMLINK_NOFOLLOW) == 0)
        return EEXIST;
    return rename(source.constData(), target.constData()) == 0 ? 0 : errno;
}

bool moveFiles(const QStringList &files, const QStringList &names)
{
    for (int i = 0; i < files.size(); ++i) {
        int error = 0;
        if (checkFree(names.at(i))) {
            error = moveFile(files.at(i), names.at(i));
            if (error == 0)
                continue;
            printError(names.at(i), systemErrorText(error));
        }
        for (int earlier = 0; earlier < i; ++earlier)
            QFile::remove(names.at(earlier));
        return false;
    }
    for (const QString &name : names)
        writeLine(name);
    return true;
}

bool moveChunks(const QStringList &files, const QStringList &names)
{
    if (!moveFiles(files, names))
        return false;
    // What the directory lacks is found by whoever opens the folder.
    if (!names.isEmpty())
        indexChunks(QFileInfo(names.first()).absolutePath());
    return true;
}
