#pragma once

#include "backgroundthread.h"

#include <functional>
#include <memory>

/// Runs functions one after the other, in the order in which they came, on a thread of its own.
/// Any thread.
class TaskQueue
{
public:
    using Task = std::function<void()>;

    TaskQueue();

    /// As stop().
    ~TaskQueue();

    /// Where no thread can be had, the caller runs the task, which may then destroy the queue.
    void run(Task task);

    /// Waits for the task that has begun, unless that is the caller; the others never will.
    void stop();

    /// Waits for all tasks; not to be called by one of them.
    void finish();

    /// Number of tasks that have not ended.
    int size() const;

private:
    class Tasks;

    const std::shared_ptr<Tasks> tasks; // outlives the queue where a task destroys it
    BackgroundThread thread;
};
