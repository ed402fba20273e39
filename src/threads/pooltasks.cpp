#include "pooltasks.h"

#include "locks.h"

#include <QSemaphore>
#include <QThreadPool>

#include <utility>

/// Lets the pool's tasks in while it is open.
class PoolTasks::Gate
{
public:
    /// Inside as long as it lives, unless the gate was closed.
    class Visit
    {
    public:
        explicit Visit(Gate &gate) : gate(gate), inside(gate.enter()) { }
        ~Visit()
        {
            if (inside)
                gate.leave();
        }

        Visit(const Visit &) = delete;
        Visit &operator=(const Visit &) = delete;

        bool isInside() const { return inside; }

    private:
        Gate &gate;
        const bool inside;
    };

    void close() EXCLUDES(mutex)
    {
        const MutexLock locker(mutex);
        open = false;
        while (visitors > 0)
            mutex.waitFor(left);
    }

private:
    bool enter() EXCLUDES(mutex)
    {
        const MutexLock locker(mutex);
        if (open)
            ++visitors;
        return open;
    }

    void leave() EXCLUDES(mutex)
    {
        const MutexLock locker(mutex);
        --visitors;
        left.wakeAll();
    }

    Mutex mutex;
    QWaitCondition left;
    int visitors GUARDED_BY(mutex) = 0;
    bool open GUARDED_BY(mutex) = true;
};

PoolTasks::PoolTasks() : gate(std::make_shared<Gate>()) { }

PoolTasks::~PoolTasks()
{
    stop();
}

void PoolTasks::run(std::function<void()> task)
{
    constexpr int unnoticedMilliseconds = 20;
    QThreadPool &pool = *QThreadPool::globalInstance();
    // All threads being busy, the pool only puts the task in its queue.
    if (pool.activeThreadCount() >= pool.maxThreadCount()) {
        pool.start([gate = gate, task = std::move(task)] {
            const Gate::Visit visit(*gate);
            if (visit.isInside())
                task();
        });
        return;
    }
    const auto done = std::make_shared<QSemaphore>();
    queue.run([task = std::move(task), done] {
        task();
        done->release();
    });
    done->tryAcquire(1, unnoticedMilliseconds);
}

void PoolTasks::stop()
{
    gate->close();
    queue.stop();
}
