#pragma once

#include <QByteArray>

/// The dates in headers, from microseconds since 1970 in whole milliseconds, in UTC.

/// "Thu Apr 28 10:44:52.480 am 2022": on a clock of twelve hours, which English readers take.
QByteArray ascDate(qint64 microseconds);
/// "2022-04-28 10:44:52.480"
QByteArray plainDate(qint64 microseconds);
/// "44679.4478296296": days since 1899-12-30, as spreadsheets count them.
QByteArray dayNumber(qint64 microseconds);
