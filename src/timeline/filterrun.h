#pragma once

#include "backgroundthreads.h"
#include "changetracker.h"
#include "endcounts.h"
#include "keycounter.h"
#include "timelinedata.h"

#include <atomic>
#include <vector>

/// One search of a timeline: for each segment how many messages are found, by steps where they had
/// to be looked at. Any thread.
class FilterRun
{
public:
    FilterRun(std::shared_ptr<TraceTimeline::Data> data, const TraceExpression &expression,
              quint64 focus);
    ~FilterRun();

    // See TraceFilter.

    quint64 count() EXCLUDES(mutex);
    quint64 messagesDone() EXCLUDES(mutex);
    quint64 messagesGone() EXCLUDES(mutex);
    bool isComplete() EXCLUDES(mutex);
    std::optional<quint64> at(quint64 n) EXCLUDES(mutex);
    quint64 countBefore(quint64 position) EXCLUDES(mutex);
    void cancel() { stopping = true; }

private:
    using Steps = std::vector<std::vector<quint16>>;

    /// What is known of a segment.
    struct Part
    {
        SharedSegment segment;
        quint64 begin = 0;
        quint32 done = 0;      ///< messages from its start on of which all is known
        quint64 found = 0;     ///< among these
        bool hasSteps = false; ///< whether stepCounts is known for them
        bool isTaken = false;  ///< by a thread
        bool isGone = false;
        std::vector<quint16> stepCounts;
        EndCounts ends;  ///< in place of these, where it was counted by its keys
        Steps positions; ///< in each step, where they cannot be found again alone

        bool isDone() const { return isGone || done == segment->count(); }
    };
    /// A look at a part, and what it has come to.
    struct Look
    {
        quint32 generation = 0;
        quint64 partBegin = 0;
        SharedSegment segment;
        quint32 begin = 0; ///< from which message on, and to which
        quint32 end = 0;
        bool isGone = false;
        Steps positions; ///< in the steps from that of \a begin on
    };

    void follow() EXCLUDES(mutex);
    void followLocked(const SharedSnapshot &now) REQUIRES(mutex);
    void takeOver(std::vector<Part> &before) REQUIRES(mutex);
    static void countByKeys(KeyCounter &counter, Part &part);
    void work() EXCLUDES(mutex);
    bool next(Look &look) EXCLUDES(mutex);
    Part *nextPart() REQUIRES(mutex);
    void lookAt(Look &look);
    void take(Look &look) EXCLUDES(mutex);
    template <typename Known, typename Next>
    bool learn(std::size_t part, const Known &isKnown, const Next &next) EXCLUDES(mutex);
    bool countSteps(const TraceSegment &segment, EndCounts::Steps steps,
                    std::vector<quint16> &found) const;
    EndCounts endsOf(const Part &part) const;
    std::vector<quint16> positionsIn(std::size_t part, quint32 step) EXCLUDES(mutex);

    const std::shared_ptr<TraceTimeline::Data> data;
    const TraceExpression expression;
    const FrameFilter &filter;
    const bool inOrder; // whether a message depends on those before it
    std::atomic<bool> stopping{false};

    // Of the one thread that looks in order.
    ChangeTracker changes;
    quint32 generationOfChanges = 0;

    Mutex mutex; // taken before those of the timeline
    SharedSnapshot snapshot GUARDED_BY(mutex);
    std::vector<Part> parts GUARDED_BY(mutex); // one for each segment
    quint32 generation GUARDED_BY(mutex) = 0;  // rises when all begins anew
    quint64 focus GUARDED_BY(mutex);
    quint64 keptSegment GUARDED_BY(mutex) = 0; // that of the positions asked for last
    quint32 keptStep GUARDED_BY(mutex) = 0;
    std::vector<quint16> keptPositions GUARDED_BY(mutex);

    BackgroundThreads threads; // last, so that they end first
};
