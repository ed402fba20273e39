#pragma once

#include "canmessagebookmark.h"
#include "canrxmessage.h"
#include "datachunkglobal.h"
#include "traceexpression.h"

#include <QMap>
#include <QString>
#include <QStringList>
#include <QVector>

#include <functional>
#include <memory>
#include <optional>

class TraceFilter;
class TraceSource;

/// What stands at one position of a timeline.
struct TraceRow
{
    /// Whether there is a message.
    enum State {
        Known,
        Gone,  ///< the chunk is no longer there, or never was written
        Behind ///< no message is known there
    };
    State state = Behind;        ///< of the position
    CAN::CanRxMessage message;   ///< where it is known
    QString note;                ///< mostly empty
    CanMessageBookmark bookmark; ///< mostly not valid
};

/// Messages one behind the other, while they are handed out.
struct TraceBlock
{
    quint64 position;                         ///< of the first of them
    const CAN::CanRxMessage *messages;        ///< they hold while they are visited only
    int count;                                ///< of messages, 1 at least
    const QMap<unsigned int, QString> &notes; ///< by number, of more messages than these
};

/// What is written on a message.
struct TraceMark
{
    quint64 position = 0;        ///< of the message
    QString note;                ///< empty where there is none
    CanMessageBookmark bookmark; ///< not valid where there is none
};

/// How often messages came, in intervals of equal length.
struct TraceRate
{
    QVector<quint8> lines; ///< that occur, rising
    /// For each interval the messages of each of the lines.
    QVector<QVector<quint64>> messages;
    QVector<quint64> errors; ///< error frames in each interval
};

/// One identifier, with its line and kind.
struct TraceIdentifier
{
    quint32 id = 0;        ///< CAN::errorFrameId for error frames
    quint8 line = 0;       ///< bus line, the low 8 bits
    bool extended = false; ///< of 29 bits
    bool remote = false;   ///< a remote transmission request
    bool fdFrame = false;  ///< of CAN FD
    quint64 count = 0;     ///< messages of that kind
    quint64 first = 0;     ///< position of the first of them
    quint64 last = 0;      ///< position of the last
};

/// A run of messages that lie in one place, one behind the other.
struct TraceChunk
{
    QString name;         ///< the path of the file; in an archive, words for the user that name
                          ///< both; empty of messages in memory
    quint64 position = 0; ///< of its first message
    quint64 count = 0;    ///< of its messages, 1 at least
    qint64 firstTime = 0; ///< the lowest of them, in microseconds
    qint64 lastTime = 0;  ///< the highest
};

/// All messages of a recording as one trace, however long: chunk files, folders of them, archives,
/// or a store with its live messages. Keeps an index and some hundred thousand messages of them in
/// memory, and reads the rest where it lies.
///
/// Positions count from 0 and stay with their messages: what a budget removes is gone where it was.
/// Times are in microseconds, as records have them. Copies are of the same timeline. Any thread.
class DATACHUNK_EXPORT TraceTimeline
{
public:
    /// Chunk files, archives (".zip") and folders, in order of their first time; within a folder
    /// chunks whose names differ only by a number keep the order of the numbers. What is not in the
    /// directory of its folder is read in the background, in order.
    explicit TraceTimeline(const QStringList &paths);
    /// Over a source of this library, as DatachunkHandler::timeline() has one.
    explicit TraceTimeline(std::shared_ptr<TraceSource> source);
    ~TraceTimeline();

    /// Of the same timeline: a refresh of one is one of both.
    TraceTimeline(const TraceTimeline &);
    /// As the copy.
    TraceTimeline &operator=(const TraceTimeline &);

    /// Takes in what has come since. True when anything did. Everything else here answers for the
    /// moment of the last refresh of any copy.
    bool refresh();
    /// Whether all that was there at the beginning of the last refresh is known.
    bool isComplete() const;
    /// Whether a refresh may ever find anything else: not once the store is gone.
    bool mayChange() const;
    /// Waits until it is complete and refreshes, as long as \a keepGoing, which is asked again and
    /// again, returns true. False when it did not.
    bool waitForAll(const std::function<bool()> &keepGoing = {});
    /// What cannot be read, a sentence each, for the user.
    QStringList problems() const;

    /// Number of positions, those included whose message is gone.
    quint64 count() const;
    /// While this stays, a position is always that of the same message. Another number once the
    /// store was cleared, or files have come in front of others or replaced them.
    quint32 generation() const;
    /// Where the messages lie, by position. From the index alone.
    QVector<TraceChunk> chunks() const;
    /// Reads up to 4096 messages of a chunk where they are not at hand. Behind for a position from
    /// count() on.
    TraceRow row(quint64 position) const;

