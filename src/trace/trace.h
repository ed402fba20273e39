#pragma once

#include "lineset.h"
#include "locks.h"
#include "messagelist.h"
#include "tracenotes.h"

#include <array>
#include <atomic>
#include <functional>

/// What follows from changes of a trace. Called under the trace's write lock: none of this may
/// wait, or call the trace.
class TraceWatcher
{
public:
    virtual ~TraceWatcher() = default;

    /// The list shown is the live one, and is about to be replaced or emptied.
    virtual void liveListGoes() = 0;

    /// A full buffer leaves the live list. What it throws leaves the trace as it was.
    virtual void rotated(const MessageList &messages, const TraceNotes::Marks &marks) = 0;

    /// Numbers begin at 0 again.
    virtual void cleared() = 0;
};

/// The messages of a trace in memory, and which of them are shown: the live ones, or, while
/// browsing, a list that was paged in or imported, or nothing. Any thread; every operation takes
/// the lock by itself, for writing where the trace changes. The operations on the paged list belong
/// to one thread, the application's.
class Trace
{
public:
    Trace(quint32 limit, TraceWatcher &watcher);

    TraceNotes &notes() { return marks; }
    const TraceNotes &notes() const { return marks; }

    // Limits and modes.

    /// The live list is rotated 5000 messages below its limit, the paged list of an import is full
    /// there as well. A limit below 5000 is never reached.
    quint32 limit() const { return maxMessageCount; }
    bool isFull(const MessageList &messages) const;
    /// In continuous mode the live list keeps the newest 10000 messages. Either value sets that
    /// limit, and the messages dropped to 0.
    void setContinuous(bool on) EXCLUDES(lock);
    bool isContinuous() const { return continuous; }
    bool isLive() const { return live; }

    // Live messages.

    struct Appended
    {
        bool rotated = false;
        bool lineIsNew = false; ///< among the messages shown
    };
    /// Numbers \a message and adds it to the live list, after a rotation when that is full.
    Appended append(CAN::CanRxMessage &message) EXCLUDES(lock);
    /// The same in continuous mode, where the oldest makes room. Returns whether the line is new.
    bool appendContinuous(CAN::CanRxMessage &message) EXCLUDES(lock);
    /// Rotates the live list however few messages it holds. False, and nothing happens, when it is
    /// empty or the mode is continuous.
    bool rotate() EXCLUDES(lock);
    MessageList liveMessages() const EXCLUDES(lock);
    /// The same, with \a meanwhile called under the read lock.
    MessageList liveMessages(const std::function<void()> &meanwhile) const EXCLUDES(lock);
    enum class Marked {
        Done,
        NotLive,     ///< the message is not in the live list, or \a isMeant returned false
        NoBookmarks, ///< there is no handler to keep them
    };
    /// Changes note and bookmark of a live message, whatever is shown, between two rotations.
    /// \a isMeant is called under the read lock.
    Marked markLive(const MarkChange &change, const std::function<bool()> &isMeant) EXCLUDES(lock);
    MessageList rotatedMessages() const EXCLUDES(lock);
    /// Drops all live messages. Nothing is shown of the rotated ones any more either.
    void clear() EXCLUDES(lock);

    // What is shown.

    /// After a rotation the rotated messages are shown until this is called. False, and nothing
    /// changes, while browsing.
    bool showNewLiveList() EXCLUDES(lock);
    /// Stops keeping the rotated messages unless they are shown.
    void dropRotated() EXCLUDES(lock);
    /// Shows nothing and sets the live notes and bookmarks aside; the paged list is empty then.
    void leaveLive() EXCLUDES(lock);
    /// Back to the live messages. False when they are shown already.
    bool showLive() EXCLUDES(lock);

    // The paged list. While it is not shown, nobody else looks at it and no lock is taken.

    /// An imported message.
    void addPaged(const CAN::CanRxMessage &message) EXCLUDES(lock);
    bool hasPaged() const { return !ownPaged().isEmpty(); }
    bool pagedIsFull() const { return isFull(ownPaged()); }
    MessageList paged() const { return ownPaged(); }
    void setPaged(MessageList messages) EXCLUDES(lock);
    void showPaged() EXCLUDES(lock);
    /// In one step: leaves live mode and shows a list with its lines and notes.
    void showMerged(MessageList messages, const LineSet &lines, Notes notes) EXCLUDES(lock);

