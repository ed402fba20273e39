#pragma once

#include "notices.h"

#include <QObject>

#include <atomic>
#include <functional>
#include <thread>

/// How far a job is, and whether it is still wanted. Shared between the job's thread and the
/// window.
struct JobControl
{
    std::atomic<bool> isCancelled{false};
    std::atomic<qint64> done{0};      ///< of the total, in whatever unit
    std::atomic<qint64> total{0};     ///< 0 where nobody knows
    std::atomic<quint64> messages{0}; ///< that have been dealt with
};

/// Work on files that may take long, on a thread of its own. What it tells at the end is a notice;
/// one without text says nothing.
class BackgroundJob : public QObject
{
    Q_OBJECT
public:
    using Work = std::function<Notice(JobControl &control)>;

    /// \a title says what is done, as "Importing a.log". \a work looks at the control often.
    BackgroundJob(const QString &title, Work work, QObject *parent = nullptr);
    /// Cancels, and waits until the work has seen it.
    ~BackgroundJob() override;

    const QString &title() const { return ownTitle; }
    const JobControl &control() const { return ownControl; }

    /// Once only.
    void start();
    bool isStarted() const { return started; }
    bool isFinished() const { return ended; }

    /// finished() follows in any case, at once where the work has not begun.
    void cancel();

signals:
    /// The work has ended; it is the last signal.
    void finished(const Notice &notice);

private:
    void run();
    void finish(const Notice &notice);

    const QString ownTitle;
    const Work work;
    JobControl ownControl;
    bool started = false;
    bool ended = false;
    std::thread thread; // last: it uses the others
};
