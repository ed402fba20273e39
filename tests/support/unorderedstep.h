#pragma once

#include <atomic>
#include <thread>

/// Lets threads take turns without ordering their accesses for a sanitizer: only what the tested
/// code does itself counts. A thread that has touched something has to live on until the others
/// have, as it is forgotten with its end.
class UnorderedStep
{
public:
    void set(int number) { step.store(number, std::memory_order_relaxed); }

    void waitFor(int number) const
    {
        while (step.load(std::memory_order_relaxed) != number)
            std::this_thread::yield();
    }

private:
    std::atomic<int> step{0};
};
