#pragma once

#include "digestsums.h"
#include "tracetimeline.h"
#include "turningthread.h"

#include <QElapsedTimer>
#include <QObject>
#include <QSet>

#include <atomic>
#include <memory>
#include <optional>

class ShownTrace;

/// What the messages of a trace add up to, for all views of it. Goes through the trace on a thread
/// of its own while somebody watches, tells what is known so far ten times a second at most, and
/// goes on where it was when somebody watches again.
class TraceDigest : public QObject
{
    Q_OBJECT
public:
    static constexpr int millisecondsPerUpdate = 100;

    /// That of \a trace, which owns it.
    static TraceDigest *of(ShownTrace *trace);
    ~TraceDigest() override;

    /// \a watcher is forgotten when it goes.
    void setWatched(QObject *watcher, bool on);

    const TraceSummary &summary() const { return ownSummary; }
    /// In order of appearance, at most TraceStatistics::mostIdentifiers.
    const QVector<IdentifierDigest> &identifiers() const { return ownIdentifiers; }
    /// Whether nothing is left to be looked at for now.
    bool isUpToDate() const { return ownSummary.done >= ownSummary.of; }
    bool isGrowing() const;
    /// The time that it is in the trace, in microseconds: where messages may come, time goes on
    /// after the last one.
    qint64 now() const;
    /// Whether more than a second has gone without a message where messages may come.
    bool isSilent() const;

signals:
    /// Another trace is in place of the one before; nothing is known of it yet.
    void cleared();
    /// The summary is another one, and these identifiers, by place. Those behind the ones before
    /// are new.
    void updated(const QVector<int> &places);

private:
    struct Update
    {
        bool isNewTrace = false;
        TraceSummary summary;
        QVector<QPair<int, IdentifierDigest>> changed;
    };

    explicit TraceDigest(ShownTrace *trace);

    int turn(const TurningThread::KeepGoing &keepGoing);
    bool isSameTrace() const;
    void add(const TraceBlock &block);
    bool publish();
    void take(const Update &update);

    ShownTrace *const trace;
    QSet<QObject *> watchers;
    TraceSummary ownSummary;
    QVector<IdentifierDigest> ownIdentifiers;
    QElapsedTimer sinceMessage;

    // Of the thread.
    TraceTimeline timeline;
    std::unique_ptr<DigestSums> sums;
    quint64 next = 0; // position of the first message that is not added
    std::optional<CAN::CanRxMessage> lastAdded;
    bool isNewTrace = false;
    bool isTold = true;
    QElapsedTimer sinceUpdate;

    std::atomic_bool isUpdateOnItsWay{false};
    TurningThread thread; // ends first
};
