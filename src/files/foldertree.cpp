#include "foldertree.h"

#include "uninterrupted.h"

#include <QFile>

#include <cerrno>
#include <cstring>
#include <memory>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace FolderTree {

namespace {

constexpr int asFolder = O_RDONLY | O_DIRECTORY | O_CLOEXEC;

bool isDots(const char *name)
{
    return std::strcmp(name, ".") == 0 || std::strcmp(name, "..") == 0;
}

} // namespace

int open(const QString &path, Link link)
{
    const int noLink = link == Link::Refused ? O_NOFOLLOW : 0;
    const QByteArray name = QFile::encodeName(path);
    return uninterrupted([&] { return ::open(name.constData(), asFolder | noLink); });
}

bool forEachEntry(int handle, const std::function<void(const char *)> &act)
{
    const std::unique_ptr<DIR, int (*)(DIR *)> folder(fdopendir(handle), closedir);
    if (!folder) {
        const int error = errno;
        ::close(handle);
        errno = error;
        return false;
    }
    errno = 0;
    while (const dirent *entry = readdir(folder.get())) {
        if (!isDots(entry->d_name))
            act(entry->d_name);
        errno = 0;
    }
    return errno == 0;
}

bool listFiles(const QString &path, QFileInfoList &files)
{
    const int handle = open(path);
    int error = 0;
    const auto add = [&](const char *name) {
        struct stat status = {};
        if (*name == '.')
            return;
        if (fstatat(handle, name, &status, 0) != 0)
            error = errno == ENOENT ? error : errno; // removed meanwhile, or a link to nothing
        else if (S_ISREG(status.st_mode))
            files.append(QFileInfo(path + QLatin1Char('/') + QFile::decodeName(name)));
    };
    if (handle < 0 || !forEachEntry(handle, add))
        return false;
    errno = error;
    return error == 0;
}

void removeContents(int handle)
{
    forEachEntry(handle, [handle](const char *name) {
        if (unlinkat(handle, name, 0) == 0)
            return;
        const int inner =
            uninterrupted([&] { return openat(handle, name, asFolder | O_NOFOLLOW); });
        if (inner >= 0)
            removeContents(inner);
        unlinkat(handle, name, AT_REMOVEDIR);
    });
}

} // namespace FolderTree
