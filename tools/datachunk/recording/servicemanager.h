#pragma once

#include <QObject>
#include <QTimer>

#include <functional>

/// Tells the service manager that has started the program, systemd, how it goes on. Does nothing
/// where there is none, or the program was built without the manager's library.
class ServiceManager : public QObject
{
public:
    /// \a status is asked for the line that shows the state, every few seconds.
    explicit ServiceManager(std::function<QString()> status);

    /// The work has begun. From now on the manager is told that the event loop turns, as often as
    /// its watchdog wants.
    void tellReady();
    /// The program does what it was asked for by a signal; tellReady() follows.
    void tellReloading();
    void tellStopping();
    /// Keeps the watchdog quiet during work that does not turn the event loop.
    void tellAlive();

private:
    const std::function<QString()> status;
    QTimer timer;
};
