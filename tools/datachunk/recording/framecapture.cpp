#include "framecapture.h"

#include "canframe.h"
#include "terminal.h"
#include "timetext.h"

#include <utility>

namespace {

// Drivers hand on frames in bunches, so that times may fall by a little.
constexpr qint64 fall = 1000000;

} // namespace

FrameCapture::FrameCapture(const CaptureRules &rules, Keep keep)
    : rules(rules), keep(std::move(keep)), filter(rules.filter)
{
    if (rules.trigger)
        triggers.emplace(*rules.trigger);
}

void FrameCapture::add(const CAN::CanRxMessage &message)
{
    const qint64 time = CAN::timeOf(message);
    if (triggers && triggers->takes(message))
        trigger(time);
    if (!filter.takes(message)) {
        ++leftOut;
        return;
    }
    isOpen = isOpen && time >= window->begin - fall && time <= window->end + fall;
    if (!triggers || (isOpen && window->contains(time)))
        keepNow(message, std::exchange(carriedNote, {}));
    else
        hold(message, time);
}

void FrameCapture::noteNext(const QString &note)
{
    carriedNote = joinedNotes(carriedNote, note);
}

void FrameCapture::trigger(qint64 time)
{
    const Window around{time - rules.before, time + rules.after};
    const bool extends = window && around.begin <= window->end && around.end >= window->begin;
    if (extends) {
        window = Window{qMin(window->begin, around.begin), qMax(window->end, around.end)};
    } else {
        ++captures;
        window = around;
        captureNote = Cli::tr("Trigger \"%1\" at %2.").arg(rules.trigger->text(), timeText(time));
    }
    if (lastFallenTime >= around.begin) {
        const QString text =
            Cli::tr("Messages in front of this one are missing: the ring was too small.");
        captureNote = joinedNotes(captureNote, text);
        lastFallenTime = std::numeric_limits<qint64>::min();
    }
    isOpen = true;
    keepHeld();
}

void FrameCapture::keepHeld()
{
    const QString passed = ring.takeBetween(
        window->begin, window->end,
        [this](const CAN::CanRxMessage &message, const QString &note) { keepNow(message, note); });
    carriedNote = joinedNotes(passed, carriedNote);
}

void FrameCapture::keepNow(const CAN::CanRxMessage &message, const QString &note)
{
    keep(message, joinedNotes(std::exchange(captureNote, {}), note));
}

void FrameCapture::hold(const CAN::CanRxMessage &message, qint64 time)
{
    ring.add(message, time, std::exchange(carriedNote, {}));
    const Window near{time - rules.before - fall, time + rules.after + fall};
    while (!ring.isEmpty() && !near.contains(ring.oldestTime())) {
        ++leftOut;
        dropOldest();
    }
    while (!ring.isEmpty() && ring.bytes() > rules.ringBytes) {
        ++fallenOut;
        lastFallenTime = qMax(lastFallenTime, ring.oldestTime());
        dropOldest();
    }
}

void FrameCapture::dropOldest()
{
    carriedNote = joinedNotes(ring.dropOldest(), carriedNote);
}

void FrameCapture::finish()
{
    leftOut += ring.count();
    ring.clear();
}
