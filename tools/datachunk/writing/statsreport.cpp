#include "statsreport.h"

#include "canframe.h"
#include "jsontext.h"
#include "terminal.h"
#include "timetext.h"

#include <QJsonArray>
#include <QJsonObject>

#include <cmath>

namespace {

using Sum = TraceStatistics::Sum;
using Identifier = TraceStatistics::Identifier;

constexpr int percentile = 99;

// The part of the trace's time that the frames of a line take.
double loadOf(const Sum &line, const Sum &all, const StatsRequest &request)
{
    constexpr double microsecondsPerSecond = 1e6;
    const double seconds = double(line.nominalBits) / double(request.bitrate)
        + double(line.dataBits) / double(request.dataBitrate);
    const double duration = double(all.latest - all.earliest) / microsecondsPerSecond;
    return duration > 0 ? seconds / duration : 0;
}

void printRow(const QString &title, const QString &value)
{
    constexpr int titleWidth = 15;
    writeLine(QStringLiteral("%1 %2").arg(title + QLatin1Char(':'), -titleWidth).arg(value));
}

QString gapsText(const TraceStatistics::Gaps &gaps, const StatsRequest &request)
{
    if (gaps.count == 0)
        return Cli::tr("none over %1 s").arg(timeText(request.longestPause));
    return Cli::tr("%1 over %2 s, the longest of %3 s in front of position %4 (%5)")
        .arg(gaps.count)
        .arg(timeText(request.longestPause), timeText(gaps.longest))
        .arg(gaps.position)
        .arg(timeText(gaps.time));
}

QString lineText(const Sum &line, const Sum &all, const StatsRequest &request)
{
    constexpr double wholePercent = 100;
    QStringList parts{Cli::tr("%1 messages").arg(line.count),
                      Cli::tr("%1 error frames").arg(line.errorFrames)};
    if (request.bitrate > 0)
        parts.append(
            Cli::tr("load %1 %").arg(loadOf(line, all, request) * wholePercent, 0, 'f', 2));
    parts.append(Cli::tr("gaps: %1").arg(gapsText(line.gaps, request)));
    return parts.join(QLatin1String(", "));
}

QString kindText(const Identifier &identifier)
{
    QString text = identifier.extended ? QStringLiteral("ext") : QStringLiteral("std");
    if (identifier.id == CAN::errorFrameId)
        text = QStringLiteral("err");
    if (identifier.fdFrame)
        text += QLatin1String(" fd");
    if (identifier.remote)
        text += QLatin1String(" rtr");
    return text;
}

// Right-aligned columns, but for the last one.
QString columns(const QStringList &cells)
{
    static constexpr int widths[] = {8, 4, 11, 12, 17, 17, 7, 12, 12, 12, 12, 12};
    QString line;
    for (int i = 0; i < cells.size(); ++i)
        line += QStringLiteral("%1 ").arg(cells.at(i), widths[i]);
    return line.chopped(1);
}

QString milliseconds(double microseconds)
{
    constexpr double perMillisecond = 1000;
    return QString::number(microseconds / perMillisecond, 'f', 3);
}

void printIdentifier(const Identifier &identifier)
{
    const bool isError = identifier.id == CAN::errorFrameId;
    const int width = identifier.extended && !isError ? 8 : 3;
    const QString length = identifier.leastLength == identifier.mostLength
        ? QString::number(identifier.mostLength)
        : QStringLiteral("%1-%2").arg(identifier.leastLength).arg(identifier.mostLength);
    QStringList cells{isError
                          ? QStringLiteral("-")
                          : QStringLiteral("%1").arg(identifier.id, width, 16, QLatin1Char('0')),
                      QString::number(identifier.line),
                      kindText(identifier),
                      QString::number(identifier.count),
                      timeText(identifier.first),
                      timeText(identifier.last),
                      length};
    const Periods &periods = identifier.periods;
    const double times[] = {periods.mean(), double(periods.least()), double(periods.most()),
                            periods.percentile(percentile), periods.deviation()};
    for (const double time : times)
        cells.append(periods.count() > 0 ? milliseconds(time) : QStringLiteral("-"));
    writeLine(columns(cells));
}

QJsonObject jsonOf(const TraceStatistics::Gaps &gaps)
{
    QJsonObject object{{QStringLiteral("count"), qint64(gaps.count)}};
    if (gaps.count > 0) {
        object.insert(QStringLiteral("longest"), gaps.longest);
        object.insert(QStringLiteral("position"), qint64(gaps.position));
        object.insert(QStringLiteral("time"), gaps.time);
    }
    return object;
}

QJsonObject jsonOf(const Sum &sum)
{
    return {{QStringLiteral("messages"), qint64(sum.count)},
            {QStringLiteral("errorFrames"), qint64(sum.errorFrames)},
            {QStringLiteral("timesThatFall"), qint64(sum.timesThatFall)},
            {QStringLiteral("gaps"), jsonOf(sum.gaps)}};
}

QJsonArray linesJson(const TraceStatistics &statistics, const StatsRequest &request)
{
    QJsonArray all;
    const auto lines = statistics.lines();
    for (auto line = lines.cbegin(); line != lines.cend(); ++line) {
        QJsonObject object = jsonOf(**line);
        object.insert(QStringLiteral("line"), line.key());
        if (request.bitrate > 0) {
            object.insert(QStringLiteral("bits"), qint64((*line)->nominalBits));
            object.insert(QStringLiteral("dataBits"), qint64((*line)->dataBits));
            object.insert(QStringLiteral("load"), loadOf(**line, statistics.all(), request));
        }
        all.append(object);
    }
    return all;
}

QJsonObject jsonOf(const Identifier &identifier)
{
    QJsonObject object{{QStringLiteral("id"), qint64(identifier.id)},
                       {QStringLiteral("line"), identifier.line},
                       {QStringLiteral("extended"), identifier.extended},
                       {QStringLiteral("remote"), identifier.remote},
                       {QStringLiteral("fd"), identifier.fdFrame},
                       {QStringLiteral("error"), identifier.id == CAN::errorFrameId},
                       {QStringLiteral("count"), qint64(identifier.count)},
                       {QStringLiteral("first"), identifier.first},
                       {QStringLiteral("last"), identifier.last},
                       {QStringLiteral("leastLength"), identifier.leastLength},
                       {QStringLiteral("mostLength"), identifier.mostLength}};
    const Periods &periods = identifier.periods;
    if (periods.count() > 0)
        object.insert(QStringLiteral("period"),
                      QJsonObject{{QStringLiteral("mean"), periods.mean()},
                                  {QStringLiteral("least"), periods.least()},
                                  {QStringLiteral("most"), periods.most()},
                                  {QStringLiteral("p99"), periods.percentile(percentile)},
                                  {QStringLiteral("jitter"), periods.deviation()}});
    return object;
}

} // namespace

