#pragma once

#include "capturering.h"
#include "traceexpression.h"
#include "tracematcher.h"

#include <functional>
#include <limits>
#include <optional>

/// Which messages of a source are recorded.
struct CaptureRules
{
    TraceExpression filter; ///< only what it takes
    std::optional<TraceExpression>
        trigger;          ///< and only around what this one takes, if there is one
    qint64 before = 0;    ///< microseconds in front of a trigger, included
    qint64 after = 0;     ///< the same behind it
    qint64 ringBytes = 0; ///< memory for what may come to be in front of a trigger
};

/// Hands on the messages of a source that are wanted, each once and in the order in which they
/// came as far as one trigger wants them. With a trigger it holds the last messages in a ring and
/// hands on those whose own times are around the trigger's. What the filter leaves out may be a
/// trigger all the same.
class FrameCapture
{
public:
    using Keep = std::function<void(const CAN::CanRxMessage &message, const QString &note)>;

    /// \a keep is called during add().
    FrameCapture(const CaptureRules &rules, Keep keep);

    void add(const CAN::CanRxMessage &message);

    /// Notes something on the next message that is added, or on the first kept behind it.
    void noteNext(const QString &note);

    /// Nothing more is added, so that what the ring holds is left out.
    void finish();

    /// Messages that the filter did not take or no trigger was near.
    quint64 leftOutCount() const { return leftOut; }
    /// Messages that the ring had no memory for before their time was over.
    quint64 fallenOutCount() const { return fallenOut; }
    /// Triggers, but for those that made the capture of an earlier one longer.
    quint64 captureCount() const { return captures; }

private:
    struct Window
    {
        qint64 begin = 0; // both included
        qint64 end = 0;
        bool contains(qint64 time) const { return time >= begin && time <= end; }
    };

    void trigger(qint64 time);
    void keepHeld();
    void keepNow(const CAN::CanRxMessage &message, const QString &note);
    void hold(const CAN::CanRxMessage &message, qint64 time);
    void dropOldest();

    const CaptureRules rules;
    const Keep keep;
    TraceMatcher filter;
    std::optional<TraceMatcher> triggers;
    std::optional<Window> window; // of the last capture
    bool isOpen = false;          // whether messages may still come into it
    QString captureNote;          // for its first message
    QString carriedNote;          // for the next message
    CaptureRing ring;
    qint64 lastFallenTime = std::numeric_limits<qint64>::min();
    quint64 leftOut = 0;
    quint64 fallenOut = 0;
    quint64 captures = 0;
};
