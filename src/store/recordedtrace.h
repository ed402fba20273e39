#pragma once

#include "chunksaver.h"
#include "directoryentry.h"
#include "trace.h"
#include "tracesource.h"

#include <QHash>

#include <atomic>
#include <deque>
#include <memory>
#include <optional>
#include <vector>

/// Where the messages of the live trace are: which chunks it was rotated into since it was cleared,
/// and the live list behind them. The store's timelines look at it, also when the store is gone.
/// Any thread.
class RecordedTrace
{
public:
    /// A buffer that was rotated.
    struct Rotated
    {
        quint32 firstNumber = 0;
        quint32 chunkIndex = 0;
        bool isSaved = false;
        std::weak_ptr<SaveJob> job; ///< until it is
    };
    struct State
    {
        quint32 generation = 0;       ///< rises when the trace is cleared
        std::vector<Rotated> rotated; ///< what is not known yet
        MessageList live;
        TraceNotes::Marks liveMarks;
    };

    RecordedTrace(Trace &trace, const ChunkSaver &saver) : trace(&trace), saver(&saver) { }

    /// What the trace does. Called under its lock; \a job is null where the messages are not saved.
    void rotated(const MessageList &messages, const SharedSaveJob &job) EXCLUDES(mutex);
    void cleared() EXCLUDES(mutex);
    /// The store is about to go.
    void detach() EXCLUDES(storeMutex);

    /// All at one moment, for somebody who knows the first \a known buffers of \a generation.
    /// Nothing once the store is gone.
    std::optional<State> state(quint32 generation, std::size_t known) EXCLUDES(storeMutex, mutex);
    /// Changes what is written on a live message.
    Trace::Marked markLive(quint32 generation, const MarkChange &change)
        EXCLUDES(storeMutex, mutex);
    /// The file of a chunk; empty once the store is gone.
    QString chunkPath(quint32 chunkIndex) EXCLUDES(storeMutex);

private:
    Mutex storeMutex; // taken before the lock of the trace
    Trace *trace GUARDED_BY(storeMutex);
    const ChunkSaver *saver GUARDED_BY(storeMutex);
    Mutex mutex; // taken last
    std::vector<Rotated> all GUARDED_BY(mutex);
    std::size_t firstPending GUARDED_BY(mutex) = 0; // the jobs of those before it are done
    quint32 currentGeneration GUARDED_BY(mutex) = 0;
};

/// The trace of a store. A position is a message's number, counted on where numbers begin at 0
/// again, so that a message keeps it when it goes from memory into a chunk.
class StoreSource : public TraceSource
{
public:
    explicit StoreSource(std::shared_ptr<RecordedTrace> recorded)
        : recorded(std::move(recorded)) { }

    SharedSnapshot refresh() override EXCLUDES(mutex);
    bool isComplete() const override { return true; }
    bool mayChange() const override { return hasTrace; }
    QStringList problems() const override { return {}; }
    bool changeInMemory(quint32 epoch, quint64 position, const MarkChange &change,
                        QString &error) override EXCLUDES(mutex);

private:
    /// The directory of the chunk folder, once it was needed.
    using Directory = std::optional<QHash<QString, DirectoryEntry>>;

    /// A rotated buffer, and what is shown of it.
    struct Part
    {
        RecordedTrace::Rotated rotated;
        QString fileName;      ///< once it is written
        FileIdentity identity; ///< of that file
        SharedSegment segment; ///< null where nothing is known of it
        bool isFinal = false;
    };

    void takeOver(const RecordedTrace::State &state) REQUIRES(mutex);
    void dropGone() REQUIRES(mutex);
    void update(Part &part, Directory &directory) REQUIRES(mutex);
    bool areFilesUnchanged() const REQUIRES(mutex);
    void followFiles() REQUIRES(mutex);
    SharedSaveJob jobAt(quint64 position) EXCLUDES(mutex);
    bool isShown(const RecordedTrace::State &state) const REQUIRES(mutex);
    void show(const RecordedTrace::State &state) REQUIRES(mutex);
    SharedSegment liveSegment(const RecordedTrace::State &state) REQUIRES(mutex);

    const std::shared_ptr<RecordedTrace> recorded;
    std::atomic<bool> hasTrace{true};
    Mutex mutex;
    quint32 generation GUARDED_BY(mutex) = 0;
    std::deque<Part> parts GUARDED_BY(mutex);
    std::size_t dropped GUARDED_BY(mutex) = 0; // parts in front of these, whose chunks are gone
    std::unique_ptr<ChunkIndexer> liveIndexer GUARDED_BY(mutex);
    FileIdentity folderSeen GUARDED_BY(mutex); // that of the chunks
    quint64 changesSeen GUARDED_BY(mutex) = 0; // of the marks of chunks
    quint32 liveFirst GUARDED_BY(mutex) = 0;   // number of the first message that it has
    int liveIndexed GUARDED_BY(mutex) = 0;     // messages that it has
    TraceNotes::Marks liveMarks GUARDED_BY(mutex);
    SharedSnapshot snapshot GUARDED_BY(mutex) = std::make_shared<TraceSnapshot>();
};
