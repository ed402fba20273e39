#pragma once

#include "taskqueue.h"

#include <functional>
#include <memory>

/// Functions that the global thread pool would run, on behalf of an object that may end at any
/// moment. They come behind the application's own tasks when those take all of the pool's threads.
/// Otherwise they run on a thread of their own: a pool that is refused a thread loses the task,
/// waits for it for ever when the application ends, and aborts where the event dispatcher of its
/// new thread gets no file descriptor. Any thread.
class PoolTasks
{
public:
    PoolTasks();
    ~PoolTasks();

    /// Has \a task run. Waits for its end as long as nobody would notice, so that what follows
    /// mostly finds it done.
    void run(std::function<void()> task);

    /// Waits for the tasks that have begun; the others never will. A pool that is busy with
    /// somebody else's work is not waited for.
    void stop();

private:
    class Gate;

    const std::shared_ptr<Gate> gate;
    TaskQueue queue;
};
