#include "inputthread.h"

#include <system_error>

namespace {

constexpr std::size_t mostWaiting = 6;

} // namespace

InputThread::InputThread(TraceInput &input, const Selection &selection, std::size_t blockSize)
    : input(input), selected(selection), blockSize(blockSize)
{
}

InputThread::~InputThread()
{
    {
        const std::lock_guard<std::mutex> lock(mutex);
        isClosed = true;
    }
    changed.notify_all();
    if (thread.joinable())
        thread.join();
}

bool InputThread::start()
{
    try {
        thread = std::thread([this] { run(); });
    } catch (const std::system_error &) {
        return false;
    }
    return true;
}

void InputThread::run()
{
    const auto result =
        selected.forEachIn(input, [this](quint64, const TraceItem &item) { return add(item); });
    handOn();
    {
        const std::lock_guard<std::mutex> lock(mutex);
        outcome = result;
        isOver = true;
    }
    changed.notify_all();
}

bool InputThread::add(const TraceItem &item)
{
    if (filling.messages.empty())
        filling.messages.reserve(blockSize);
    filling.add(item.message);
    filling.addNote(item.note);
    filling.addBookmark(item.bookmark);
    return !filling.isFull(blockSize) || handOn();
}

// False when nobody wants any more.
bool InputThread::handOn()
{
    if (filling.messages.empty())
        return true;
    std::unique_lock<std::mutex> lock(mutex);
    changed.wait(lock, [this] { return isClosed || waiting.size() < mostWaiting; });
    if (isClosed)
        return false;
    waiting.push_back(std::move(filling));
    filling = {};
    lock.unlock();
    changed.notify_all();
    return true;
}

bool InputThread::next(MessageBlock &block)
{
    std::unique_lock<std::mutex> lock(mutex);
    changed.wait(lock, [this] { return isOver || !waiting.empty(); });
    if (waiting.empty())
        return false;
    block = std::move(waiting.front());
    waiting.pop_front();
    lock.unlock();
    changed.notify_all();
    return true;
}
