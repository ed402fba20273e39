#include "jobqueue.h"

#include "backgroundjob.h"

#include <algorithm>

namespace {

void removeEnded(QList<QPointer<BackgroundJob>> &jobs)
{
    const auto hasEnded = [](const QPointer<BackgroundJob> &job) {
        return !job || job->isFinished();
    };
    jobs.erase(std::remove_if(jobs.begin(), jobs.end(), hasEnded), jobs.end());
}

} // namespace

void JobQueue::add(BackgroundJob *job)
{
    queued.append(job);
    watch(job);
    startNext();
}

void JobQueue::addNow(BackgroundJob *job)
{
    immediate.append(job);
    watch(job);
    job->start();
}

void JobQueue::watch(BackgroundJob *job)
{
    connect(job, &BackgroundJob::finished, this, &JobQueue::startNext);
    // Its pointers are null by then.
    connect(job, &QObject::destroyed, this, &JobQueue::startNext, Qt::QueuedConnection);
    emit jobAdded(job);
}

void JobQueue::startNext()
{
    removeEnded(queued);
    removeEnded(immediate);
    for (int i = 0; i < queued.size() && i < mostAtOnce; ++i) {
        if (queued.at(i) && !queued.at(i)->isStarted())
            queued.at(i)->start();
    }
}

QList<BackgroundJob *> JobQueue::jobs() const
{
    QList<BackgroundJob *> all;
    for (const auto &list : {immediate, queued}) {
        for (const QPointer<BackgroundJob> &job : list) {
            if (job && !job->isFinished())
                all.append(job);
        }
    }
    return all;
}
