#include "foldertree.h"

#include <QFile>

#include <cstring>
#include <memory>

#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

namespace FolderTree {

namespace {

constexpr int asFolder = O_RDONLY | O_DIRECTORY | O_CLOEXEC;

bool isDots(const char *name)
{
    return std::strcmp(name, ".") == 0 || std::strcmp(name, "..") == 0;
}

} // namespace

int open(const QString &path)
{
    return ::open(QFile::encodeName(path).constData(), asFolder | O_NOFOLLOW);
}

int openFollowing(const QString &path)
{
    return ::open(QFile::encodeName(path).constData(), asFolder);
}

void forEachEntry(int handle, const std::function<void(const char *)> &act)
{
    const std::unique_ptr<DIR, int (*)(DIR *)> folder(fdopendir(handle), closedir);
    if (!folder) {
        ::close(handle);
        return;
    }
    while (const dirent *entry = readdir(folder.get())) {
        if (!isDots(entry->d_name))
            act(entry->d_name);
    }
}

void removeContents(int handle)
{
    forEachEntry(handle, [handle](const char *name) {
        if (unlinkat(handle, name, 0) == 0)
            return;
        const int inner = openat(handle, name, asFolder | O_NOFOLLOW);
        if (inner >= 0)
            removeContents(inner);
        unlinkat(handle, name, AT_REMOVEDIR);
    });
}

} // namespace FolderTree
