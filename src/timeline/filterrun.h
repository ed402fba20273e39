#pragma once

#include "backgroundthreads.h"
#include "changetracker.h"
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

    /// What is found at one moment.
    struct Found
    {
        SharedSnapshot snapshot;
        /// While this stays, what is found in a segment grows at its end only.
        quint32 generation = 0;
        std::vector<quint64> counts; ///< in each of the segments
        quint64 messages = 0;
        quint64 messagesDone = 0; ///< of these
        bool isComplete = false;
    };
    Found found() EXCLUDES(mutex);
    /// The position of what was found as number \a n, from 0, in the segment that begins at
    /// position \a begin. Nothing when it is no longer there.
    std::optional<quint64> positionOf(quint64 begin, quint64 n) EXCLUDES(mutex);
    /// How many are found in front of \a position in that segment, which it lies in.
    quint64 countIn(quint64 begin, quint64 position) EXCLUDES(mutex);

private:
    using Steps = std::vector<std::vector<quint16>>;

    /// What is known of a segment.
    struct Part
    {
        SharedSegment segment;
        quint64 begin = 0;
        quint32 round = 0;    ///< rises when what was known of it is not so any more
        quint32 done = 0;     ///< messages from its start on of which all is known
        quint64 found = 0;    ///< among these
        bool isTaken = false; ///< by a thread
        bool isGone = false;
        quint32 stepsDone = 0;  ///< messages looked at; fewer than done where keys tell
        quint64 stepsFound = 0; ///< among these
        std::vector<quint16> stepCounts;
        Steps positions; ///< in each step, where they cannot be found again alone

        bool isDone() const { return isGone || done == segment->count(); }
    };
    /// A look at a part, and what it has come to.
    struct Look
    {
        quint32 generation = 0;
        quint32 round = 0; ///< of the part
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
    bool areNotesOthers(const TraceSegment &before, const TraceSegment &now) const;
    void countByKeys(KeyCounter &counter, Part &part) const;
    void work() EXCLUDES(mutex);
    bool next(Look &look) EXCLUDES(mutex);
    Part *nextPart() REQUIRES(mutex);
    void lookAt(Look &look);
    void take(const Look &look) EXCLUDES(mutex);
    void addSteps(Part &part, const Look &look) REQUIRES(mutex);
    Part *partAt(quint64 begin) REQUIRES(mutex);
    void findSteps(quint64 begin) EXCLUDES(mutex);
    std::vector<quint16> positionsIn(quint64 begin, quint32 step) EXCLUDES(mutex);

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
