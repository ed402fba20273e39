#include "microseconds.h"

#include <QDateTime>

#include <cmath>
#include <cstdlib>

namespace {

constexpr qint64 perSecond = 1000000;
constexpr qint64 perMillisecond = 1000;
constexpr int digits = 6;

// Times above this are seconds since 1970: it is in the year 1973.
constexpr qint64 leastSince1970 = Q_INT64_C(100000000000000);

} // namespace

QString secondsText(qint64 microseconds)
{
    return QStringLiteral("%1%2.%3")
        .arg(microseconds < 0 ? QStringLiteral("-") : QString())
        .arg(std::llabs(microseconds / perSecond))
        .arg(std::llabs(microseconds % perSecond), digits, 10, QLatin1Char('0'));
}

// A double has not as many digits as there may be.
qint64 microsecondsOf(const QString &seconds, bool &isTime)
{
    const QString text = seconds.trimmed();
    const auto point = text.indexOf(QLatin1Char('.'));
    const QString whole = point < 0 ? text : text.left(point);
    const QString rest = point < 0 ? QString() : text.mid(point + 1);
    const qint64 part = (rest + QStringLiteral("000000")).left(digits).toLongLong(&isTime);
    isTime = isTime && part >= 0;
    bool isWhole = false;
    const qint64 count = whole.toLongLong(&isWhole);
    constexpr qint64 mostSeconds = Q_INT64_C(9000000000000);
    isTime = isTime && isWhole && std::llabs(count) < mostSeconds;
    if (!isTime)
        return 0;
    return count * perSecond + (whole.startsWith(QLatin1Char('-')) ? -part : part);
}

QString momentText(qint64 microseconds)
{
    if (microseconds < leastSince1970)
        return secondsText(microseconds);
    return QDateTime::fromMSecsSinceEpoch(microseconds / perMillisecond)
        .toString(QStringLiteral("yyyy-MM-dd HH:mm:ss.zzz"));
}
