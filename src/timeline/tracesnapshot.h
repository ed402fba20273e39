#pragma once

#include "tracesegment.h"

#include <optional>
#include <vector>

/// The segments of a timeline at one moment, in order. Positions count the messages of all of them,
/// and those that are known to have been between them, from 0. Constant; any thread.
class TraceSnapshot
{
public:
    struct Placed
    {
        quint64 begin = 0; ///< position of its first message
        SharedSegment segment;
        qint64 maxTimeBefore = 0; ///< the highest time of all segments in front of it

        quint64 end() const { return begin + segment->count(); }
        qint64 maxTime() const { return std::max(maxTimeBefore, segment->index().maxTime); }
    };

    /// Where a message is.
    struct Place
    {
        const Placed *placed = nullptr; ///< null where nothing is known of it
        quint32 offset = 0;             ///< in the segment
    };

    /// Puts a segment behind the others, \a gap positions behind the last.
    void append(SharedSegment segment, quint64 gap = 0);

    /// While this stays, a position is always that of the same message.
    quint32 epoch() const { return ownEpoch; }
    void setEpoch(quint32 epoch) { ownEpoch = epoch; }

    const std::vector<Placed> &segments() const { return all; }
    quint64 count() const { return all.empty() ? 0 : all.back().end(); }
    /// Behind the last of \a count messages from \a from on that there are.
    quint64 endOf(quint64 from, quint64 count) const
    {
        return from < this->count() ? from + std::min(count, this->count() - from) : from;
    }
    Place at(quint64 position) const;
    /// Index of the first segment that ends behind \a position.
    std::size_t indexOf(quint64 position) const;

    /// The lowest time of a whole record; 0 while there are none.
    qint64 firstTime() const;
    /// The highest, likewise.
    qint64 lastTime() const;
    /// The first message at whose place the highest time so far is \a time or later; count() when
    /// there is none.
    quint64 positionOfTime(qint64 time) const;

private:
    std::vector<Placed> all;
    quint32 ownEpoch = 0;
};

using SharedSnapshot = std::shared_ptr<const TraceSnapshot>;
