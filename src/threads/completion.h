#pragma once

#include "locks.h"

/// Lets others wait for the end of something. Any thread.
class Completion
{
public:
    void markFinished() EXCLUDES(mutex)
    {
        const MutexLock locker(mutex);
        finished = true;
        condition.wakeAll();
    }

    /// False when \a end came before the end of it.
    bool waitForFinished(QDeadlineTimer end = QDeadlineTimer(QDeadlineTimer::Forever))
        EXCLUDES(mutex)
    {
        const MutexLock locker(mutex);
        while (!finished && mutex.waitFor(condition, end)) { }
        return finished;
    }

private:
    Mutex mutex;
    QWaitCondition condition;
    bool finished GUARDED_BY(mutex) = false;
};
