#pragma once

#include <QMutex>
#include <QThread>

#include <deque>
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

    /// Where no thread can be had, the caller runs the task.
    void run(std::function<void()> task);

    /// Waits for the task that has begun; the others never will.
    void stop();

private:
    class Thread;

    void work();

    QMutex startMutex;                     // held while the thread is being started or joined
    const std::unique_ptr<QThread> thread; // guarded by startMutex

    // Guarded by mutex.
    QMutex mutex;
    std::deque<std::function<void()>> waiting;
    bool working = false; // whether somebody runs work()
    bool stopped = false;
};
