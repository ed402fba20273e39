#pragma once

#include "chunkmerge.h"
#include "chunksaver.h"
#include "chunkunpack.h"
#include "exportdesk.h"
#include "locks.h"
#include "taskqueue.h"

#include <QMap>
#include <QString>

#include <atomic>
#include <memory>

/// Packs the chunks of one trace into archives and reads archives, one after the other, on the
/// thread that asks. Any thread.
class ArchiveDesk
{
public:
    /// Both have to outlive it.
    ArchiveDesk(ChunkSaver &saver, ExportDesk &exports);

    /// Runs \a task on a thread of its own, behind those before it: rotations must find a free
    /// thread in the global pool, however long archives take.
    void later(TaskQueue::Task task) { queue.run(std::move(task)); }

    /// Gives up all work, and waits for what has begun unless that is the caller.
    void stop();

    /// Where packChunks() writes.
    void setArchiveName(const QString &fileName);

    /// Packs the chunk folder, once the saves and exports under way have ended. Gives up when the
    /// trace is cleared. Returns what the user is told of an archive that is incomplete; mostly
    /// empty.
    QString packChunks();

    /// The chunks by their start in seconds, without a word on damage.
    void sortChunks(const QString &archive, QMap<double, QString> &order) const;

    /// As ChunkArchive::merge(), as long as \a isWanted.
    void merge(const QString &archive, const WorkProgress::IsWanted &isWanted,
               ChunkArchive::Merged &merged);

    /// As ChunkArchive::unpack(), into the chunk folder.
    Outcome unpack(const QString &archive, const ChunkArchive::Unpacked &unpacked,
                   QStringList &damage);

    /// The packing, merging or unpacking under way, to be asked and cancelled; null when none is.
    std::shared_ptr<WorkProgress> workUnderWay() const EXCLUDES(stateMutex);

private:
    class UnderWay;

    QString archiveName() const;
    QString packFolder(const QString &archive, WorkProgress &work) REQUIRES(workMutex);

    ChunkSaver &saver;
    ExportDesk &exports;
    std::atomic<bool> stopping{false};
    Mutex workMutex;          // held by whoever works on an archive; taken before any other
    mutable Mutex stateMutex; // held for a moment only
    QString name GUARDED_BY(stateMutex);
    std::shared_ptr<WorkProgress> current GUARDED_BY(stateMutex);
    TaskQueue queue;
};
