#pragma once

#include <QString>

/// A time in microseconds as seconds with six digits behind the point.
inline QString timeText(qint64 time)
{
    constexpr qint64 microsecondsPerSecond = 1000000;
    constexpr int fractionDigits = 6;
    return QStringLiteral("%1%2.%3")
        .arg(QLatin1String(time < 0 ? "-" : ""))
        .arg(qAbs(time) / microsecondsPerSecond)
        .arg(qAbs(time) % microsecondsPerSecond, fractionDigits, 10, QLatin1Char('0'));
}
