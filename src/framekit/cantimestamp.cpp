#include "cantimestamp.h"

CanTimeStamp::CanTimeStamp(const QTime &time)
    : millisecondsOfDay(time.isValid() ? time.msecsSinceStartOfDay() : 0)
{
}

qint32 CanTimeStamp::seconds() const
{
    return millisecondsOfDay / 1000;
}

qint32 CanTimeStamp::microseconds() const
{
    return millisecondsOfDay % 1000 * 1000;
}
