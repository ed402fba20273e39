#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

/// Does what may have to wait for a disk, one after the other, on a thread of its own. Where no
/// thread can be had the caller does it.
class DiskThread
{
public:
    DiskThread();
    /// Waits for all that was ordered.
    ~DiskThread();

    DiskThread(const DiskThread &) = delete;
    DiskThread &operator=(const DiskThread &) = delete;

    void run(std::function<void()> task);

    /// Waits for all that was ordered, but no longer than so many \a milliseconds. False when the
    /// time was too short.
    bool wait(int milliseconds);

private:
    void work();

    std::mutex mutex;
    std::condition_variable changed;
    std::deque<std::function<void()>> tasks; // the first one is being done
    bool ending = false;
    std::thread thread; // last: it uses the others
};
