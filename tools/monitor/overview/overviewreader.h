#pragma once

#include "overviewpicture.h"
#include "turningthread.h"

#include <QElapsedTimer>
#include <QObject>

#include <atomic>
#include <mutex>

/// Has the pictures of an overview made on a thread of its own, anew while the trace grows.
class OverviewReader : public QObject
{
    Q_OBJECT
public:
    /// Of the notes, and of the bookmarks.
    static constexpr int mostMarks = 2000;

    explicit OverviewReader(const TraceTimeline &timeline, QObject *parent = nullptr);

    /// It rests at first.
    void setRunning(bool on) { thread.setRunning(on); }
    void setWish(const OverviewWish &wish);
    /// Notes or bookmarks are others. They are looked for now and then without that.
    void readMarks();

signals:
    void pictureReady(const OverviewPicture &picture);

private:
    int turn(const TurningThread::KeepGoing &keepGoing);
    bool lookForMarks(const TurningThread::KeepGoing &keepGoing);
    void publish();

    std::mutex mutex;
    OverviewWish wish;
    bool isWishNew = false;
    std::atomic_bool areMarksOld{true};
    std::atomic_bool isPictureOnItsWay{false};

    // Of the thread.
    TraceTimeline timeline;
    OverviewPicture picture;
    quint64 messagesWithMarks = 0;
    QElapsedTimer sinceMarks;
    qint64 timeForMarks = 0; // milliseconds that they took
    bool isTold = true;

    TurningThread thread; // ends first
};
