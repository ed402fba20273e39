#pragma once

#include "backgroundthread.h"
#include "locks.h"
#include "tracetimeline.h"

#include <atomic>

/// Looks for one message at a time in the background. One thread uses it.
class TableFind
{
public:
    enum Direction { Forwards, Backwards };
    /// A search, by which its result is known; the last one is current.
    using Ticket = quint32;
    /// Called in the background with what was found, but not for a search that was cancelled.
    using Take = std::function<void(Ticket ticket, std::optional<quint64> position)>;

    TableFind(const TraceTimeline &timeline, Take take);
    ~TableFind();

    /// Looks at or behind \a position, or in front of it, and gives up the search before.
    void start(const TraceExpression &expression, quint64 position, Direction direction);
    void cancel() { ++current; }
    bool isCurrent(Ticket ticket) const { return current == ticket; }

private:
    struct Request
    {
        Ticket ticket = 0;
        TraceExpression expression;
        quint64 position = 0;
        Direction direction = Forwards;
    };

    void work() EXCLUDES(mutex);
    std::optional<Request> next() EXCLUDES(mutex);

    const TraceTimeline timeline;
    const Take take;
    std::atomic<Ticket> current{0};
    Mutex mutex;
    std::optional<Request> waiting GUARDED_BY(mutex);

    BackgroundThread thread; // last, so that it ends first
};
