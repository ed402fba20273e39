#pragma once

#include <QList>
#include <QObject>
#include <QPointer>

class BackgroundJob;

/// Has jobs done, some at a time, in the order in which they came. They belong to whoever made them
/// and may go at any moment.
class JobQueue : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;

    static constexpr int mostAtOnce = 2; ///< of those that wait for their turn

    /// The job begins when it is its turn.
    void add(BackgroundJob *job);
    /// The job begins at once, beside the others.
    void addNow(BackgroundJob *job);

    /// Those that have not ended.
    QList<BackgroundJob *> jobs() const;

signals:
    void jobAdded(BackgroundJob *job);

private:
    void watch(BackgroundJob *job);
    void startNext();

    QList<QPointer<BackgroundJob>> queued; // begun ones included
    QList<QPointer<BackgroundJob>> immediate;
};
