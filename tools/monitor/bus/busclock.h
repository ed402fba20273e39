#pragma once

#include "canframe.h"
#include "messagetime.h"

#include <cstdlib>

/// Brings the time stamps of an interface to the clock on the wall, so that several go together:
/// some count from when the driver was loaded, and some have none.
class BusClock
{
public:
    /// \a now is what the clock on the wall shows, in microseconds.
    void set(CAN::CanRxMessage &message, qint64 now)
    {
        constexpr qint64 minute = 60 * 1000000LL;
        const qint64 time = CAN::timeOf(message);
        if (time <= 0) {
            setTime(message, now);
            return;
        }
        if (!isKnown)
            offset = std::llabs(now - time) > minute ? now - time : 0;
        isKnown = true;
        setTime(message, time + offset);
    }

private:
    bool isKnown = false;
    qint64 offset = 0;
};
