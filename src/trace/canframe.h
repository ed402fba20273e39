#pragma once

#include "canrxmessage.h"

/// Records of CAN messages, and what this library knows about them beyond the frame library.
namespace CAN {

/// Identifier of a record that stands for an error frame.
constexpr quint32 errorFrameId = 0xFFFF00EF;

/// Number of payload bytes that a record has room for, the most that CAN FD carries.
constexpr int maxDataBytes = int(sizeof(CanRxMessage::data));

/// The payload length that is safe to read: `length` limited to 0..64.
inline int payloadSize(const CanRxMessage &message)
{
    return qBound(0, int(message.length), maxDataBytes);
}

/// The time of a message in microseconds.
inline qint64 timeOf(const CanRxMessage &message)
{
    constexpr qint64 microsecondsPerSecond = 1000000;
    return message.seconds * microsecondsPerSecond + message.microseconds;
}

} // namespace CAN
