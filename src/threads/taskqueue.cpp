#include "taskqueue.h"

#include <QtGlobal>

#include <condition_variable>
#include <deque>
#include <mutex>
#include <new>
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

struct TaskQueue::Tasks
{
    // One at a time works off the tasks: the thread, or a caller in place of it.
    void work()
    {
        std::unique_lock<std::mutex> lock(mutex);
        if (worker != std::thread::id())
            return;
        worker = std::this_thread::get_id();
        while (!waiting.empty()) {
            Task task = std::move(waiting.front());
            waiting.pop_front();
            lock.unlock();
            runTask(task);
            // What it holds may come back here when it goes.
            task = nullptr;
            lock.lock();
        }
        worker = {};
        ended.notify_all();
    }

    void stop()
    {
        std::deque<Task> dropped;
        std::unique_lock<std::mutex> lock(mutex);
        isStopped = true;
        dropped.swap(waiting);
        ended.wait(lock, [this] {
            return worker == std::thread::id() || worker == std::this_thread::get_id();
        });
    }

    std::mutex mutex;
    std::condition_variable ended;
    std::deque<Task> waiting;
    std::thread::id worker; // of nobody, when nobody works
    bool isStopped = false;
};

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
    {
        const std::lock_guard<std::mutex> lock(ours->mutex);
        if (ours->isStopped)
            return;
        ours->waiting.push_back(std::move(task));
    }
    if (!thread.wake())
        ours->work();
}

void TaskQueue::stop()
{
    tasks->stop();
    thread.stop(std::chrono::milliseconds::max());
}

void TaskQueue::finish()
{
    std::unique_lock<std::mutex> lock(tasks->mutex);
    tasks->ended.wait(
        lock, [this] { return tasks->waiting.empty() && tasks->worker == std::thread::id(); });
}

int TaskQueue::size() const
{
    const std::lock_guard<std::mutex> lock(tasks->mutex);
    return int(tasks->waiting.size()) + (tasks->worker == std::thread::id() ? 0 : 1);
}
