#pragma once

#include "canrxmessage.h"

#include <chrono>

/// Microseconds since 1970, by the clock on the wall.
inline qint64 wallTimeNow()
{
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::microseconds>(now).count();
}

/// \a time is in microseconds and not negative.
inline void setTime(CAN::CanRxMessage &message, qint64 time)
{
    constexpr qint64 microsecondsPerSecond = 1000000;
    message.seconds = qint32(time / microsecondsPerSecond);
    message.microseconds = qint32(time % microsecondsPerSecond);
}
