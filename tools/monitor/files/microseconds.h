#pragma once

/// \file
/// Times of messages as texts.

#include <QString>

/// In seconds, with six digits behind the point.
QString secondsText(qint64 microseconds);
/// The same backwards; \a isTime is false where it is none.
qint64 microsecondsOf(const QString &seconds, bool &isTime);
/// As a date where it counts from 1970, else in seconds.
QString momentText(qint64 microseconds);
