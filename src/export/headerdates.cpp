#include "headerdates.h"

#include <QDateTime>

namespace {

QDateTime dateOf(qint64 microseconds)
{
    return QDateTime::fromMSecsSinceEpoch(microseconds / 1000, Qt::UTC);
}

} // namespace

// The names of QDate may be those of the locale.
QByteArray ascDate(qint64 microseconds)
{
    static constexpr const char *days[] = {"Mon", "Tue", "Wed", "Thu", "Fri", "Sat", "Sun"};
    static constexpr const char *months[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                             "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    const QDateTime date = dateOf(microseconds);
    const QDate day = date.date();
    const int hour = date.time().hour();
    return QByteArray(days[day.dayOfWeek() - 1]) + ' ' + months[day.month() - 1] + ' '
        + QByteArray::number(day.day()) + ' '
        + QByteArray::number(hour % 12 == 0 ? 12 : hour % 12).rightJustified(2, '0')
        + date.time().toString(QStringLiteral(":mm:ss.zzz")).toLatin1()
        + (hour < 12 ? " am " : " pm ") + QByteArray::number(day.year());
}

QByteArray plainDate(qint64 microseconds)
{
    return dateOf(microseconds).toString(QStringLiteral("yyyy-MM-dd hh:mm:ss.zzz")).toLatin1();
}

QByteArray dayNumber(qint64 microseconds)
{
    constexpr qint64 perDay = 86400000;
    constexpr qint64 parts = 10000000000; // a hundredth of a millisecond, nearly
    constexpr int digits = 10;
    constexpr qint64 daysUntil1970 = 25569;
    const qint64 milliseconds = microseconds / 1000;
    const qint64 fraction = (milliseconds % perDay * parts + perDay / 2) / perDay;
    return QByteArray::number(daysUntil1970 + milliseconds / perDay) + '.'
        + QByteArray::number(fraction).rightJustified(digits, '0');
}
