#pragma once

#include "keycounter.h"
#include "timelinedata.h"

class ChangeTracker;

/// Looks for messages of a timeline, on the caller's thread.
class Searching
{
public:
    using KeepGoing = std::function<bool()>;
    using Visit = std::function<bool(const QVector<quint64> &positions)>;

    Searching(const TraceTimeline::Data &data, const TraceExpression &expression,
              const KeepGoing &keepGoing);

    std::optional<quint64> next(quint64 position);
    std::optional<quint64> previous(quint64 position);

    /// See TraceTimeline::forEachFound.
    quint64 all(quint64 from, quint64 count, const Visit &visit);

    /// A message in a segment.
    struct Numbered
    {
        quint32 offset = 0;
        quint32 number = 0;
    };
    /// Where in a segment the messages with one of \a numbers are, rising; these rise as well.
    static std::vector<Numbered> offsetsOf(const TraceSegment &segment,
                                           const std::vector<quint32> &numbers);

    static std::optional<quint64> positionOfNumber(const TraceSnapshot &snapshot, quint32 number);

private:
    bool goesOn() const { return !keepGoing || keepGoing(); }
    KeyCounter::Span spanIn(const TraceSegment &segment);
    std::optional<quint64> lastIn(const TraceSnapshot::Placed &placed, KeyCounter::Span span) const;
    bool allIn(const TraceSnapshot::Placed &placed, quint64 from, quint64 end,
               ChangeTracker &changes, const Visit &visit, quint64 &gone) const;
    std::optional<quint64> changed(quint64 begin, quint64 end, bool wantsFirst) const;

    const SharedSnapshot snapshot;
    const TraceExpression expression;
    const FrameFilter &filter;
    KeyCounter counter;
    const KeepGoing keepGoing;
};