    // Reading what is shown; 0 is the oldest message.

    quint32 count() const EXCLUDES(lock);
    CAN::CanRxMessage at(int index) const EXCLUDES(lock);
    /// The same for a caller that keeps all others from changing the trace.
    CAN::CanRxMessage atWithoutLock(int index) const NO_THREAD_SAFETY_ANALYSIS
    {
        return shownLocked().value(index);
    }
    /// False when \a index is not below the count.
    bool read(int index, CAN::CanRxMessage &out) const EXCLUDES(lock);
    CAN::CanRxMessage last() const EXCLUDES(lock);
    /// Index of the first message with \a number, or -1. Takes the lock for writing.
    int indexOfNumber(quint32 number) EXCLUDES(lock);

    quint32 countOfLine(quint8 line) const EXCLUDES(lock);
    /// The last message shown where none is of \a line.
    CAN::CanRxMessage firstOfLine(quint8 line) const EXCLUDES(lock);
    /// The first message shown where none is of \a line.
    CAN::CanRxMessage lastOfLine(quint8 line) const EXCLUDES(lock);
    /// Finds the first of \a line at or behind \a position, which counts the messages dropped, and
    /// sets it to the index, which does not. False at the end, with \a out the last one looked at.
    bool findOfLine(CAN::CanRxMessage &out, quint8 line, quint32 &position) const EXCLUDES(lock);
    /// The next of \a line, from where the one before was found.
    bool nextOfLine(CAN::CanRxMessage &out, quint8 line) EXCLUDES(lock);
    void resetLinePositions();
    /// All of \a line from \a position on, which counts the messages dropped.
    QList<CAN::CanRxMessage> allOfLine(quint8 line, quint32 position) const EXCLUDES(lock);

    // The lines seen. Without the lock where nothing else is said.

    QSet<unsigned char> lines() const { return seen.toSet(); }
    void addLines(const LineSet &lines);
    void clearLines() { seen.clear(); }
    /// Collects the lines shown anew and calls \a tell with each, under the read lock.
    void collectLines(const std::function<void(unsigned char)> &tell) EXCLUDES(lock);

    /// Calls \a work under the read lock.
    void whileReading(const std::function<void()> &work) const EXCLUDES(lock);

private:
    enum class View {
        Live,
        Rotated, ///< live, until the new live list is shown
        Paged,
        Nothing
    };

    const MessageList &shownLocked() const REQUIRES_SHARED(lock);
    void rotateLocked() REQUIRES(lock);
    void numberAndAppendLocked(CAN::CanRxMessage &message) REQUIRES(lock);
    void leaveLiveLocked() REQUIRES(lock);
    int startIndexLocked(quint32 position) const REQUIRES_SHARED(lock);
    bool addLine(const CAN::CanRxMessage &message);

    // Only one thread changes the paged list, so that thread reads it without the lock. It changes
    // it under the lock, except where nobody is shown the list.
    const MessageList &ownPaged() const NO_THREAD_SAFETY_ANALYSIS { return pagedMessages; }
    void appendUnshown(const CAN::CanRxMessage &message) NO_THREAD_SAFETY_ANALYSIS
    {
        pagedMessages.append(message);
    }

    TraceWatcher &watcher;
    TraceNotes marks;
    LineSet seen;
    // Where nextOfLine() goes on. They belong to the list shown, so what replaces both does it
    // under the lock.
    std::array<std::atomic<quint32>, 256> linePositions{};

    mutable ReadWriteLock lock;
    // Changed under the lock, read without it.
    std::atomic<View> view{View::Live};
    std::atomic<bool> live{true};
    std::atomic<bool> continuous{false};
    std::atomic<quint32> maxMessageCount;

    MessageList current GUARDED_BY(lock);
    MessageList rotatedBuffer GUARDED_BY(lock);
    MessageList pagedMessages GUARDED_BY(lock);
    quint32 nextNumber GUARDED_BY(lock) = 0;
    quint32 dropped GUARDED_BY(lock) = 0;
};
