#include "servicemanager.h"

#include <QDeadlineTimer>

#include <cstdint>
#include <utility>

#ifdef DATACHUNK_SYSTEMD
#include <systemd/sd-daemon.h>
#endif

namespace {

constexpr int millisecondsBetweenStates = 5000;

// The manager's protocol: lines of "NAME=value".
void tell(const QByteArray &state)
{
#ifdef DATACHUNK_SYSTEMD
    sd_notify(0, state.constData());
#else
    Q_UNUSED(state)
#endif
}

// Twice as often as the watchdog wants a sign.
int millisecondsBetweenSigns()
{
#ifdef DATACHUNK_SYSTEMD
    constexpr std::uint64_t microsecondsPerMillisecond = 1000;
    constexpr std::uint64_t least = 1;
    std::uint64_t watchdog = 0;
    if (sd_watchdog_enabled(0, &watchdog) > 0)
        return int(qBound(least, watchdog / microsecondsPerMillisecond / 2,
                          std::uint64_t(millisecondsBetweenStates)));
#endif
    return millisecondsBetweenStates;
}

} // namespace

ServiceManager::ServiceManager(std::function<QString()> status) : status(std::move(status))
{
    connect(&timer, &QTimer::timeout, this, &ServiceManager::tellAlive);
}

void ServiceManager::tellReady()
{
    tell("READY=1");
    tellAlive();
    timer.start(millisecondsBetweenSigns());
}

void ServiceManager::tellReloading()
{
    // Managers that wait for the end of the reloading compare the time.
    const qint64 now = QDeadlineTimer::current(Qt::PreciseTimer).deadlineNSecs() / 1000;
    tell("RELOADING=1\nMONOTONIC_USEC=" + QByteArray::number(now));
}

void ServiceManager::tellStopping()
{
    timer.stop();
    tell("STOPPING=1");
}

void ServiceManager::tellAlive()
{
    tell("WATCHDOG=1\nSTATUS=" + status().toUtf8());
}
