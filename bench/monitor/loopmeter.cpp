#include "loopmeter.h"

#include <QAbstractEventDispatcher>

#include <algorithm>

LoopMeter::LoopMeter() : histogram(steps)
{
    const QAbstractEventDispatcher *dispatcher = QAbstractEventDispatcher::instance();
    connect(dispatcher, &QAbstractEventDispatcher::awake, this, [this] {
        // Woken up again without having waited, it is in the next turn.
        if (isAwake)
            add(turn.nsecsElapsed());
        isAwake = true;
        turn.start();
    });
    connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, this, [this] {
        if (isAwake)
            add(turn.nsecsElapsed());
        isAwake = false;
    });
}

void LoopMeter::restart()
{
    std::fill(histogram.begin(), histogram.end(), 0);
    count = 0;
    most = 0;
}

void LoopMeter::add(qint64 nanoseconds)
{
    ++histogram[std::size_t(std::min<qint64>(nanoseconds / nanosecondsPerStep, steps - 1))];
    ++count;
    most = std::max(most, nanoseconds);
}

double LoopMeter::percentBelow(int milliseconds) const
{
    const qint64 end = milliseconds * nanosecondsPerMillisecond / nanosecondsPerStep;
    quint64 below = 0;
    for (qint64 step = 0; step < std::min<qint64>(end, steps); ++step)
        below += histogram[std::size_t(step)];
    return count == 0 ? 100 : 100.0 * double(below) / double(count);
}

double LoopMeter::quantile(double percent) const
{
    const auto wanted = quint64(double(count) * percent / 100);
    quint64 passed = 0;
    qint64 step = 0;
    while (step < steps - 1 && passed + histogram[std::size_t(step)] < wanted)
        passed += histogram[std::size_t(step++)];
    return double((step + 1) * nanosecondsPerStep) / nanosecondsPerMillisecond;
}
