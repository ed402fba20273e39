#pragma once

#include <QObject>

#include <csignal>

class QSocketNotifier;

/// Whether a signal came, which is then printed as the end of the work on \a subject.
bool interrupted(const QString &subject);

/// Turns SIGINT and SIGTERM into an event while it lives, so that a command can clean up. One at
/// a time.
class StopSignals : public QObject
{
    Q_OBJECT
public:
    explicit StopSignals(QObject *parent = nullptr);
    ~StopSignals() override;

    /// Whether a signal came, for loops that do not turn the event loop.
    static bool received();

signals:
    void stop();

private:
    int pipeEnds[2] = {-1, -1};
    struct sigaction oldInterrupt = {};
    struct sigaction oldTerminate = {};
};
