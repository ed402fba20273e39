#pragma once

#include "repeatablethread.h"

#include <QMutex>

#include <functional>
#include <memory>

/// Runs functions one after the other, in the order in which they came, on a thread of its own
/// that lives while there is work. A thread pool would do, were it not for a thread that cannot be
/// started: a pool loses the function and waits for it for ever. Any thread.
class TaskQueue
{
public:
    TaskQueue();
    ~TaskQueue();

    /// Where no thread can be had, the caller runs the task, which may then destroy the queue.
    void run(std::function<void()> task);

    /// Waits for the task that has begun, unless that is the caller; the others never will.
    void stop();

private:
    struct Tasks;

    const std::shared_ptr<Tasks> tasks; // outlives the queue where a task destroys it
    QMutex startMutex;                  // held while the thread is being started
    RepeatableThread thread;
};
