#include "loopmeter.h"

#include <algorithm>
#include <chrono>

LoopMeter::LoopMeter() : histogram(steps), thread([this] { post(); }) { }

LoopMeter::~LoopMeter()
{
    stopping = true;
    thread.join();
}

void LoopMeter::post()
{
    while (!stopping) {
        std::this_thread::sleep_for(std::chrono::milliseconds(3));
        if (isWaiting.exchange(true))
            continue;
        QElapsedTimer since;
        since.start();
        QMetaObject::invokeMethod(
            this,
            [this, since] {
                add(since.nsecsElapsed());
                isWaiting = false;
            },
            Qt::QueuedConnection);
    }
}

void LoopMeter::add(qint64 nanoseconds)
{
    ++histogram[std::size_t(std::min<qint64>(nanoseconds / nanosecondsPerStep, steps - 1))];
    ++events;
    most = std::max(most, nanoseconds);
}

double LoopMeter::percentBelow(int milliseconds) const
{
    const qint64 end = milliseconds * nanosecondsPerMillisecond / nanosecondsPerStep;
    quint64 below = 0;
    for (qint64 step = 0; step < std::min<qint64>(end, steps); ++step)
        below += histogram[std::size_t(step)];
    return events == 0 ? 100 : 100.0 * double(below) / double(events);
}

double LoopMeter::quantile(double percent) const
{
    const auto wanted = quint64(double(events) * percent / 100);
    quint64 passed = 0;
    qint64 step = 0;
    while (step < steps - 1 && passed + histogram[std::size_t(step)] < wanted)
        passed += histogram[std::size_t(step++)];
    return double((step + 1) * nanosecondsPerStep) / nanosecondsPerMillisecond;
}
