#pragma once

#include <QElapsedTimer>
#include <QObject>

#include <vector>

/// Takes the time of each turn of this thread's event loop, from where it wakes up to where it
/// waits again, which is how long a key or the mouse may have to wait.
class LoopMeter : public QObject
{
    Q_OBJECT
public:
    LoopMeter();

    /// Forgets all turns so far.
    void restart();

    quint64 turns() const { return count; }
    /// How many of 100 turns took less than so many milliseconds.
    double percentBelow(int milliseconds) const;
    /// The shortest time in milliseconds that so many of 100 turns do not exceed.
    double quantile(double percent) const;
    /// In milliseconds.
    double longest() const { return double(most) / nanosecondsPerMillisecond; }

private:
    static constexpr qint64 nanosecondsPerMillisecond = 1000000;
    static constexpr qint64 nanosecondsPerStep = 10000;
    static constexpr int steps = 100000; // up to a second; longer ones count in the last

    void add(qint64 nanoseconds);

    QElapsedTimer turn;
    bool isAwake = false;
    std::vector<quint64> histogram;
    quint64 count = 0;
    qint64 most = 0;
};
