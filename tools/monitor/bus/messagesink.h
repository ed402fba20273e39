#pragma once

#include "canrxmessage.h"

#include <QReadWriteLock>

#include <vector>

class Recording;

/// Where the bus lines put what they receive. The recording behind it may be another one at any
/// time, and no message is lost between the two. Any thread.
class MessageSink
{
public:
    /// All messages from now on are for \a recording; null for nobody, and they are not counted.
    /// Once this returns, nobody uses the recording before any more.
    void setRecording(Recording *recording);

    /// False when nobody wants them.
    bool append(const std::vector<CAN::CanRxMessage> &messages);

private:
    QReadWriteLock lock;
    Recording *recording = nullptr;
};
