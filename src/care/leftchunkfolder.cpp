#include "leftchunkfolder.h"

#include "chunkfolder.h"
#include "chunknames.h"
#include "foldertree.h"

#include <QDir>

#include <algorithm>
#include <utility>

#include <sys/file.h>
#include <unistd.h>

struct LeftChunkFolder::Data
{
    Data(const QString &path, int handle) : path(path), handle(handle) { }
    ~Data() { close(handle); }

    Data(const Data &) = delete;
    Data &operator=(const Data &) = delete;

    const QString path;
    const int handle; // locked
    QStringList chunks;
    qint64 bytes = 0;
    QDateTime lastWritten;
};

namespace {

QFileInfoList chunksIn(const QString &path)
{
    QFileInfoList files = QDir(path).entryInfoList(QDir::Files | QDir::NoSymLinks, QDir::Name);
    const auto isOther = [](const QFileInfo &file) { return !isChunkName(file.fileName()); };
    files.erase(std::remove_if(files.begin(), files.end(), isOther), files.end());
    // A last chunk has no number, and comes behind the others by its name.
    const auto numberOf = [](const QFileInfo &file) {
        return quint64(ChunkNames::rotatedNumber(file.fileName()));
    };
    std::stable_sort(files.begin(), files.end(), [&](const QFileInfo &a, const QFileInfo &b) {
        return numberOf(a) < numberOf(b);
    });
    return files;
}

// -1 when somebody uses it, or it cannot be known.
int lockedHandle(const QString &path)
{
    const int handle = FolderTree::open(path);
    if (handle < 0 || flock(handle, LOCK_EX | LOCK_NB) == 0)
        return handle;
    close(handle);
    return -1;
}

} // namespace

LeftChunkFolder::LeftChunkFolder(std::shared_ptr<Data> data) : d(std::move(data)) { }

std::vector<LeftChunkFolder> LeftChunkFolder::find()
{
    std::vector<LeftChunkFolder> found;
    const QDir parent(ChunkFolder::parentPath());
    const QStringList names =
        parent.entryList(QDir::Dirs | QDir::NoSymLinks | QDir::NoDotAndDotDot);
    for (const QString &name : names) {
        const QString path = parent.absoluteFilePath(name);
        // A store that has just made its folder is about to lock it, so an empty one is not tried.
        if (chunksIn(path).isEmpty())
            continue;
        const int handle = lockedHandle(path);
        if (handle < 0)
            continue;
        const auto data = std::make_shared<Data>(path, handle);
        const QFileInfoList files = chunksIn(path);
        for (const QFileInfo &file : files) {
            data->chunks.append(file.filePath());
            data->bytes += file.size();
            data->lastWritten = qMax(data->lastWritten, file.lastModified());
        }
        if (!files.isEmpty())
            found.push_back(LeftChunkFolder(data));
    }
    std::stable_sort(found.begin(), found.end(),
                     [](const LeftChunkFolder &a, const LeftChunkFolder &b) {
                         return a.lastWritten() < b.lastWritten();
                     });
    return found;
}

QString LeftChunkFolder::path() const
{
    return d->path;
}

QStringList LeftChunkFolder::chunks() const
{
    return d->chunks;
}

qint64 LeftChunkFolder::bytes() const
{
    return d->bytes;
}

QDateTime LeftChunkFolder::lastWritten() const
{
    return d->lastWritten;
}

bool LeftChunkFolder::remove()
{
    const int handle = FolderTree::open(d->path);
    if (handle >= 0)
        FolderTree::removeContents(handle);
    const QFileInfo folder(d->path);
    QDir parent = folder.dir();
    const QStringList beside =
        parent.entryList({folder.fileName() + QLatin1String("\\*")}, QDir::Files);
    bool isGone = true;
    for (const QString &name : beside)
        isGone = parent.remove(name) && isGone;
    return parent.rmdir(folder.fileName()) && isGone;
}
