#pragma once

#include "archivechunks.h"
#include "backgroundthreads.h"
#include "chunklisting.h"
#include "tracesource.h"

#include <QHash>

#include <atomic>
#include <deque>

/// Chunk files, folders of them and archives as one trace. What no directory tells of is read on
/// threads of its own, a chunk on each, and is shown in order.
class FileSource : public TraceSource
{
public:
    explicit FileSource(const QStringList &paths);
    ~FileSource() override;

    SharedSnapshot refresh() override EXCLUDES(workMutex, mutex);
    bool isComplete() const override EXCLUDES(mutex);
    QStringList problems() const override EXCLUDES(mutex);

private:
    /// A chunk that was found.
    struct Chunk
    {
        ChunkListing::Place place;
        QString path;                           ///< of a file; empty in an archive
        FileIdentity identity;                  ///< of the file, be it an archive
        std::shared_ptr<ArchiveChunks> archive; ///< where this stands for all of it
        std::shared_ptr<const ChunkBytes> bytes;
        quint64 lineage = 0;   ///< the same as long as the file only grows
        SharedSegment segment; ///< null as long as it is not read, and where that failed
        bool isTaken = false;  ///< by a thread that reads it
        bool isRead = false;
        bool isOfFolder = false; ///< whose directory is ours to keep
        bool isGone = false;
        QString problem;
    };
    using Chunks = QHash<QString, Chunk>; ///< by a name of its own for each
    /// A chunk to be read.
    struct Task
    {
        QString chunk; ///< its name
        std::shared_ptr<const ChunkBytes> bytes;
    };
    /// One after the other, and what they are sorted by together.
    struct Run
    {
        qint64 firstTime = 0;
        std::vector<QString> chunks; ///< their names
    };

    bool isUnchanged() REQUIRES(workMutex);
    void look() REQUIRES(workMutex);
    void lookAtFolder(const QString &path) REQUIRES(workMutex);
    void readDirectory(const QString &folder) REQUIRES(workMutex);
    void remember(const QString &path, const std::optional<FileIdentity> &identity)
        REQUIRES(workMutex);
    void lookAtFile(const QString &path) REQUIRES(workMutex);
    void lookAtArchive(const QString &path) REQUIRES(workMutex);
    void add(const QString &name, Chunk chunk) REQUIRES(workMutex);
    static bool isGoneAgain(const Chunk &chunk);
    static bool takeOverMarked(const Chunk &before, Chunk &chunk);
    void sortIntoRuns() REQUIRES(workMutex);
    std::optional<Task> nextMissing() EXCLUDES(workMutex);
    void readMissing() EXCLUDES(workMutex, mutex);
    void take(const Task &task, IndexedChunk indexed) EXCLUDES(workMutex, mutex);
    static void keepInDirectory(const Chunk &chunk);
    void publish() REQUIRES(workMutex) EXCLUDES(mutex);

    const QStringList paths;
    std::atomic<bool> stopping{false};

    Mutex workMutex; // held by whoever looks for chunks, but not while one is read
    Chunks known GUARDED_BY(workMutex);
    FramePool pool GUARDED_BY(workMutex); // of the keys of all chunks
    std::vector<Run> runs GUARDED_BY(workMutex);
    quint64 lastLineage GUARDED_BY(workMutex) = 0;
    // Which files stand at which positions, as far as that was told.
    std::vector<std::pair<quint64, quint64>> published GUARDED_BY(workMutex);
    quint32 epoch GUARDED_BY(workMutex) = 0;
    std::deque<QString> missing GUARDED_BY(workMutex); // nobody reads them yet; in order
    QDeadlineTimer nextPublication GUARDED_BY(workMutex);
    QHash<QString, FileIdentity> looked GUARDED_BY(workMutex); // paths, as they were
    quint64 changesSeen GUARDED_BY(workMutex) = 0;             // of the marks of chunks

    mutable Mutex mutex; // taken last
    SharedSnapshot snapshot GUARDED_BY(mutex);
    QStringList told GUARDED_BY(mutex);
    bool complete GUARDED_BY(mutex) = false;

    BackgroundThreads readers; // last, so that they end first
};
