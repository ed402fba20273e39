#include "pooltasks.h"

#include <QMutex>
#include <QMutexLocker>
#include <QtConcurrent>
#include <QWaitCondition>

#include <utility>

struct PoolTasks::Gate
{
    bool enter()
    {
        const QMutexLocker locker(&mutex);
        if (open)
            ++inside;
        return open;
    }

    void leave()
    {
        const QMutexLocker locker(&mutex);
        --inside;
        left.wakeAll();
    }

    QMutex mutex;
    QWaitCondition left;
    int inside = 0;
    bool open = true;
};

PoolTasks::PoolTasks() : gate(std::make_shared<Gate>()) { }

PoolTasks::~PoolTasks()
{
    stop();
}

void PoolTasks::run(std::function<void()> task)
{
    QtConcurrent::run([gate = gate, task = std::move(task)] {
        if (!gate->enter())
            return;
        task();
        gate->leave();
    });
}

void PoolTasks::stop()
{
    QMutexLocker locker(&gate->mutex);
    gate->open = false;
    while (gate->inside > 0)
        gate->left.wait(&gate->mutex);
}
