#pragma once

#include "backgroundthread.h"

#include <QThread>

#include <memory>
#include <vector>

/// Several threads that do the same work, each as long as it finds any.
class BackgroundThreads
{
public:
    /// One for each processor where \a most is 0.
    explicit BackgroundThreads(const std::function<void()> &work, int most = 0)
    {
        const int wanted = most > 0 ? most : std::max(1, QThread::idealThreadCount());
        for (int i = 0; i < wanted; ++i)
            threads.push_back(std::make_unique<BackgroundThread>(work));
    }

    /// False when no thread can be had.
    bool wake()
    {
        bool anyWakes = false;
        for (const auto &thread : threads)
            anyWakes = thread->wake() || anyWakes;
        return anyWakes;
    }

private:
    std::vector<std::unique_ptr<BackgroundThread>> threads;
};
