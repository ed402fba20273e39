#include "backgroundthread.h"

#include <condition_variable>
#include <mutex>
#include <system_error>
#include <utility>

struct BackgroundThread::State
{
    explicit State(std::function<void()> work) : work(std::move(work)) { }

    const std::function<void()> work;

    // Guarded by mutex.
    std::mutex mutex;
    std::condition_variable changed;
    bool isDue = false;
    bool isStopping = false;
    bool hasEnded = false;
};

BackgroundThread::BackgroundThread(std::function<void()> work)
    : state(std::make_shared<State>(std::move(work)))
{
    const std::lock_guard<std::mutex> lock(state->mutex);
    startLocked();
}

BackgroundThread::~BackgroundThread()
{
    stop(std::chrono::milliseconds::max());
}

bool BackgroundThread::startLocked()
{
    try {
        thread = std::thread([state = state] { run(state); });
    } catch (const std::system_error &) {
        return false;
    }
    return true;
}

void BackgroundThread::run(const std::shared_ptr<State> &state)
{
    std::unique_lock<std::mutex> lock(state->mutex);
    for (;;) {
        state->changed.wait(lock, [&] { return state->isDue || state->isStopping; });
        if (state->isStopping)
            break;
        state->isDue = false;
        lock.unlock();
        state->work();
        lock.lock();
    }
    state->hasEnded = true;
    state->changed.notify_all();
}

bool BackgroundThread::wake()
{
    const std::lock_guard<std::mutex> lock(state->mutex);
    if (state->isStopping)
        return true;
    if (!thread.joinable() && !startLocked())
        return false;
    state->isDue = true;
    state->changed.notify_all();
    return true;
}

bool BackgroundThread::stop(std::chrono::milliseconds patience)
{
    std::unique_lock<std::mutex> lock(state->mutex);
    state->isStopping = true;
    state->changed.notify_all();
    if (!thread.joinable())
        return true;
    if (thread.get_id() == std::this_thread::get_id()) {
        thread.detach();
        return true;
    }
    const auto hasEnded = [this] { return state->hasEnded; };
    if (patience == std::chrono::milliseconds::max())
        state->changed.wait(lock, hasEnded);
    else if (!state->changed.wait_for(lock, patience, hasEnded))
        return thread.detach(), false;
    lock.unlock();
    thread.join();
    return true;
}
