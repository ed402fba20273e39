#pragma once

#include "keycounter.h"
#include "timelinedata.h"

/// Looks for one message of a timeline, on the caller's thread.
class Searching
{
public:
    using KeepGoing = std::function<bool()>;

    Searching(const TraceTimeline::Data &data, const TraceExpression &expression,
              const KeepGoing &keepGoing);

    std::optional<quint64> next(quint64 position);
    std::optional<quint64> previous(quint64 position);

    static std::optional<quint64> positionOfNumber(const TraceSnapshot &snapshot, quint32 number);

private:
    bool goesOn() const { return !keepGoing || keepGoing(); }
    KeyCounter::Span spanIn(const TraceSegment &segment);
    std::optional<quint64> lastIn(const TraceSnapshot::Placed &placed, KeyCounter::Span span) const;
    std::optional<quint64> changed(quint64 begin, quint64 end, bool wantsFirst) const;

    const SharedSnapshot snapshot;
    const TraceExpression expression;
    const FrameFilter &filter;
    KeyCounter counter;
    const KeepGoing keepGoing;
};
