#include "backgroundthread.h"

#include "locks.h"

#include <system_error>
#include <thread>
#include <utility>

class BackgroundThread::State : public std::enable_shared_from_this<State>
{
public:
    explicit State(std::function<void()> work) : work(std::move(work)) { }

    bool start() EXCLUDES(mutex);
    bool wake() EXCLUDES(mutex);
    bool stop(QDeadlineTimer patience) EXCLUDES(mutex);

private:
    bool startLocked() REQUIRES(mutex);
    void run() EXCLUDES(mutex);
    bool waitUntilDue() EXCLUDES(mutex);
    bool waitForEndLocked(QDeadlineTimer patience) REQUIRES(mutex);

    const std::function<void()> work;

    Mutex mutex;
    QWaitCondition changed;
    std::thread thread GUARDED_BY(mutex);
    bool isDue GUARDED_BY(mutex) = false;
    bool isStopping GUARDED_BY(mutex) = false;
    bool hasEnded GUARDED_BY(mutex) = false;
};

bool BackgroundThread::State::start()
{
    const MutexLock locker(mutex);
    return startLocked();
}

bool BackgroundThread::State::startLocked()
{
    try {
        thread = std::thread([self = shared_from_this()] { self->run(); });
    } catch (const std::system_error &) {
        return false;
    }
    return true;
}

void BackgroundThread::State::run()
{
    while (waitUntilDue())
        work();
    const MutexLock locker(mutex);
    hasEnded = true;
    changed.wakeAll();
}

// False when the thread is to end.
bool BackgroundThread::State::waitUntilDue()
{
    const MutexLock locker(mutex);
    while (!isDue && !isStopping)
        mutex.waitFor(changed);
    isDue = false;
    return !isStopping;
}

bool BackgroundThread::State::wake()
{
    const MutexLock locker(mutex);
    if (isStopping)
        return true;
    if (!thread.joinable() && !startLocked())
        return false;
    isDue = true;
    changed.wakeAll();
    return true;
}

bool BackgroundThread::State::waitForEndLocked(QDeadlineTimer patience)
{
    while (!hasEnded && mutex.waitFor(changed, patience)) { }
    return hasEnded;
}

bool BackgroundThread::State::stop(QDeadlineTimer patience)
{
    std::thread ended;
    {
        const MutexLock locker(mutex);
        isStopping = true;
        changed.wakeAll();
        if (!thread.joinable())
            return true;
        const bool stopsItself = thread.get_id() == std::this_thread::get_id();
        if (stopsItself || !waitForEndLocked(patience)) {
            thread.detach();
            return stopsItself;
        }
        ended.swap(thread);
    }
    ended.join();
    return true;
}

BackgroundThread::BackgroundThread(std::function<void()> work)
    : state(std::make_shared<State>(std::move(work)))
{
    state->start();
}

BackgroundThread::~BackgroundThread()
{
    stop(std::chrono::milliseconds::max());
}

bool BackgroundThread::wake()
{
    return state->wake();
}

bool BackgroundThread::stop(std::chrono::milliseconds patience)
{
    return state->stop(QDeadlineTimer(patience));
}
