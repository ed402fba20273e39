#pragma once

#include "turningthread.h"

#include <deque>
#include <functional>
#include <mutex>

/// Works on one task after the other on a thread of its own. The thread is there from the start:
/// one that is wanted later may be refused. Its end ends the task that runs, and leaves out the
/// others.
class TaskThread
{
public:
    /// Asked by a task now and then whether it goes on.
    using GoesOn = TurningThread::KeepGoing;
    using Task = std::function<void(const GoesOn &goesOn)>;

    TaskThread();

    /// Does not wait, unless the system refuses a thread: then the task is done here.
    void run(Task task);

private:
    bool runNext(const GoesOn &goesOn);

    std::mutex mutex;
    std::deque<Task> tasks; // under the mutex
    TurningThread thread;   // last: it uses the others
};
