#include "taskqueue.h"

#include "locks.h"

#include <deque>
#include <new>
#include <thread>
#include <utility>

namespace {

// A task without the memory it needs is given up, and those behind it are not.
void runTask(const TaskQueue::Task &task)
{
    try {
        task();
    } catch (const std::bad_alloc &) {
        qWarning("There was not enough memory for work in the background.");
    }
}

} // namespace

class TaskQueue::Tasks
{
public:
    bool add(Task task) EXCLUDES(mutex);
    void work() EXCLUDES(mutex);
    void stop() EXCLUDES(mutex);
    void finish() EXCLUDES(mutex);
    int size() const EXCLUDES(mutex);

private:
    bool beginWork() EXCLUDES(mutex);
    Task next() EXCLUDES(mutex);

    mutable Mutex mutex;
    QWaitCondition ended;
    std::deque<Task> waiting GUARDED_BY(mutex);
    std::thread::id worker GUARDED_BY(mutex); // of nobody, when nobody works
    bool isStopped GUARDED_BY(mutex) = false;
};

// False, with nothing added, behind the end.
bool TaskQueue::Tasks::add(Task task)
{
    const MutexLock locker(mutex);
    if (isStopped)
        return false;
    waiting.push_back(std::move(task));
    return true;
}

// One at a time works off the tasks: the thread, or a caller in place of it.
void TaskQueue::Tasks::work()
{
    if (!beginWork())
        return;
    // What a task holds may come back here when it goes, which it does before the next is asked
    // for.
    while (const Task task = next())
        runTask(task);
}

bool TaskQueue::Tasks::beginWork()
{
    const MutexLock locker(mutex);
    if (worker != std::thread::id())
        return false;
    worker = std::this_thread::get_id();
    return true;
}

// Null, and the work has ended, when there is nothing to do.
TaskQueue::Task TaskQueue::Tasks::next()
{
    const MutexLock locker(mutex);
    if (waiting.empty()) {
        worker = {};
        ended.wakeAll();
        return nullptr;
    }
    Task task = std::move(waiting.front());
    waiting.pop_front();
    return task;
}

void TaskQueue::Tasks::stop()
{
    std::deque<Task> dropped; // go without the lock
    const MutexLock locker(mutex);
    isStopped = true;
    dropped.swap(waiting);
    while (worker != std::thread::id() && worker != std::this_thread::get_id())
        mutex.waitFor(ended);
}

void TaskQueue::Tasks::finish()
{
    const MutexLock locker(mutex);
    while (!waiting.empty() || worker != std::thread::id())
        mutex.waitFor(ended);
}

int TaskQueue::Tasks::size() const
{
    const MutexLock locker(mutex);
    return int(waiting.size()) + (worker == std::thread::id() ? 0 : 1);
}

TaskQueue::TaskQueue()
    : tasks(std::make_shared<Tasks>()), thread([tasks = tasks] { tasks->work(); })
{
}

TaskQueue::~TaskQueue()
{
    stop();
}

void TaskQueue::run(Task task)
{
    const std::shared_ptr<Tasks> ours = tasks;
    if (ours->add(std::move(task)) && !thread.wake())
        ours->work();
}

void TaskQueue::stop()
{
    tasks->stop();
    thread.stop(std::chrono::milliseconds::max());
}

void TaskQueue::finish()
{
    tasks->finish();
}

int TaskQueue::size() const
{
    return tasks->size();
}
