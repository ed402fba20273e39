#pragma once

#include "locks.h"
#include "tracesnapshot.h"
#include "tracetimeline.h"

#include <QCache>
#include <QPair>

#include <optional>

/// The steps of chunks and the notes that were looked at last, so that a screen of rows is read
/// once. Any thread.
class RowCache
{
public:
    using SharedMessages = std::shared_ptr<const TraceSegment::Messages>;
    using SharedMarks = std::shared_ptr<const TraceNotes::Marks>;

    /// The messages of a step; null when they are no longer there.
    SharedMessages messages(const TraceSegment &segment, quint32 step) EXCLUDES(mutex);
    SharedMarks marks(const TraceSegment &segment) EXCLUDES(mutex);
    TraceRow row(const TraceSnapshot &snapshot, quint64 position) EXCLUDES(mutex);

private:
    std::optional<CAN::CanRxMessage> messageAt(const TraceSegment &segment, quint32 offset)
        EXCLUDES(mutex);

    static constexpr int mostSteps = 64; // some 24 MiB
    static constexpr int mostMarks = 100000;
    // What an empty set takes in memory, in marks: a growing trace is another segment with every
    // look at it.
    static constexpr int costOfSet = 100;

    Mutex mutex;
    QCache<QPair<quint64, quint32>, SharedMessages> steps GUARDED_BY(mutex){mostSteps};
    QCache<quint64, SharedMarks> notes GUARDED_BY(mutex){mostMarks};
};
