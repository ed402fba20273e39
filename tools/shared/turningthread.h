#pragma once

#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

/// Work that is done bit by bit on a thread of its own, which rests while nobody wants it.
class TurningThread
{
public:
    /// Whether to go on with a turn; for asking every few milliseconds.
    using KeepGoing = std::function<bool()>;
    /// Does what there is to do. Returns after how many milliseconds there may be more; a negative
    /// number for not before wake().
    using Turn = std::function<int(const KeepGoing &keepGoing)>;

    /// Rests at first. \a turn is called on the thread.
    explicit TurningThread(Turn turn);
    /// Waits for the end of a turn.
    ~TurningThread();
    TurningThread(const TurningThread &) = delete;
    TurningThread &operator=(const TurningThread &) = delete;

    /// A turn is asked to end when it is to rest. Does not wait. False where the system refuses a
    /// thread; the next call asks for it again.
    bool setRunning(bool on);
    /// Has the next turn begin now, or right after the one that runs.
    void wake();

private:
    bool start();
    void run();
    bool isWanted();
    void rest(std::unique_lock<std::mutex> &locker, int milliseconds);

    const Turn turn;
    std::mutex mutex;
    std::condition_variable changed;
    bool isRunning = false;
    bool isWoken = false;
    bool isEnding = false;
    std::thread thread; // started with the first setRunning(true)
};
