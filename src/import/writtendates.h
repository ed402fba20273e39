#pragma once

#include "lineparts.h"
#include "writtenfields.h"

#include <QDate>

/// Dates and times of day as tolerant readers take them, in microseconds. Dates count from
/// 1970-01-01 and are taken as UTC. Every function returns false, and changes nothing, for a text
/// that is no such field.
namespace WrittenFields {

constexpr qint64 microsecondsPerDay = Q_INT64_C(86400000000);

/// "hours:minutes:seconds", with or without a fraction.
template <typename Char> bool readClock(Text<Char> text, qint64 &microseconds, bool &isCut)
{
    constexpr quint32 perHour = 60;
    const std::size_t first = text.find(Char(':'));
    const std::size_t second = first == text.npos ? first : text.find(Char(':'), first + 1);
    quint32 hours = 0;
    quint32 minutes = 0;
    qint64 rest = 0;
    if (second == text.npos || !readNumber(text.substr(0, first), 10, hours) || hours > 23
        || !readNumber(text.substr(first + 1, second - first - 1), 10, minutes) || minutes > 59
        || !readSeconds(text.substr(second + 1), rest, isCut))
        return false;
    microseconds = (qint64(hours) * perHour + minutes) * 60000000 + rest;
    return true;
}

inline bool readDay(quint32 year, quint32 month, quint32 day, qint64 &microseconds)
{
    const QDate date{int(year), int(month), int(day)};
    const qint64 days = QDate(1970, 1, 1).daysTo(date);
    // Records count seconds in 32 bits.
    constexpr qint64 lastDay = std::numeric_limits<qint32>::max() / 86400;
    if (!date.isValid() || days < 0 || days >= lastDay)
        return false;
    microseconds = days * microsecondsPerDay;
    return true;
}

/// "2020-07-08".
template <typename Char> bool readIsoDate(Text<Char> text, qint64 &microseconds)
{
    constexpr std::size_t size = 10;
    quint32 year = 0;
    quint32 month = 0;
    quint32 day = 0;
    return text.size() == size && text[4] == '-' && text[7] == '-'
        && readNumber(text.substr(0, 4), 10, year) && readNumber(text.substr(5, 2), 10, month)
        && readNumber(text.substr(8), 10, day) && readDay(year, month, day, microseconds);
}

/// "2020-12-19 12:04:45.485261", also with a "T" between.
template <typename Char> bool readDateAndClock(Text<Char> text, qint64 &microseconds, bool &isCut)
{
    constexpr std::size_t dateSize = 10;
    qint64 day = 0;
    qint64 sinceMidnight = 0;
    if (text.size() <= dateSize || (text[dateSize] != 'T' && !LineFields::isBlank(text[dateSize]))
        || !readIsoDate(text.substr(0, dateSize), day)
        || !readClock(LineFields::trimmed(text.substr(dateSize + 1)), sinceMidnight, isCut))
        return false;
    microseconds = day + sinceMidnight;
    return true;
}

/// "Jul", "8,", "2020".
template <typename Char>
bool readNamedDate(Text<Char> monthName, Text<Char> day, Text<Char> year, qint64 &microseconds)
{
    constexpr std::string_view months[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                           "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    const auto month = std::find_if(std::begin(months), std::end(months),
                                    [&](auto name) { return LineFields::equals(monthName, name); });
    quint32 dayNumber = 0;
    quint32 yearNumber = 0;
    if (!day.empty() && day.back() == ',')
        day.remove_suffix(1);
    return month != std::end(months) && readNumber(day, 10, dayNumber)
        && readNumber(year, 10, yearNumber)
        && readDay(yearNumber, quint32(month - std::begin(months)) + 1, dayNumber, microseconds);
}

} // namespace WrittenFields