void printStats(const TraceStatistics &statistics, const StatsRequest &request)
{
    const Sum &all = statistics.all();
    printRow(Cli::tr("messages"), QString::number(all.count));
    printRow(Cli::tr("time"),
             QStringLiteral("%1 - %2").arg(timeText(all.earliest), timeText(all.latest)));
    printRow(Cli::tr("error frames"), QString::number(all.errorFrames));
    printRow(Cli::tr("gaps"), gapsText(all.gaps, request));
    if (all.timesThatFall > 0)
        printRow(Cli::tr("times fall"), QString::number(all.timesThatFall));
    if (request.bitrate > 0)
        printRow(Cli::tr("bus load"),
                 Cli::tr("%1 bit/s, data %2 bit/s, with the stuff bits of each frame")
                     .arg(request.bitrate)
                     .arg(request.dataBitrate));
    const auto lines = statistics.lines();
    for (auto line = lines.cbegin(); line != lines.cend(); ++line)
        printRow(Cli::tr("line %1").arg(line.key()), lineText(**line, all, request));
    writeLine(QString());
    writeLine(columns({Cli::tr("id"), Cli::tr("line"), Cli::tr("kind"), Cli::tr("count"),
                       Cli::tr("first"), Cli::tr("last"), Cli::tr("length"), Cli::tr("mean ms"),
                       Cli::tr("least"), Cli::tr("most"), Cli::tr("p99"), Cli::tr("jitter")}));
    const auto identifiers = statistics.identifiers();
    for (const Identifier *identifier : identifiers)
        printIdentifier(*identifier);
    if (statistics.messagesNotToldApart() > 0)
        writeLine(Cli::tr("%1 messages of other identifiers; no more than %2 are told apart")
                      .arg(statistics.messagesNotToldApart())
                      .arg(TraceStatistics::mostIdentifiers));
}

QByteArray statsJson(const TraceStatistics &statistics, const StatsRequest &request)
{
    const Sum &all = statistics.all();
    QJsonObject object = jsonOf(all);
    object.insert(QStringLiteral("earliest"), all.earliest);
    object.insert(QStringLiteral("latest"), all.latest);
    object.insert(QStringLiteral("gapsOver"), request.longestPause);
    object.insert(QStringLiteral("messagesNotToldApart"),
                  qint64(statistics.messagesNotToldApart()));
    if (request.bitrate > 0) {
        object.insert(QStringLiteral("bitrate"), qint64(request.bitrate));
        object.insert(QStringLiteral("dataBitrate"), qint64(request.dataBitrate));
        object.insert(QStringLiteral("stuffing"), QStringLiteral("exact"));
    }
    object.insert(QStringLiteral("lines"), linesJson(statistics, request));
    QJsonArray identifiers;
    const auto known = statistics.identifiers();
    for (const Identifier *identifier : known)
        identifiers.append(jsonOf(*identifier));
    object.insert(QStringLiteral("identifiers"), identifiers);
    return jsonText(QJsonDocument(object)) + '\n';
}
