#include "timeaxis.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QLocale>

#include <algorithm>
#include <cmath>

namespace {

constexpr qint64 second = 1000000;
constexpr qint64 minute = 60 * second;
constexpr qint64 hour = 60 * minute;
constexpr qint64 day = 24 * hour;

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(TimeAxis)
};

// The least round length of time that is not below `least`.
qint64 roundStep(double least)
{
    for (qint64 power = 1; power <= second; power *= 10) {
        for (const qint64 step : {power, 2 * power, 5 * power}) {
            if (double(step) >= least && step <= 10 * second)
                return step;
        }
    }
    for (const qint64 step :
         {10 * second, 20 * second, 30 * second, minute, 2 * minute, 5 * minute, 10 * minute,
          20 * minute, 30 * minute, hour, 2 * hour, 3 * hour, 6 * hour, 12 * hour, day}) {
        if (double(step) >= least)
            return step;
    }
    return qint64(std::ceil(least / double(day))) * day;
}

int digitsOf(qint64 step)
{
    int digits = 0;
    for (qint64 unit = second; unit > 1 && step % unit != 0; unit /= 10)
        ++digits;
    return digits;
}

QString clockText(qint64 time, qint64 step)
{
    const QDateTime moment = QDateTime::fromMSecsSinceEpoch(time / 1000);
    if (step >= day)
        return QLocale().toString(moment.date(), QLocale::ShortFormat);
    if (step % minute == 0)
        return moment.toString(QStringLiteral("HH:mm"));
    return moment.toString(step % second == 0 ? QStringLiteral("HH:mm:ss")
                                              : QStringLiteral("HH:mm:ss.zzz"));
}

} // namespace

QString TimeAxis::text(qint64 time, qint64 start, qint64 step, bool isClock)
{
    if (isClock)
        return clockText(time, step);
    const qint64 since = time - start;
    const int digits = digitsOf(step);
    if (std::abs(since) < 2 * minute || digits > 0)
        return Texts::tr("%1 s").arg(QLocale().toString(double(since) / second, 'f', digits));
    const qint64 seconds = since / second;
    const auto twoDigits = [](qint64 value) {
        return QStringLiteral("%1").arg(std::abs(value), 2, 10, QLatin1Char('0'));
    };
    const QString rest = twoDigits(seconds / 60 % 60) + QLatin1Char(':') + twoDigits(seconds % 60);
    return QStringLiteral("%1:%2").arg(seconds / 3600).arg(rest);
}

QVector<TimeAxis::Label> TimeAxis::labels(qint64 first, qint64 last, qint64 start, int most,
                                          bool isClock)
{
    QVector<Label> labels;
    if (last <= first || most < 1)
        return labels;
    const qint64 step = roundStep(double(last - first) / most);
    // Days begin where the user is.
    const qint64 offset =
        isClock ? -second * QDateTime::fromMSecsSinceEpoch(first / 1000).offsetFromUtc() : start;
    const qint64 steps = qint64(std::ceil(double(first - offset) / double(step)));
    for (qint64 time = offset + steps * step; time <= last; time += step)
        labels.append({time, text(time, start, step, isClock)});
    return labels;
}
