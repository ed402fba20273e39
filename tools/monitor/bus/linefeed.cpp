#include "linefeed.h"

#include <utility>

LineFeed::LineFeed(std::shared_ptr<MessageSink> sink) : sink(std::move(sink)) { }

void LineFeed::open()
{
    const QMutexLocker locker(&mutex);
    isOpen = true;
}

void LineFeed::close()
{
    const QMutexLocker locker(&mutex);
    isOpen = false;
}

void LineFeed::add(const std::vector<CAN::CanRxMessage> &messages)
{
    const QMutexLocker locker(&mutex);
    if (isOpen && sink->append(messages))
        takenCount += messages.size();
}
