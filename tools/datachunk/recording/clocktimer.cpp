#include "clocktimer.h"

#include <QDateTime>

#include <utility>

namespace {

qint64 localMilliseconds()
{
    constexpr qint64 millisecondsPerSecond = 1000;
    const QDateTime now = QDateTime::currentDateTime();
    return now.toMSecsSinceEpoch() + now.offsetFromUtc() * millisecondsPerSecond;
}

} // namespace

ClockTimer::ClockTimer(qint64 period, QObject *parent)
    : QObject(parent), period(period), number(localMilliseconds() / period)
{
    timer.setSingleShot(true);
    timer.setTimerType(Qt::PreciseTimer);
    connect(&timer, &QTimer::timeout, this, &ClockTimer::look);
    look();
}

void ClockTimer::look()
{
    // A timer does not notice that the clock is set.
    constexpr qint64 longest = 60000;
    const qint64 now = localMilliseconds();
    const bool isNew = std::exchange(number, now / period) != now / period;
    timer.start(int(qMin((number + 1) * period - now, longest)));
    if (isNew)
        emit due();
}
