#include "taskthread.h"

#include <utility>

TaskThread::TaskThread() : thread([this] { work(); }) { }

TaskThread::~TaskThread()
{
    {
        const std::lock_guard<std::mutex> locker(mutex);
        isStopping = true;
        changed.notify_all();
    }
    thread.join();
}

void TaskThread::run(Task task)
{
    const std::lock_guard<std::mutex> locker(mutex);
    tasks.push_back(std::move(task));
    changed.notify_all();
}

void TaskThread::work()
{
    std::unique_lock<std::mutex> locker(mutex);
    while (!isStopping) {
        if (tasks.empty()) {
            changed.wait(locker);
            continue;
        }
        const Task task = std::move(tasks.front());
        tasks.pop_front();
        locker.unlock();
        task([this] { return !isStopping; });
        locker.lock();
    }
}
