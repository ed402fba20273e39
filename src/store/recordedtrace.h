#pragma once

#include "chunksaver.h"
#include "trace.h"
#include "tracesource.h"

#include <atomic>
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
        quint32 count = 0;
        QString fileName;           ///< empty where it is not saved
        std::weak_ptr<SaveJob> job; ///< until it is
    };
    struct State
    {
        std::vector<Rotated> rotated; ///< all since the trace was cleared
        MessageList live;
        Notes liveNotes;
        quint32 generation = 0; ///< rises when the trace is cleared
    };

    explicit RecordedTrace(Trace &trace) : trace(&trace) { }

    /// What the trace does. Called under its lock; \a job is null where the messages are not saved.
    void rotated(const MessageList &messages, const SharedSaveJob &job) EXCLUDES(mutex);
    void cleared() EXCLUDES(mutex);
    /// The trace is about to go.
    void detach() EXCLUDES(traceMutex);

    /// All at one moment; nothing once the trace is gone.
    std::optional<State> state() EXCLUDES(traceMutex, mutex);

private:
    Mutex traceMutex; // taken before the lock of the trace
    Trace *trace GUARDED_BY(traceMutex);
    Mutex mutex; // taken last
    std::vector<Rotated> all GUARDED_BY(mutex);
    quint32 generation GUARDED_BY(mutex) = 0;
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

private:
    /// That of the chunk folder, once it was needed.
    using Directory = std::optional<std::vector<DirectoryEntry>>;

    /// What is shown of a rotated buffer.
    struct Part
    {
        SharedSegment segment; ///< null as long as nothing is known, and where it is not saved
        bool isFinal = false;
    };

    void update(Part &part, const RecordedTrace::Rotated &rotated, Directory &directory)
        REQUIRES(mutex);
    bool isShown(const RecordedTrace::State &state) const REQUIRES(mutex);
    SharedSegment liveSegment(const RecordedTrace::State &state) REQUIRES(mutex);
    void show(const RecordedTrace::State &state) REQUIRES(mutex);

    const std::shared_ptr<RecordedTrace> recorded;
    std::atomic<bool> hasTrace{true};
    Mutex mutex;
    quint32 generation GUARDED_BY(mutex) = 0;
    std::vector<Part> parts GUARDED_BY(mutex); // of the rotated buffers
    std::unique_ptr<ChunkIndexer> liveIndexer GUARDED_BY(mutex);
    quint32 liveFirst GUARDED_BY(mutex) = 0; // number of the first message that it has
    int liveIndexed GUARDED_BY(mutex) = 0;   // messages that it has
    Notes liveNotes GUARDED_BY(mutex);
    SharedSnapshot snapshot GUARDED_BY(mutex) = std::make_shared<TraceSnapshot>();
};
