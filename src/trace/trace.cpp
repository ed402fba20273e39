#include "trace.h"

#include "rotation.h"

#include <new>
#include <utility>

namespace {
constexpr quint32 continuousLimit = 10000;
} // namespace

// Lists that are replaced go without the lock wherever that is possible: they may hold millions of
// messages.

Trace::Trace(quint32 limit, TraceWatcher &watcher) : watcher(watcher), maxMessageCount(limit) { }

bool Trace::isFull(const MessageList &messages) const
{
    // Unsigned on purpose: a limit below the margin wraps round and is never reached.
    return !messages.isEmpty() && quint32(messages.size()) >= maxMessageCount - rotationMargin;
}

void Trace::setContinuous(bool on)
{
    const WriteLock locker(lock);
    continuous = on;
    maxMessageCount = continuousLimit;
    dropped = 0;
}

bool Trace::addLine(const CAN::CanRxMessage &message)
{
    return seen.insert(static_cast<unsigned char>(message.line));
}

void Trace::numberAndAppendLocked(CAN::CanRxMessage &message)
{
    message.messageNumber = nextNumber++;
    current.append(message);
}

void Trace::rotateLocked()
{
    TraceNotes::Marks taken = marks.takeLive();
    try {
        watcher.rotated(current, taken);
    } catch (const std::bad_alloc &) {
        marks.giveBackLive(taken);
        throw;
    }
    rotatedBuffer = std::exchange(current, {});
    if (live) {
        view = View::Rotated;
        watcher.liveListGoes();
    }
}

Trace::Appended Trace::append(CAN::CanRxMessage &message)
{
    Appended done;
    const WriteLock locker(lock);
    if (isFull(current)) {
        rotateLocked();
        done.rotated = true;
    }
    numberAndAppendLocked(message);
    marks.attachToNext(message.messageNumber);
    done.lineIsNew = view == View::Live && addLine(message);
    return done;
}

bool Trace::rotate()
{
    const WriteLock locker(lock);
    if (continuous || current.isEmpty())
        return false;
    rotateLocked();
    return true;
}

bool Trace::appendContinuous(CAN::CanRxMessage &message)
{
    {
        const WriteLock locker(lock);
        if (quint32(current.size()) >= maxMessageCount) {
            current.removeFirst();
            ++dropped;
        }
        numberAndAppendLocked(message);
    }
    return addLine(message);
}

MessageList Trace::liveMessages() const
{
    const ReadLock locker(lock);
    return current;
}

MessageList Trace::liveMessages(const std::function<void()> &meanwhile) const
{
    const ReadLock locker(lock);
    meanwhile();
    return current;
}

Trace::Marked Trace::markLive(const MarkChange &change, const std::function<bool()> &isMeant)
{
    const ReadLock locker(lock);
    const bool isLiveNumber =
        !current.isEmpty() && change.number - current.at(0).messageNumber < quint32(current.size());
    if (!isLiveNumber || !isMeant())
        return Marked::NotLive;
    return marks.changeLive(change) ? Marked::Done : Marked::NoBookmarks;
}

MessageList Trace::rotatedMessages() const
{
    const ReadLock locker(lock);
    return rotatedBuffer;
}

void Trace::clear()
{
    MessageList unused;
    const WriteLock locker(lock);
    if (live)
        watcher.liveListGoes();
    watcher.cleared();
    nextNumber = 0;
    seen.clear();
    rotatedBuffer.clear();
    if (view == View::Rotated)
        view = View::Live;
    marks.clear();
    unused = std::exchange(current, {});
}

bool Trace::showNewLiveList()
{
    MessageList unused;
    const WriteLock locker(lock);
    if (!live)
        return false;
    view = View::Live;
    unused = std::exchange(rotatedBuffer, {});
    return true;
}

void Trace::dropRotated()
{
    MessageList unused;
    const WriteLock locker(lock);
    if (view != View::Rotated)
        unused = std::exchange(rotatedBuffer, {});
}

void Trace::leaveLive()
{
    const WriteLock locker(lock);
    leaveLiveLocked();
}

void Trace::leaveLiveLocked()
{
    pagedMessages.clear();
    marks.setAside();
    if (view == View::Paged)
        view = View::Nothing;
    live = false;
    seen.clear();
}

bool Trace::showLive()
{
    MessageList unused;
    const WriteLock locker(lock);
    // What was set aside is to be brought back once.
    if (live)
        return false;
    marks.bringBack();
    seen.clear();
    view = View::Live;
    unused = std::exchange(pagedMessages, {});
    rotatedBuffer.clear();
    live = true;
    return true;
}

void Trace::addPaged(const CAN::CanRxMessage &message)
{
    addLine(message);
    // Only this thread shows the list.
    if (view != View::Paged) {
        appendUnshown(message);
        return;
    }
    const WriteLock locker(lock);
    pagedMessages.append(message);
}

void Trace::setPaged(MessageList messages)
{
    const WriteLock locker(lock);
    std::swap(pagedMessages, messages);
}

void Trace::showPaged()
{
    const WriteLock locker(lock);
    view = View::Paged;
    rotatedBuffer.clear();
}

void Trace::showMerged(MessageList messages, const LineSet &lines, Notes notes)
{
    MessageList unused;
    const WriteLock locker(lock);
    unused = std::exchange(pagedMessages, {});
    leaveLiveLocked();
    pagedMessages = std::move(messages);
    view = View::Paged;
    rotatedBuffer.clear();
    addLines(lines);
    resetLinePositions();
    marks.show(std::move(notes));
}

void Trace::addLines(const LineSet &lines)
{
    const QSet<unsigned char> added = lines.toSet();
    for (const unsigned char line : added)
        seen.insert(line);
}
