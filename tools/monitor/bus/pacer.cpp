#include "pacer.h"

void Pacer::reset()
{
    const std::lock_guard<std::mutex> locker(mutex);
    stopped = false;
    paused = false;
    isAnchored = false;
}

void Pacer::stop()
{
    const std::lock_guard<std::mutex> locker(mutex);
    stopped = true;
    changed.notify_all();
}

bool Pacer::isStopped() const
{
    const std::lock_guard<std::mutex> locker(mutex);
    return stopped;
}

void Pacer::setPaused(bool on)
{
    const std::lock_guard<std::mutex> locker(mutex);
    // What was missed meanwhile must not come all at once.
    anchorHere();
    paused = on;
    changed.notify_all();
}

void Pacer::setSpeed(double speed)
{
    const std::lock_guard<std::mutex> locker(mutex);
    anchorHere();
    factor = speed;
    changed.notify_all();
}

double Pacer::speed() const
{
    const std::lock_guard<std::mutex> locker(mutex);
    return factor;
}

void Pacer::begin()
{
    const std::lock_guard<std::mutex> locker(mutex);
    isAnchored = false;
}

bool Pacer::isDue(qint64 time)
{
    const std::lock_guard<std::mutex> locker(mutex);
    follow(time);
    return !stopped && !paused && dueTime(time) <= Clock::now() + together;
}

bool Pacer::waitFor(qint64 time)
{
    std::unique_lock<std::mutex> locker(mutex);
    follow(time);
    while (!stopped) {
        const Clock::time_point due = dueTime(time);
        if (paused)
            changed.wait(locker);
        else if (due <= Clock::now() + together)
            return true;
        else
            changed.wait_until(locker, due);
    }
    return false;
}

qint64 Pacer::wallTime(qint64 time) const
{
    const std::lock_guard<std::mutex> locker(mutex);
    const auto ahead = dueTime(time) - Clock::now();
    const auto wall = std::chrono::system_clock::now().time_since_epoch() + ahead;
    return std::chrono::duration_cast<std::chrono::microseconds>(wall).count();
}

bool Pacer::rest(std::chrono::milliseconds length)
{
    std::unique_lock<std::mutex> locker(mutex);
    const Clock::time_point end = Clock::now() + length;
    while (!stopped && (paused || Clock::now() < end)) {
        if (paused)
            changed.wait(locker);
        else
            changed.wait_until(locker, end);
    }
    return !stopped;
}

Pacer::Clock::time_point Pacer::dueTime(qint64 time) const
{
    if (factor <= 0)
        return Clock::now();
    const double length = double(time - anchorTime) / factor;
    // A time that is no time at all must not leave the range of the clock.
    constexpr double longest = 1e15;
    return anchorMoment + std::chrono::microseconds(qint64(qBound(-longest, length, longest)));
}

void Pacer::anchor(qint64 time)
{
    isAnchored = true;
    anchorTime = time;
    anchorMoment = Clock::now();
}

// From where the trace has come to by now.
void Pacer::anchorHere()
{
    if (!isAnchored)
        return;
    constexpr double perSecond = 1e6;
    const std::chrono::duration<double> passed = Clock::now() - anchorMoment;
    const double length = paused ? 0 : passed.count() * factor * perSecond;
    anchor(factor > 0 ? qMin(latest, anchorTime + qint64(length)) : latest);
}

// Where times fall, as from one part of a trace to the next, they count anew from there. Those of
// several lines may be out of order by little.
void Pacer::follow(qint64 time)
{
    constexpr qint64 second = 1000000;
    const bool begins = !isAnchored || time < latest - second;
    if (begins)
        anchor(time);
    latest = begins ? time : qMax(latest, time);
}
