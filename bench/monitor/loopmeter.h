#pragma once

#include <QElapsedTimer>
#include <QObject>

#include <atomic>
#include <thread>
#include <vector>

/// Takes how long an event has to wait until this thread's event loop comes to it, as a key or the
/// mouse has to: once in some milliseconds another thread posts one.
class LoopMeter : public QObject
{
    Q_OBJECT
public:
    LoopMeter();
    ~LoopMeter() override;

    /// Events so far.
    quint64 count() const { return events; }
    /// How many of 100 waited less than so many milliseconds.
    double percentBelow(int milliseconds) const;
    /// The shortest time in milliseconds that so many of 100 did not exceed.
    double quantile(double percent) const;
    /// In milliseconds.
    double longest() const { return double(most) / nanosecondsPerMillisecond; }

private:
    static constexpr qint64 nanosecondsPerMillisecond = 1000000;
    static constexpr qint64 nanosecondsPerStep = 10000;
    static constexpr int steps = 100000; // up to a second; longer ones count in the last

    void post();
    void add(qint64 nanoseconds);

    std::atomic<bool> stopping{false};
    std::atomic<bool> isWaiting{false}; // an event has been posted
    std::vector<quint64> histogram;
    quint64 events = 0;
    qint64 most = 0;
    std::thread thread;
};
