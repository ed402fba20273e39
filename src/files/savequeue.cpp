#include "savequeue.h"

#include <QMutexLocker>

#include <climits>
#include <utility>

SaveQueue::SaveQueue(std::function<void(SaveJob &)> run)
    : run(std::move(run)), thread([this] { work(); })
{
}

SaveQueue::~SaveQueue()
{
    resume();
    waitForAll();
    thread.wait();
}

void SaveQueue::add(const SharedSaveJob &job)
{
    const QMutexLocker locker(&mutex);
    waiting.push_back(job);
}

bool SaveQueue::start()
{
    const QMutexLocker startLocker(&startMutex);
    {
        const QMutexLocker locker(&mutex);
        if (working || paused || waiting.empty())
            return true;
        working = true;
    }
    if (thread.startAgain(QThread::LowestPriority))
        return true;
    work();
    return false;
}

bool SaveQueue::takeNext(SharedSaveJob &job)
{
    const QMutexLocker locker(&mutex);
    running.reset();
    ended.wakeAll();
    if (waiting.empty() || paused) {
        working = false;
        return false;
    }
    job = waiting.front();
    waiting.pop_front();
    running = job;
    return true;
}

void SaveQueue::work()
{
    SharedSaveJob job;
    while (takeNext(job)) {
        run(*job);
        job->markFinished();
    }
}

void SaveQueue::pause()
{
    const QMutexLocker locker(&mutex);
    paused = true;
}

void SaveQueue::resume()
{
    {
        const QMutexLocker locker(&mutex);
        paused = false;
    }
    start();
}

void SaveQueue::discard()
{
    const QMutexLocker locker(&mutex);
    for (const SharedSaveJob &job : std::exchange(waiting, {})) {
        job->cancelled = true;
        job->markFinished();
    }
    if (running)
        running->cancelled = true;
}

void SaveQueue::waitForRunning()
{
    QMutexLocker locker(&mutex);
    const SharedSaveJob current = running;
    while (current && running == current)
        ended.wait(&mutex);
}

void SaveQueue::waitFor(const std::function<bool(const SaveJob &)> &isWanted)
{
    std::deque<SharedSaveJob> jobs;
    {
        const QMutexLocker locker(&mutex);
        jobs = waiting;
        if (running)
            jobs.push_front(running);
    }
    for (const SharedSaveJob &job : jobs) {
        if (isWanted(*job))
            job->waitForFinished(ULONG_MAX);
    }
}

void SaveQueue::waitForAll()
{
    waitFor([](const SaveJob &) { return true; });
}
