#include "taskthread.h"

#include <utility>

TaskThread::TaskThread()
    : thread([this](const GoesOn &goesOn) {
          while (goesOn() && runNext(goesOn)) { }
          return -1;
      })
{
    thread.setRunning(true);
}

void TaskThread::run(Task task)
{
    if (!thread.setRunning(true)) {
        task([] { return true; });
        return;
    }
    {
        const std::lock_guard<std::mutex> locker(mutex);
        tasks.push_back(std::move(task));
    }
    thread.wake();
}

// False when there is none.
bool TaskThread::runNext(const GoesOn &goesOn)
{
    std::unique_lock<std::mutex> locker(mutex);
    if (tasks.empty())
        return false;
    const Task task = std::move(tasks.front());
    tasks.pop_front();
    locker.unlock();
    task(goesOn);
    return true;
}
