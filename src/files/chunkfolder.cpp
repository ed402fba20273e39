#include "chunkfolder.h"

#include "chunknames.h"
#include "foldertree.h"

#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <cstdlib>
#include <cstring>

#include <sys/file.h>
#include <unistd.h>

namespace {

constexpr mode_t onlyOwner = 0700;

bool makePrivateFolder(const QString &path)
{
    return mkdir(QFile::encodeName(path).constData(), onlyOwner) == 0;
}

// Returns an empty string when no folder can be created.
QString createFolder()
{
    const QDir parent(ChunkFolder::parentPath());
    if (!QDir().mkpath(QFileInfo(parent.path()).path()))
        return {};
    makePrivateFolder(parent.path());
    // Every process draws the same numbers unless the application seeds the generator. Only a
    // successful mkdir shows that a folder is ours.
    constexpr int attempts = 100000;
    for (int i = 0; i < attempts; ++i) {
        const QString path = parent.absoluteFilePath(QStringLiteral("%1").arg(rand()));
        if (makePrivateFolder(path))
            return path;
        if (!QFileInfo::exists(path))
            return {};
    }
    return {};
}

} // namespace

ChunkFolder::ChunkFolder()
{
    const QString path = createFolder();
    struct stat status = {};
    if (path.isEmpty() || lstat(QFile::encodeName(path).constData(), &status) != 0)
        return;
    folderPath = path;
    device = status.st_dev;
    inode = status.st_ino;
    heldHandle = open();
    // Shows other processes that somebody uses the folder; the system ends the lock with the
    // process, however that one ends. Where folders cannot be locked, nobody can tell.
    if (heldHandle >= 0)
        flock(heldHandle, LOCK_EX | LOCK_NB);
}

ChunkFolder::~ChunkFolder()
{
    if (!exists())
        return;
    const int handle = heldHandle >= 0 ? heldHandle : open();
    if (handle >= 0)
        FolderTree::removeContents(handle);
    // The folder is removed by its name only if it is empty and still the one that was created.
    if (!isInPlace())
        return;
    for (const QString &path : qAsConst(filesBeside))
        unlink(QFile::encodeName(path).constData());
    rmdir(QFile::encodeName(folderPath).constData());
}

QString ChunkFolder::parentPath()
{
    const QDir location(QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation));
    return location.absoluteFilePath(QStringLiteral("datachunks"));
}

bool ChunkFolder::isOurs(const struct stat &status) const
{
    return status.st_dev == device && status.st_ino == inode;
}

int ChunkFolder::open() const
{
    const int handle = exists() ? FolderTree::open(folderPath) : -1;
    struct stat status = {};
    if (handle < 0 || (fstat(handle, &status) == 0 && isOurs(status)))
        return handle;
    close(handle);
    return -1;
}

bool ChunkFolder::isInPlace() const
{
    struct stat status = {};
    return exists() && lstat(QFile::encodeName(folderPath).constData(), &status) == 0
        && isOurs(status);
}

bool ChunkFolder::holds(const QString &fileName) const
{
    return exists() && QFileInfo(fileName).absolutePath() == folderPath;
}

QString ChunkFolder::chunkTemplate() const
{
    return folderPath + QLatin1Char('/') + ChunkNames::rotatedTemplate();
}

QString ChunkFolder::chunkPath(qint64 number) const
{
    return fillChunkNumber(chunkTemplate(), number);
}

QString ChunkFolder::partialChunkTemplate(const QString &importName) const
{
    return folderPath + QLatin1Char('\\') + importName + QLatin1String("\\%1")
        + QLatin1String(ChunkNames::suffix);
}

void ChunkFolder::removeChunks()
{
    const int handle = open();
    if (handle < 0)
        return;
    FolderTree::forEachEntry(handle, [handle](const char *name) {
        if (std::strstr(name, ChunkNames::rotatedMark))
            unlinkat(handle, name, 0);
    });
}

void ChunkFolder::addFileBeside(const QString &path)
{
    const MutexLock locker(mutex);
    filesBeside.insert(path);
}

QString fillChunkNumber(QString nameTemplate, qint64 number)
{
    const int placeholder = nameTemplate.lastIndexOf(QLatin1String("%1"));
    if (placeholder < 0)
        return nameTemplate;
    return nameTemplate.replace(placeholder, 2, QString::number(number));
}
