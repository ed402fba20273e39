#pragma once

#include "mark.h"
#include "tracetimeline.h"

#include <QHash>
#include <QObject>

#include <atomic>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <thread>

/// Reads the notes and bookmarks of a trace, on a thread of its own.
class MarkReader : public QObject
{
    Q_OBJECT
public:
    /// More messages than this are not listed.
    static constexpr int mostMessages = 10000;

    explicit MarkReader(QObject *parent = nullptr);
    ~MarkReader() override;

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

    void work();
    void tell(const MarkList &list, int ofRound);
    MarkList listOf(TraceTimeline &timeline);
    static void add(const TraceMark &mark, const Known &message, MarkList &list);
    const Known &known(const TraceTimeline &timeline, quint64 position);
    bool goesOn(int ofRound) const { return !isStopping && round == ofRound; }

    std::mutex mutex;
    std::condition_variable wake;
    std::optional<TraceTimeline> wanted; // under the mutex
    bool isOtherTrace = false;           // likewise
    std::atomic<int> round{0};
    std::atomic<bool> isStopping{false};
    std::thread thread; // started with the first reading

    // Of the thread.
    int lastRound = -1;
    MarkList last;
    QHash<quint64, Known> messages; // by position
    quint64 lastCount = 0;
    qint64 lastStart = 0;
};
