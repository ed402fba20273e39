#include "framecapture.h"

#include "terminal.h"
#include "timetext.h"

#include <utility>

namespace {

// Drivers hand on frames in bunches, so that times may fall by a little.
constexpr qint64 fall = 1000000;

qint64 timeOf(const CAN::CanRxMessage &message)
{
    constexpr qint64 microsecondsPerSecond = 1000000;
    return message.seconds * microsecondsPerSecond + message.microseconds;
}

} // namespace

QString joinedNotes(const QString &first, const QString &second)
{
    constexpr int longest = 2000;
    if (first.isEmpty() || second.isEmpty())
        return first + second;
    return first.size() + second.size() > longest ? first : first + QLatin1String(" ; ") + second;
}

FrameCapture::FrameCapture(const CaptureRules &rules, Keep keep)
    : rules(rules), keep(std::move(keep)), filter(rules.filter)
{
    if (rules.trigger)
        triggers.emplace(*rules.trigger);
}

void FrameCapture::add(const CAN::CanRxMessage &message)
{
    const qint64 time = timeOf(message);
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
    std::deque<Held> others;
    QString passed; // by messages that are not kept
    for (; !ring.empty(); ring.pop_front()) {
        Held &held = ring.front();
        heldBytes -= bytesOf(held);
        const QString note = joinedNotes(std::exchange(passed, {}), held.note);
        if (window->contains(timeOf(held.message))) {
            keepNow(held.message, note);
            continue;
        }
        passed = note;
        others.push_back({held.message, {}});
        heldBytes += bytesOf(others.back());
    }
    ring = std::move(others);
    carriedNote = joinedNotes(passed, carriedNote);
}

void FrameCapture::keepNow(const CAN::CanRxMessage &message, const QString &note)
{
    keep(message, joinedNotes(std::exchange(captureNote, {}), note));
}

void FrameCapture::hold(const CAN::CanRxMessage &message, qint64 time)
{
    ring.push_back({message, std::exchange(carriedNote, {})});
    heldBytes += bytesOf(ring.back());
    const Window near{time - rules.before - fall, time + rules.after + fall};
    while (!ring.empty() && !near.contains(timeOf(ring.front().message))) {
        ++leftOut;
        dropOldest();
    }
    while (!ring.empty() && heldBytes > rules.ringBytes) {
        ++fallenOut;
        lastFallenTime = qMax(lastFallenTime, timeOf(ring.front().message));
        dropOldest();
    }
}

void FrameCapture::dropOldest()
{
    const Held oldest = std::move(ring.front());
    ring.pop_front();
    heldBytes -= bytesOf(oldest);
    if (ring.empty()) {
        carriedNote = joinedNotes(oldest.note, carriedNote);
        return;
    }
    Held &next = ring.front();
    heldBytes -= bytesOf(next);
    next.note = joinedNotes(oldest.note, next.note);
    heldBytes += bytesOf(next);
}

qint64 FrameCapture::bytesOf(const Held &held)
{
    return qint64(sizeof(Held)) + held.note.size() * qint64(sizeof(QChar));
}

void FrameCapture::finish()
{
    leftOut += ring.size();
    ring.clear();
    heldBytes = 0;
}
