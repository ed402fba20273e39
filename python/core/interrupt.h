#pragma once

#include "pythonheaders.h"

#include <atomic>
#include <chrono>
#include <thread>

/// Lets Ctrl-C end what works without the interpreter's lock. Made by the thread that works, which
/// lets go of the lock afterwards; others may ask it as well, and are told what that thread knows.
class Interrupt
{
public:
    /// False once Python wants to raise something. Takes the lock only now and then, so that it can
    /// be asked for every block of messages.
    bool goesOn()
    {
        const auto now = Clock::now();
        if (std::this_thread::get_id() != worker || stopped || now < next)
            return !stopped;
        next = now + std::chrono::milliseconds(50);
        const py::gil_scoped_acquire lock;
        if (PyErr_CheckSignals() != 0)
            stopped = true;
        return !stopped;
    }

    /// Raises what Python wanted to; with the lock held, when the work has ended.
    void raise() const
    {
        if (stopped)
            throw py::error_already_set();
    }

private:
    using Clock = std::chrono::steady_clock;

    const std::thread::id worker = std::this_thread::get_id();
    std::atomic<bool> stopped{false};
    Clock::time_point next = Clock::now();
};

/// Calls \a work without the interpreter's lock, with an Interrupt to ask, and raises afterwards
/// what has stopped it.
template <typename Work> void workUnlocked(const Work &work)
{
    Interrupt interrupt;
    {
        const py::gil_scoped_release unlocked;
        work(interrupt);
    }
    interrupt.raise();
}
