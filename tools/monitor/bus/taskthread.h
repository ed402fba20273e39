#pragma once

#include <atomic>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

/// Works on one task after the other on a thread of its own. The thread is there from the start:
/// one that is wanted later may be refused.
class TaskThread
{
public:
    /// Asked by a task now and then whether it goes on.
    using GoesOn = std::function<bool()>;
    using Task = std::function<void(const GoesOn &goesOn)>;

    TaskThread();
    /// Ends the task that runs, and leaves out the others.
    ~TaskThread();

    TaskThread(const TaskThread &) = delete;
    TaskThread &operator=(const TaskThread &) = delete;

    void run(Task task);

private:
    void work();

    std::atomic<bool> isStopping{false};
    std::mutex mutex;
    std::condition_variable changed;
    std::deque<Task> tasks;
    std::thread thread; // last: it uses the others
};
