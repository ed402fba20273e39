#pragma once

#include <QMutex>
#include <QThread>

#include <functional>
#include <memory>

/// Starts a thread that may have run before. False when the system has no thread to give.
bool startAgain(QThread &thread, QThread::Priority priority = QThread::InheritPriority);

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
    class Thread;

    const std::shared_ptr<Tasks> tasks; // outlives the queue where a task destroys it
    QMutex startMutex;                  // held while the thread is being started
    const std::unique_ptr<QThread> thread;
};
