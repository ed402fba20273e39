#include "archivedesk.h"

#include "archivelimits.h"
#include "fileerrors.h"
#include "foldertree.h"

#include <QFileInfo>

ArchiveDesk::ArchiveDesk(ChunkSaver &saver, ExportDesk &exports)
    : saver(saver), exports(exports) { }

void ArchiveDesk::stop()
{
    stopping = true;
    queue.stop();
}

void ArchiveDesk::setArchiveName(const QString &fileName)
{
    const MutexLock locker(nameMutex);
    name = fileName;
}

QString ArchiveDesk::archiveName() const
{
    const MutexLock locker(nameMutex);
    return name;
}

QString ArchiveDesk::packChunks()
{
    const QString archive = archiveName();
    const MutexLock workLocker(workMutex);
    const auto keepGoing = [this, packed = saver.generation()] {
        return !stopping && saver.generation() == packed;
    };
    if (!saver.folder().exists() || !saver.waitForAll(keepGoing))
        return {};
    // The next export into the folder may write the same file again, and packing reads it.
    const ExportDesk::Hold hold(exports);
    return packFolder(archive, keepGoing);
}

QString ArchiveDesk::packFolder(const QString &archive, const Zip::KeepGoing &keepGoing)
{
    const QString folder = saver.folder().path();
    QFileInfoList files;
    if (!FolderTree::listFiles(folder, files))
        return FileErrors::notRead(folder, qt_error_string());
    files.removeAll(QFileInfo(archive));
    // What has begun to be written since must be whole before it is packed.
    if (!saver.waitForAll(keepGoing))
        return {};
    return Zip::packFiles(archive, files, keepGoing).text;
}

void ArchiveDesk::sortChunks(const QString &archiveName, QMap<double, QString> &order) const
{
    const Zip::Reader archive(archiveName);
    const auto keepGoing = [this] { return !stopping; };
    Damage::List damage;
    const auto chunks = ChunkArchive::chunksByStart(archive, keepGoing, damage);
    for (const auto &chunk : ChunkArchive::lastOfEachStart(archive, chunks, keepGoing, damage)) {
        if (chunk.hasHeader())
            order.insert(chunk.start, chunk.entry.name);
    }
}

void ArchiveDesk::merge(const QString &archive, const Zip::KeepGoing &isWanted,
                        ChunkArchive::Merged &merged)
{
    const MutexLock workLocker(workMutex);
    const auto keepGoing = [&] { return !stopping && isWanted(); };
    ChunkArchive::merge(archive, ArchiveLimits::memoryLimit(), keepGoing, merged);
}

Outcome ArchiveDesk::unpack(const QString &archive, const ChunkArchive::Unpacked &unpacked,
                            QStringList &damage)
{
    if (!saver.folder().exists())
        return {Outcome::NoRoom, {}, 0};
    const MutexLock workLocker(workMutex);
    return ChunkArchive::unpack(
        archive, saver.folder().dir(), [this] { return !stopping; }, unpacked, damage);
}
