#pragma once

#include <functional>
#include <memory>

class QThreadPool;

/// Functions that run on a thread pool on behalf of an object that may end at any moment. Any
/// thread.
class PoolTasks
{
public:
    /// \a pool has to outlive this object.
    explicit PoolTasks(QThreadPool *pool);
    ~PoolTasks();

    /// Has the pool run \a task as soon as it has a thread for it.
    void run(std::function<void()> task);

    /// Waits for the tasks that have begun; the others never will. A pool that is busy with
    /// somebody else's work is not waited for.
    void stop();

private:
    struct Gate;
    QThreadPool *const pool;
    const std::shared_ptr<Gate> gate;
};
