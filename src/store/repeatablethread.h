#pragma once

#include <QThread>

#include <functional>
#include <utility>

/// A thread that runs the same function every time it is started.
class RepeatableThread : public QThread
{
public:
    explicit RepeatableThread(std::function<void()> work) : work(std::move(work)) { }

    /// Waits for the run before, and starts another one. False when the system has no thread to
    /// give.
    bool startAgain(Priority priority = InheritPriority)
    {
        wait();
        start(priority);
        return isRunning() || isFinished();
    }

private:
    void run() override { work(); }

    const std::function<void()> work;
};
