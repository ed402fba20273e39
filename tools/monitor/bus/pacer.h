#pragma once

#include <QtGlobal>

#include <chrono>
#include <condition_variable>
#include <mutex>

/// Has one thread wait for the moments of a trace, at a speed that another thread sets. Times are
/// in microseconds.
class Pacer
{
public:
    /// What comes within this time is taken together, for fewer turns of the processor.
    static constexpr std::chrono::milliseconds together{2};

    /// Lets what was stopped go on. To be called while nobody waits.
    void reset();
    void stop();
    bool isStopped() const;

    void setPaused(bool paused);
    /// 1 for the times of the trace; 0 for as fast as possible.
    void setSpeed(double speed);
    double speed() const;

    /// For the thread that waits: the next message comes whenever it comes, and the times of those
    /// behind it count from there.
    void begin();
    /// Whether waitFor() would return at once.
    bool isDue(qint64 time);
    /// Waits until the message of that time is due. False when stopped.
    bool waitFor(qint64 time);
    /// What the clock on the wall shows then.
    qint64 wallTime(qint64 time) const;

    /// Waits that long, and while it is paused. False when stopped.
    bool rest(std::chrono::milliseconds length);

private:
    using Clock = std::chrono::steady_clock;

    Clock::time_point dueTime(qint64 time) const;
    void anchor(qint64 time);
    void anchorHere();
    void follow(qint64 time);

    mutable std::mutex mutex;
    std::condition_variable changed;
    bool stopped = false;
    bool paused = false;
    double factor = 1;
    bool isAnchored = false;
    qint64 anchorTime = 0; // is due at that moment
    Clock::time_point anchorMoment;
    qint64 latest = 0; // of the times waited for
};
