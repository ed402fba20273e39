#pragma once

#include "mark.h"
#include "tracetimeline.h"
#include "turningthread.h"

#include <QHash>
#include <QObject>

#include <atomic>
#include <functional>
#include <mutex>
#include <optional>

/// Reads the notes and bookmarks of a trace, on a thread of its own.
class MarkReader : public QObject
{
    Q_OBJECT
public:
    /// More messages than this are not listed.
    static constexpr int mostMessages = 10000;

    explicit MarkReader(QObject *parent = nullptr);

    /// Looks through \a timeline, after what it looks through already; of several that wait the
    /// last one counts. Never waits.
    void read(const TraceTimeline &timeline);
    /// Of what is being read, or waits, nothing is told any more; the next list is, in any case.
    void forget();
    /// The same for another trace.
    void forgetTrace();

signals:
    /// There are other marks than before.
    void marksRead(const MarkList &list);

private:
    /// What does not change of a message.
    struct Known
    {
        qint64 microseconds = 0;
        QString number;
        QString time;
        QString identifier;
    };

    bool readNext(const TurningThread::KeepGoing &keepGoing);
    void tell(const MarkList &list, int ofRound);
    MarkList listOf(TraceTimeline &timeline, const std::function<bool()> &goesOn);
    static void add(const TraceMark &mark, const Known &message, MarkList &list);
    const Known &known(const TraceTimeline &timeline, quint64 position);

    std::mutex mutex;
    std::optional<TraceTimeline> wanted; // under the mutex
    bool isOtherTrace = false;           // likewise
    std::atomic<int> round{0};

    // Of the thread.
    int lastRound = -1;
    MarkList last;
    QHash<quint64, Known> messages; // by position
    quint64 lastCount = 0;
    qint64 lastStart = 0;

    TurningThread thread; // ends first
};
