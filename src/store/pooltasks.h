#pragma once

#include <functional>
#include <memory>

/// Functions that run on the global thread pool on behalf of an object that may end at any moment.
/// Any thread.
class PoolTasks
{
public:
    PoolTasks();
    ~PoolTasks();

    /// Has the pool run \a task as soon as it has a thread for it.
    void run(std::function<void()> task);

    /// Waits for the tasks that have begun; the others never will. A pool that is busy with
    /// somebody else's work is not waited for.
    void stop();

private:
    struct Gate;
    const std::shared_ptr<Gate> gate;
};
