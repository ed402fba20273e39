#include "jumptarget.h"

#include "messagetext.h"

#include <QDateTime>
#include <QRegularExpression>

namespace {

constexpr qint64 million = 1000000;

qint64 microsecondsOf(const QString &digits)
{
    return digits.left(6).leftJustified(6, QLatin1Char('0')).toLongLong();
}

std::optional<qint64> seconds(const QString &text)
{
    static const QRegularExpression form(
        QStringLiteral("^([+-]?)(\\d{1,12})(?:[.,](\\d*))?\\s*s?$"));
    const auto match = form.match(text);
    if (!match.hasMatch())
        return {};
    const qint64 size =
        match.captured(2).toLongLong() * million + microsecondsOf(match.captured(3));
    return match.captured(1) == QLatin1String("-") ? -size : size;
}

// Without a date it is that day's of \a near, or counts from the start where a trace has none.
std::optional<qint64> timeOfDay(const QString &text, const JumpTarget::Times &times)
{
    static const QRegularExpression form(QStringLiteral(
        "^(?:(\\d{4}-\\d\\d?-\\d\\d?)[ T]+)?(\\d{1,3}):(\\d\\d?)(?::(\\d\\d?)(?:[.,](\\d*))?)?$"));
    const auto match = form.match(text);
    if (!match.hasMatch())
        return {};
    const int hours = match.captured(2).toInt();
    const int minutes = match.captured(3).toInt();
    const int second = match.captured(4).toInt();
    const qint64 fraction = microsecondsOf(match.captured(5));
    const bool isDated = MessageText::isDate(times.start);
    if (minutes > 59 || second > 59 || (isDated && hours > 23))
        return {};
    if (!isDated)
        return times.start + (hours * 3600 + minutes * 60 + second) * million + fraction;
    const QDate date = match.captured(1).isEmpty()
        ? QDateTime::fromMSecsSinceEpoch(times.current / 1000).date()
        : QDate::fromString(match.captured(1), QStringLiteral("yyyy-M-d"));
    if (!date.isValid())
        return {};
    const QDateTime whole(date, QTime(hours, minutes, second));
    return whole.toMSecsSinceEpoch() * 1000 + fraction;
}

} // namespace

std::optional<quint32> JumpTarget::number(const QString &text, QString *error)
{
    QString digits = text.simplified();
    digits.remove(QLatin1Char(' ')).remove(QLatin1Char(',')).remove(QLatin1Char('.'));
    bool isNumber = false;
    const quint32 number = digits.toUInt(&isNumber);
    if (isNumber)
        return number;
    *error = tr("A number from 0 to 4294967295 is wanted.");
    return {};
}

std::optional<qint64> JumpTarget::time(const QString &text, const Times &times, QString *error)
{
    const QString written = text.simplified();
    if (const auto clock = timeOfDay(written, times))
        return clock;
    const auto counted = seconds(written);
    if (!counted) {
        *error = tr("This is no time.");
        return {};
    }
    const bool isRelative =
        written.startsWith(QLatin1Char('+')) || written.startsWith(QLatin1Char('-'));
    if (isRelative)
        return times.current + *counted;
    if (times.shown == TraceLook::SinceMark)
        return times.marked + *counted;
    const bool isAbsolute =
        times.shown == TraceLook::Seconds || times.shown == TraceLook::DateAndTime;
    return isAbsolute ? *counted : times.start + *counted;
}

QString JumpTarget::timeText(qint64 moment, const Times &times)
{
    switch (times.shown) {
    case TraceLook::SinceMark:
        return MessageText::seconds(moment - times.marked);
    case TraceLook::DateAndTime:
        return MessageText::moment(moment);
    case TraceLook::Seconds:
        return MessageText::seconds(moment);
    default:
        return MessageText::seconds(moment - times.start);
    }
}

QString JumpTarget::timeHint(const Times &times)
{
    const bool isDated = MessageText::isDate(times.start);
    if (times.shown == TraceLook::DateAndTime && isDated)
        return tr("14:05:09.5, with a date in front if need be; +1.5 or -1.5 from the current "
                  "message");
    return isDated ? tr("12.5 in seconds as shown, 14:05:09 of the day, +1.5 or -1.5 from the "
                        "current message")
                   : tr("12.5 in seconds as shown, 1:02:03 from the start, +1.5 or -1.5 from the "
                        "current message");
}
