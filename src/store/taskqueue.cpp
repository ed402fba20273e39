#include "taskqueue.h"

#include <QMutexLocker>

#include <utility>

bool startAgain(QThread &thread, QThread::Priority priority)
{
    // An earlier run may still be on its way out.
    thread.wait();
    thread.start(priority);
    return thread.isRunning() || thread.isFinished();
}

class TaskQueue::Thread : public QThread
{
public:
    explicit Thread(TaskQueue &queue) : queue(queue) { }

private:
    void run() override { queue.work(); }

    TaskQueue &queue;
};

TaskQueue::TaskQueue() : thread(std::make_unique<Thread>(*this)) { }

TaskQueue::~TaskQueue()
{
    stop();
}

void TaskQueue::run(std::function<void()> task)
{
    {
        const QMutexLocker locker(&mutex);
        if (stopped)
            return;
        waiting.push_back(std::move(task));
        if (std::exchange(working, true))
            return;
    }
    const QMutexLocker startLocker(&startMutex);
    if (!startAgain(*thread))
        work();
}

void TaskQueue::work()
{
    QMutexLocker locker(&mutex);
    while (!waiting.empty()) {
        const std::function<void()> task = std::move(waiting.front());
        waiting.pop_front();
        locker.unlock();
        task();
        locker.relock();
    }
    working = false;
}

void TaskQueue::stop()
{
    {
        const QMutexLocker locker(&mutex);
        stopped = true;
        waiting.clear();
    }
    const QMutexLocker startLocker(&startMutex);
    thread->wait();
}
