#pragma once

#include "canrxmessage.h"

/// The time of a message in microseconds.
inline qint64 timeOf(const CAN::CanRxMessage &message)
{
    constexpr qint64 microsecondsPerSecond = 1000000;
    return message.seconds * microsecondsPerSecond + message.microseconds;
}
