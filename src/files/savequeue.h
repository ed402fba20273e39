#pragma once

#include "repeatablethread.h"
#include "savejob.h"

#include <QMutex>
#include <QWaitCondition>

#include <deque>
#include <functional>

/// Runs save jobs one after the other, in the order in which they came, on a thread of its own
/// that lives while there is work. All operations may be called from any thread.
class SaveQueue
{
public:
    /// \a run carries out one job, on the queue's thread.
    explicit SaveQueue(std::function<void(SaveJob &)> run);

    /// Waits for all jobs; discard() first for the ones that nobody needs any more.
    ~SaveQueue();

    /// Takes a job over without ever waiting for the disk, so that it may be called under the
    /// store's lock. A call of start() has to follow.
    void add(const SharedSaveJob &job);

    /// Starts the thread unless it works already. Where no thread can be had, the jobs are done
    /// by the caller, late being better than lost, and the result is false.
    bool start();

    /// Starts no further jobs until resume().
    void pause();
    void resume();

    /// Drops the waiting jobs and gives up the running one, without waiting for its end.
    void discard();

    /// Returns when the job that runs now, if any, has ended.
    void waitForRunning();

    /// Returns when every job added so far that \a isWanted has ended.
    void waitFor(const std::function<bool(const SaveJob &)> &isWanted);
    void waitForAll();

private:
    void work();
    bool takeNext(SharedSaveJob &job);

    const std::function<void(SaveJob &)> run;
    QMutex startMutex;       // held while the thread is being started or joined
    RepeatableThread thread; // guarded by startMutex

    // Guarded by mutex.
    QMutex mutex;
    QWaitCondition ended; // whenever no job, or another job, runs
    std::deque<SharedSaveJob> waiting;
    SharedSaveJob running;
    bool working = false; // whether somebody runs work()
    bool paused = false;
};
