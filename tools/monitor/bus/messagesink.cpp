#include "messagesink.h"

#include "recording.h"

void MessageSink::setRecording(Recording *other)
{
    const QWriteLocker locker(&lock);
    recording = other;
}

bool MessageSink::append(const std::vector<CAN::CanRxMessage> &messages)
{
    const QReadLocker locker(&lock);
    if (!recording)
        return false;
    recording->append(messages);
    return true;
}
