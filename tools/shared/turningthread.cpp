#include "turningthread.h"

#include <chrono>
#include <system_error>

TurningThread::TurningThread(Turn turn) : turn(std::move(turn)) { }

TurningThread::~TurningThread()
{
    {
        const std::lock_guard<std::mutex> locker(mutex);
        isEnding = true;
    }
    changed.notify_all();
    if (thread.joinable())
        thread.join();
}

bool TurningThread::setRunning(bool on)
{
    const std::lock_guard<std::mutex> locker(mutex);
    if (isRunning == on)
        return true;
    if (on && !thread.joinable() && !start())
        return false;
    isRunning = on;
    isWoken = true;
    changed.notify_all();
    return true;
}

bool TurningThread::start()
{
    try {
        thread = std::thread([this] { run(); });
        return true;
    } catch (const std::system_error &) {
        return false;
    }
}

void TurningThread::wake()
{
    const std::lock_guard<std::mutex> locker(mutex);
    isWoken = true;
    changed.notify_all();
}

bool TurningThread::isWanted()
{
    const std::lock_guard<std::mutex> locker(mutex);
    return isRunning && !isEnding;
}

void TurningThread::rest(std::unique_lock<std::mutex> &locker, int milliseconds)
{
    const auto isDue = [this] { return isEnding || isWoken; };
    if (milliseconds < 0)
        changed.wait(locker, isDue);
    else
        changed.wait_for(locker, std::chrono::milliseconds(milliseconds), isDue);
}

void TurningThread::run()
{
    std::unique_lock<std::mutex> locker(mutex);
    while (!isEnding) {
        isWoken = false;
        int pause = -1;
        if (isRunning) {
            locker.unlock();
            pause = turn([this] { return isWanted(); });
            locker.lock();
        }
        rest(locker, pause);
    }
}
