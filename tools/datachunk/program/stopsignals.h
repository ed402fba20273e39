#pragma once

#include <QObject>

#include <csignal>
#include <vector>

/// Whether a signal came, which is then printed, once, as the end of the work on \a subject.
/// Any thread may ask.
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

    /// Has \a function called for each SIGHUP, as long as \a context lives, in place of an end.
    /// False, and SIGHUP still ends the program, where it may come from a terminal that is closed:
    /// there has to be none, or the program was told to ignore the signal, as "nohup" does.
    template <typename Function> static bool whenHungUp(QObject *context, Function function)
    {
        if (!instance->takeHangUps())
            return false;
        QObject::connect(instance, &StopSignals::hangUp, context, function);
        return true;
    }

signals:
    void stop();
    void hangUp();

private:
    struct Handled
    {
        int signal;
        struct sigaction before;
    };

    void handle(int signal);
    bool takeHangUps();
    void readPipe();

    static StopSignals *instance;
    int pipeEnds[2] = {-1, -1};
    std::vector<Handled> handled;
};
