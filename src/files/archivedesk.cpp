#include "archivedesk.h"

#include "archivelimits.h"
#include "fileerrors.h"
#include "foldertree.h"

#include <QFileInfo>

#include <utility>

/// Makes a work the one under way as long as it lives.
class ArchiveDesk::UnderWay
{
public:
    UnderWay(ArchiveDesk &desk, WorkProgress::IsWanted isWanted)
        : desk(desk), work(std::make_shared<WorkProgress>(std::move(isWanted)))
    {
        set(work);
    }
    ~UnderWay() { set(nullptr); }

    UnderWay(const UnderWay &) = delete;
    UnderWay &operator=(const UnderWay &) = delete;

    WorkProgress &progress() const { return *work; }

private:
    void set(const std::shared_ptr<WorkProgress> &current)
    {
        const MutexLock locker(desk.stateMutex);
        desk.current = current;
    }

    ArchiveDesk &desk;
    const std::shared_ptr<WorkProgress> work;
};

ArchiveDesk::ArchiveDesk(ChunkSaver &saver, ExportDesk &exports)
    : saver(saver), exports(exports) { }

void ArchiveDesk::stop()
{
    stopping = true;
    queue.stop();
}

void ArchiveDesk::setArchiveName(const QString &fileName)
{
    const MutexLock locker(stateMutex);
    name = fileName;
}

QString ArchiveDesk::archiveName() const
{
    const MutexLock locker(stateMutex);
    return name;
}

std::shared_ptr<WorkProgress> ArchiveDesk::workUnderWay() const
{
    const MutexLock locker(stateMutex);
    return current;
}

QString ArchiveDesk::packChunks()
{
    const QString archive = archiveName();
    const MutexLock workLocker(workMutex);
    const UnderWay work(*this, [this, packed = saver.generation()] {
        return !stopping && saver.generation() == packed;
    });
    if (!saver.folder().exists() || !saver.waitForAll([&work] { return work.progress().goesOn(); }))
        return {};
    // The next export into the folder may write the same file again, and packing reads it.
    const ExportDesk::Hold hold(exports);
    return packFolder(archive, work.progress());
}

QString ArchiveDesk::packFolder(const QString &archive, WorkProgress &work)
{
    const QString folder = saver.folder().path();
    QFileInfoList files;
    if (!FolderTree::listFiles(folder, files))
        return FileErrors::notRead(folder, qt_error_string());
    files.removeAll(QFileInfo(archive));
    // What has begun to be written since must be whole before it is packed.
    if (!saver.waitForAll([&work] { return work.goesOn(); }))
        return {};
    return Zip::packFiles(archive, files, work).text;
}

void ArchiveDesk::sortChunks(const QString &archiveName, QMap<double, QString> &order) const
{
    const Zip::Reader archive(archiveName);
    WorkProgress work([this] { return !stopping; });
    Damage::List damage;
    const auto chunks = ChunkArchive::chunksByStart(archive, work, damage);
    for (const auto &chunk : ChunkArchive::lastOfEachStart(archive, chunks, work, damage)) {
        if (chunk.hasHeader())
            order.insert(chunk.start, chunk.entry.name);
    }
}

void ArchiveDesk::merge(const QString &archive, const WorkProgress::IsWanted &isWanted,
                        ChunkArchive::Merged &merged)
{
    const MutexLock workLocker(workMutex);
    const UnderWay work(*this, [&] { return !stopping && isWanted(); });
    ChunkArchive::merge(archive, ArchiveLimits::memoryLimit(), work.progress(), merged);
}

Outcome ArchiveDesk::unpack(const QString &archive, const ChunkArchive::Unpacked &unpacked,
                            QStringList &damage)
{
    if (!saver.folder().exists())
        return {Outcome::NoRoom, {}, 0};
    const MutexLock workLocker(workMutex);
    const UnderWay work(*this, [this] { return !stopping; });
    return ChunkArchive::unpack(archive, saver.folder().dir(), work.progress(), unpacked, damage);
}
