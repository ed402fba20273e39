#pragma once

#include "messagesink.h"

#include <QMutex>

#include <atomic>
#include <memory>

/// What a bus line shares with the thread that receives for it: the way to the recording, and the
/// counts. Any thread.
class LineFeed
{
public:
    explicit LineFeed(std::shared_ptr<MessageSink> sink);

    /// Once closed, nothing is taken until it is opened again.
    void open();
    void close();

    void add(const std::vector<CAN::CanRxMessage> &messages);
    void addUnreadable(quint64 count) { unreadableCount += count; }

    quint64 taken() const { return takenCount; }
    /// What came, and was no message.
    quint64 unreadable() const { return unreadableCount; }

private:
    const std::shared_ptr<MessageSink> sink;
    QMutex mutex;
    bool isOpen = false;
    std::atomic<quint64> takenCount{0};
    std::atomic<quint64> unreadableCount{0};
};
