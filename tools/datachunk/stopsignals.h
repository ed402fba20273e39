#pragma once

#include <QObject>

#include <csignal>
#include <vector>

/// Whether a signal came, which is then printed as the end of the work on \a subject.
bool interrupted(const QString &subject);

/// Turns the signals that ask a program to end into an event while it lives, so that a command can
/// clean up: SIGINT, SIGTERM, SIGHUP, SIGQUIT and SIGXFSZ. One of it lives as long as the program
/// works.
class StopSignals : public QObject
{
    Q_OBJECT
public:
    StopSignals();
    ~StopSignals() override;

    /// Whether a signal came, for loops that do not turn the event loop.
    static bool received();

    /// Has \a function called when a signal comes, or soon when one came already, as long as
    /// \a context lives.
    template <typename Function> static void whenStopped(QObject *context, Function function)
    {
        QObject::connect(instance, &StopSignals::stop, context, function);
        if (received())
            QMetaObject::invokeMethod(context, function, Qt::QueuedConnection);
    }

signals:
    void stop();

private:
    struct Handled
    {
        int signal;
        struct sigaction before;
    };

    void handle(int signal);

    static StopSignals *instance;
    int pipeEnds[2] = {-1, -1};
    std::vector<Handled> handled;
};
