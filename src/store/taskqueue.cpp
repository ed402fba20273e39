#include "taskqueue.h"

#include <QMutexLocker>
#include <QWaitCondition>

#include <deque>
#include <utility>

struct TaskQueue::Tasks
{
    /// False when somebody works already, or nobody shall any more.
    bool add(std::function<void()> task)
    {
        const QMutexLocker locker(&mutex);
        if (stopped)
            return false;
        waiting.push_back(std::move(task));
        return !std::exchange(working, true);
    }

    void work()
    {
        QMutexLocker locker(&mutex);
        worker = QThread::currentThreadId();
        while (!waiting.empty()) {
            const std::function<void()> task = std::move(waiting.front());
            waiting.pop_front();
            locker.unlock();
            task();
            locker.relock();
        }
        working = false;
        worker = nullptr;
        ended.wakeAll();
    }

    void stop()
    {
        QMutexLocker locker(&mutex);
        stopped = true;
        waiting.clear();
        while (working && worker != QThread::currentThreadId())
            ended.wait(&mutex);
    }

    QMutex mutex;
    QWaitCondition ended;
    std::deque<std::function<void()>> waiting;
    Qt::HANDLE worker = nullptr; // whoever runs work(), while that is so
    bool working = false;        // whether somebody does, or is about to
    bool stopped = false;
};

TaskQueue::TaskQueue() : tasks(std::make_shared<Tasks>()), thread([this] { tasks->work(); }) { }

TaskQueue::~TaskQueue()
{
    stop();
}

void TaskQueue::run(std::function<void()> task)
{
    const std::shared_ptr<Tasks> ours = tasks;
    if (!ours->add(std::move(task)))
        return;
    bool started = false;
    {
        const QMutexLocker startLocker(&startMutex);
        started = thread.startAgain();
    }
    if (!started)
        ours->work();
}

void TaskQueue::stop()
{
    tasks->stop();
    const QMutexLocker startLocker(&startMutex);
    thread.wait();
}
