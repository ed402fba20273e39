#pragma once

#include <chrono>
#include <functional>
#include <memory>

/// A thread that does the same work again whenever it is woken, and sleeps in between. The system
/// is asked for it once, when this object is made: a thread that is wanted later may be refused.
/// It has no event dispatcher, and so takes no file descriptor either.
class BackgroundThread
{
public:
    explicit BackgroundThread(std::function<void()> work);

    /// As stop(), for as long as it takes.
    ~BackgroundThread();

    BackgroundThread(const BackgroundThread &) = delete;
    BackgroundThread &operator=(const BackgroundThread &) = delete;

    /// Has the work done once more, beginning after this call. False when the system refuses the
    /// thread again: the caller then does the work. Never waits. Any thread.
    bool wake();

    /// No work begins any more. Waits for the end of what is being done, unless that is what calls
    /// this. False when \a patience ran out: the thread then ends by itself, later, so the work
    /// must own whatever it uses. Not to be called twice at once.
    bool stop(std::chrono::milliseconds patience);

private:
    class State;

    const std::shared_ptr<State> state; // outlives this object where the thread does
};
