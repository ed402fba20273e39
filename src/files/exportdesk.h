#pragma once

#include "chunkfolder.h"
#include "savejob.h"
#include "taskqueue.h"

#include <list>
#include <memory>
#include <mutex>
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
    void add(const SharedSaveJob &job);

    /// Keeps exports out of the chunk folder while it lives, behind those that were ordered
    /// before.
    class Hold
    {
    public:
        explicit Hold(ExportDesk &desk);

    private:
        std::unique_lock<std::mutex> lock;
    };

    /// The exports that have not ended, in the order in which they came.
    std::list<SharedSaveJob> unfinished() const;

private:
    struct Lane
    {
        TaskQueue queue;
        std::list<QString> files; // of the exports that have not ended
    };

    Lane &laneFor(const QString &fileName);
    void run(const SharedSaveJob &job, Lane &lane);
    void end(const SharedSaveJob &job, Lane &lane);

    const ChunkFolder &folder;
    const TellSaved tell;
    std::mutex folderMutex; // held by whoever writes into the folder, or keeps others from it

    mutable std::mutex mutex;
    std::list<SharedSaveJob> jobs;            // that have not ended; guarded by mutex
    std::vector<std::unique_ptr<Lane>> lanes; // guarded by mutex
};
