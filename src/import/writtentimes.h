#pragma once

#include "linenumbers.h"
#include "lineparts.h"
#include "writtenfields.h"

#include <QDate>

namespace WrittenFields {

/// Sets the time of a record, which has room for 31 bits of seconds and their sign; false for one
/// that is further away. Microseconds count forward from the second, also before 0.
inline bool trySetTime(CAN::CanRxMessage &message, qint64 microseconds)
{
    constexpr qint64 million = 1000000;
    constexpr qint64 limit = qint64(std::numeric_limits<qint32>::max()) * million;
    if (microseconds >= limit + million || microseconds < -limit)
        return false;
    const qint64 fraction = (microseconds % million + million) % million;
    message.seconds = qint32((microseconds - fraction) / million);
    message.microseconds = qint32(fraction);
    return true;
}

/// "12:04:45.485261" in microseconds since midnight; \a isCut as for readSeconds().
template <typename Char> bool readClock(Text<Char> text, qint64 &microseconds, bool &isCut)
{
    constexpr std::size_t secondsStart = 6;
    constexpr qint64 minute = 60000000;
    quint32 hours = 0;
    quint32 minutes = 0;
    qint64 seconds = 0;
    if (!LineFields::hasLayout(text.substr(0, secondsStart), "00:00:")
        || !readNumber(text.substr(0, 2), 10, hours) || hours > 23
        || !readNumber(text.substr(3, 2), 10, minutes) || minutes > 59
        || !readSeconds(text.substr(secondsStart), seconds, isCut) || seconds >= minute)
        return false;
    microseconds = qint64(hours * 60 + minutes) * minute + seconds;
    return true;
}

/// "2020-12-19 12:04:45.485261", also with a "T" between, as UTC in microseconds since 1970.
template <typename Char> bool readDateAndClock(Text<Char> text, qint64 &microseconds, bool &isCut)
{
    constexpr std::size_t dateSize = 10;
    constexpr qint64 day = qint64(24) * 3600 * 1000000;
    constexpr qint64 firstJulianDay = 2440588;
    quint32 year = 0;
    quint32 month = 0;
    quint32 dayOfMonth = 0;
    if (text.size() <= dateSize || !LineFields::hasLayout(text.substr(0, dateSize), "0000-00-00")
        || !readNumber(text.substr(0, 4), 10, year) || !readNumber(text.substr(5, 2), 10, month)
        || !readNumber(text.substr(8, 2), 10, dayOfMonth))
        return false;
    const QDate date{int(year), int(month), int(dayOfMonth)};
    const bool isApart = text[dateSize] == 'T' || LineFields::isBlank(text[dateSize]);
    qint64 sinceMidnight = 0;
    if (!date.isValid() || year < 1970 || !isApart
        || !readClock(LineFields::trimmed(text.substr(dateSize + 1)), sinceMidnight, isCut))
        return false;
    microseconds = (date.toJulianDay() - firstJulianDay) * day + sinceMidnight;
    return true;
}

} // namespace WrittenFields
