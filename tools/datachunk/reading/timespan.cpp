#include "timespan.h"

#include "timetext.h"

#include <QDateTime>
#include <QRegularExpression>

namespace {

constexpr qint64 perSecond = 1000000;
constexpr qint64 secondsPerDay = 86400;

const QString secondsPattern = QStringLiteral("-?\\d{1,10}(?:\\.\\d{1,6})?");
const QString datePattern = QStringLiteral("(?<date>\\d{4}-\\d\\d-\\d\\d)");
const QString clockPattern =
    QStringLiteral("(?<clock>\\d{1,2}:\\d\\d:\\d\\d)(?:\\.(?<fraction>\\d{1,6}))?");

bool matches(const QString &text, const QString &pattern, QRegularExpressionMatch &match)
{
    match = QRegularExpression(QRegularExpression::anchoredPattern(pattern)).match(text);
    return match.hasMatch();
}

std::optional<qint64> microsecondsOf(const QRegularExpressionMatch &match)
{
    constexpr int fractionDigits = 6;
    const QString date = match.captured(QStringLiteral("date"));
    const QString clock = match.captured(QStringLiteral("clock"));
    const QDate day = QDate::fromString(date, Qt::ISODate);
    const QTime time = QTime::fromString(clock, QStringLiteral("H:mm:ss"));
    if ((!date.isEmpty() && !day.isValid()) || (!clock.isEmpty() && !time.isValid()))
        return {};
    const qint64 days = date.isEmpty() ? 0 : QDate(1970, 1, 1).daysTo(day);
    const qint64 seconds = clock.isEmpty() ? 0 : time.msecsSinceStartOfDay() / 1000;
    const QString fraction = match.captured(QStringLiteral("fraction"));
    return (days * secondsPerDay + seconds) * perSecond
        + fraction.leftJustified(fractionDigits, QLatin1Char('0')).toLongLong();
}

// As seconds, as expressions have them.
std::optional<QString> endOf(const QString &text)
{
    QRegularExpressionMatch match;
    if (text.isEmpty() || matches(text, secondsPattern, match))
        return text;
    if (!matches(text, datePattern + QStringLiteral("(?:[T ]%1)?Z?").arg(clockPattern), match)
        && !matches(text, clockPattern, match))
        return {};
    const auto time = microsecondsOf(match);
    return time ? std::optional<QString>(timeText(*time)) : std::nullopt;
}

} // namespace

std::optional<QString> timeSpanTest(const QString &text)
{
    const QString parting = QStringLiteral("..");
    const int at = text.indexOf(parting);
    if (at < 0 || text.size() == parting.size())
        return {};
    const auto begin = endOf(text.left(at).trimmed());
    const auto end = endOf(text.mid(at + parting.size()).trimmed());
    if (!begin || !end || (begin->isEmpty() && end->isEmpty()))
        return {};
    return QStringLiteral("time in ") + *begin + parting + *end;
}
