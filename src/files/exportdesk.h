#pragma once

#include "chunkfolder.h"
#include "locks.h"
#include "savejob.h"
#include "taskqueue.h"

#include <list>
#include <memory>
#include <vector>

/// Carries out exports, several at once, each on a thread: none has to wait for another one that
/// writes to a slow place, unless both write the same file. Any thread.
class ExportDesk
{
public:
    /// \a folder has to outlive it.
    ExportDesk(const ChunkFolder &folder, TellSaved tell);

    /// Waits for all exports, but for one into a pipe only for a moment: nobody may ever read it.
    ~ExportDesk();

    /// Where no thread can be had, the caller does the export.
    void add(const SharedSaveJob &job) EXCLUDES(mutex);

    /// Keeps exports out of the chunk folder while it lives, behind those that were ordered
    /// before.
    class SCOPED_CAPABILITY Hold
    {
    public:
        explicit Hold(ExportDesk &desk) ACQUIRE(desk.folderMutex);
        ~Hold() RELEASE();

        Hold(const Hold &) = delete;
        Hold &operator=(const Hold &) = delete;

    private:
        ExportDesk &desk;
    };

    /// The exports that have not ended, in the order in which they came.
    std::list<SharedSaveJob> unfinished() const EXCLUDES(mutex);

private:
    struct Lane
    {
        TaskQueue queue;
        std::list<QString> files; // of the exports that have not ended; guarded by the desk's mutex
    };

    Lane &laneForLocked(const QString &fileName) REQUIRES(mutex);
    void run(const SharedSaveJob &job, Lane &lane);
    Outcome write(const SaveJob &job) EXCLUDES(folderMutex);
    void end(const SharedSaveJob &job, Lane &lane) EXCLUDES(mutex);

    const ChunkFolder &folder;
    const TellSaved tell;
    Mutex folderMutex; // held by whoever writes into the folder, or keeps others from it

    mutable Mutex mutex;
    std::list<SharedSaveJob> jobs GUARDED_BY(mutex); // that have not ended
    std::vector<std::unique_ptr<Lane>> lanes GUARDED_BY(mutex);
};
