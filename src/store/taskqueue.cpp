#include "taskqueue.h"

#include <QMutexLocker>
#include <QWaitCondition>

#include <deque>
#include <utility>

bool startAgain(QThread &thread, QThread::Priority priority)
{
    // An earlier run may still be on its way out.
    thread.wait();
    thread.start(priority);
    return thread.isRunning() || thread.isFinished();
}

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

class TaskQueue::Thread : public QThread
{
public:
    explicit Thread(Tasks &tasks) : tasks(tasks) { }

private:
    void run() override { tasks.work(); }

    Tasks &tasks;
};

TaskQueue::TaskQueue() : tasks(std::make_shared<Tasks>()), thread(std::make_unique<Thread>(*tasks))
{
}

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
        started = startAgain(*thread);
    }
    if (!started)
        ours->work();
}

void TaskQueue::stop()
{
    tasks->stop();
    const QMutexLocker startLocker(&startMutex);
    thread->wait();
}
