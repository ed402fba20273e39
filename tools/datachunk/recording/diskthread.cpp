#include "diskthread.h"

#include <chrono>
#include <system_error>
#include <utility>

DiskThread::DiskThread()
{
    try {
        thread = std::thread([this] { work(); });
    } catch (const std::system_error &) {
        // Late is better than never: run() does the work.
    }
}

DiskThread::~DiskThread()
{
    {
        const std::lock_guard<std::mutex> locker(mutex);
        ending = true;
    }
    changed.notify_all();
    if (thread.joinable())
        thread.join();
}

void DiskThread::run(std::function<void()> task)
{
    if (!thread.joinable()) {
        task();
        return;
    }
    {
        const std::lock_guard<std::mutex> locker(mutex);
        tasks.push_back(std::move(task));
    }
    changed.notify_all();
}

bool DiskThread::wait(int milliseconds)
{
    std::unique_lock<std::mutex> locker(mutex);
    return changed.wait_for(locker, std::chrono::milliseconds(milliseconds),
                            [this] { return tasks.empty(); });
}

void DiskThread::work()
{
    std::unique_lock<std::mutex> locker(mutex);
    for (;;) {
        changed.wait(locker, [this] { return ending || !tasks.empty(); });
        if (tasks.empty())
            return;
        const std::function<void()> task = tasks.front();
        locker.unlock();
        task();
        locker.lock();
        tasks.pop_front();
        changed.notify_all();
    }
}
