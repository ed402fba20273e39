#pragma once

#include "framekitglobal.h"

#include <QTime>

/// The time of day as a record's time stamp. An invalid QTime gives 0 s and 0 µs.
class FRAMEKIT_EXPORT CanTimeStamp
{
public:
    /// Milliseconds of \a time become microseconds.
    explicit CanTimeStamp(const QTime &time);

    /// Whole seconds since midnight.
    qint32 seconds() const;
    /// Fraction of the second in microseconds, a multiple of 1000.
    qint32 microseconds() const;

private:
    qint32 millisecondsOfDay;
};