    /// Hands out \a count messages from \a from on, or those up to the end, some thousand at a
    /// time, until \a visit returns false. Reads each once and keeps nothing: for going through
    /// many of them. Returns how many were left out because they are no longer there.
    quint64 forEach(quint64 from, quint64 count,
                    const std::function<bool(const TraceBlock &block)> &visit) const;
    /// The same with the positions, rising, of the messages that \a expression takes; \a visit is
    /// called with none as well, so that it can stop a long search. Chunks without any are not
    /// looked at.
    quint64 forEachFound(const TraceExpression &expression, quint64 from, quint64 count,
                         const std::function<bool(const QVector<quint64> &positions)> &visit) const;

    /// The lowest time of all messages; 0 while there are none. The end of a damaged chunk may be
    /// a record that is cut short: its time does not count, here and below.
    qint64 firstTime() const;
    /// The highest, likewise.
    qint64 lastTime() const;
    /// The first message behind which no earlier time is the highest so far: where times do not
    /// fall, the first at or behind \a time. count() when there is none.
    quint64 positionOfTime(qint64 time) const;
    /// The first message with that number.
    std::optional<quint64> positionOfNumber(quint32 number) const;

    /// Where messages have a bookmark, rising. Reads the notes and bookmarks of chunks that have
    /// any.
    QVector<quint64> bookmarkPositions() const;

    /// Where messages have a note, rising; the first 1000000 of them. Likewise.
    QVector<quint64> notePositions() const;
    /// What is written on messages, in their order, of \a most messages at most. Likewise, and
    /// nothing else is read, as long as \a keepGoing returns true.
    QVector<TraceMark> marks(int most, const std::function<bool()> &keepGoing = {}) const;

    /// Gives the message at \a position another note; an empty one takes it away. What lies in a
    /// chunk file is written there, which takes as long as copying it; what waits for the disk is
    /// waited for. A chunk keeps its place, its rights and its time of writing, and every timeline
    /// shows the change after its next refresh. Changes of the same chunk at the same time all
    /// last.
    ///
    /// False, and \a error, where it is not null, is a sentence for the user, when nothing has
    /// changed: an archive, a folder or file that cannot be written, a full disk, a chunk that is
    /// gone, damaged or still being written, a trace that was cleared since the last refresh.
    bool setNote(quint64 position, const QString &note, QString *error = nullptr);
    /// The same for a position that was asked for some refreshes ago, in that \a generation. False
    /// when it is another by now, and the position perhaps that of another message.
    bool setNote(quint64 position, const QString &note, QString *error, quint32 generation);
    /// As setNote(), for a bookmark. A chunk older than version 103 cannot have any, nor can the
    /// live messages of a store without a BookmarkHandler.
    bool setBookmark(quint64 position, const QString &text, QString *error = nullptr);
    /// The same for a position of that \a generation.
    bool setBookmark(quint64 position, const QString &text, QString *error, quint32 generation);

    /// Every identifier with each line and kind, by identifier. False in \a isExact, and some are
    /// missing, where a chunk has more than 65536 of them, or all together more than 1000000.
    QVector<TraceIdentifier> identifiers(bool *isExact = nullptr) const;

    /// Counts from \a from up to \a to, which is not included, in \a intervals of equal length;
    /// no intervals when there are none to be, or \a to is below \a from. Goes by the highest time
    /// so far, like positionOfTime(). Exact where an interval ends with a step of 4096 messages, in
    /// between in proportion.
    TraceRate rate(qint64 from, qint64 to, int intervals) const;

    /// What \a expression takes, found in the background from the messages around \a focus
    /// outwards.
    TraceFilter filter(const TraceExpression &expression, quint64 focus = 0) const;
    /// The first that \a expression takes at or behind \a position, if any. Waits for the disk, and
    /// gives up when \a keepGoing returns false, which may be asked from other threads as well.
    std::optional<quint64> findNext(const TraceExpression &expression, quint64 position,
                                    const std::function<bool()> &keepGoing = {}) const;
    /// The same backwards, from the message in front of \a position on.
    std::optional<quint64> findPrevious(const TraceExpression &expression, quint64 position,
                                        const std::function<bool()> &keepGoing = {}) const;

    class Data;

private:
    friend const std::shared_ptr<Data> &dataOf(const TraceTimeline &timeline);

    std::shared_ptr<Data> data;
};
