#include "canframe.h"
#include "commands.h"
#include "errorframes.h"
#include "terminal.h"
#include "tracereading.h"

#include <QMap>
#include <QSet>

#include <algorithm>
#include <limits>

namespace {

// Keeps a trace of nothing but different identifiers from filling the memory.
constexpr int mostIdentifiers = 1000000;
constexpr qint64 microsecondsPerSecond = 1000000;

struct Summary
{
    quint64 messages = 0;
    quint64 fdFrames = 0;
    quint64 remoteFrames = 0;
    quint64 errorFrames = 0;
    quint64 notes = 0;
    qint64 earliest = std::numeric_limits<qint64>::max();
    qint64 latest = std::numeric_limits<qint64>::min();
    QMap<quint8, quint64> lines;
    QMap<QString, quint64> errorTypes;
    QSet<quint64> identifiers;
};

qint64 microseconds(const CAN::CanRxMessage &message)
{
    return message.seconds * microsecondsPerSecond + message.microseconds;
}

void addMessage(Summary &summary, const CAN::CanRxMessage &message)
{
    const bool isError = message.id == CAN::errorFrameId;
    ++summary.messages;
    ++summary.lines[quint8(message.line)];
    summary.fdFrames += message.fdFrame ? 1 : 0;
    summary.remoteFrames += message.remote ? 1 : 0;
    summary.errorFrames += isError ? 1 : 0;
    const QString errorType = errorTypeName(message);
    if (!errorType.isEmpty())
        ++summary.errorTypes[errorType];
    summary.earliest = std::min(summary.earliest, microseconds(message));
    summary.latest = std::max(summary.latest, microseconds(message));
    if (!isError && summary.identifiers.size() < mostIdentifiers)
        summary.identifiers.insert(quint64(message.id) | quint64(message.extended) << 32);
}

QString timeText(qint64 time)
{
    constexpr int fractionDigits = 6;
    return QStringLiteral("%1%2.%3")
        .arg(QLatin1String(time < 0 ? "-" : ""))
        .arg(qAbs(time) / microsecondsPerSecond)
        .arg(qAbs(time) % microsecondsPerSecond, fractionDigits, 10, QLatin1Char('0'));
}

QString identifierText(const Summary &summary)
{
    const int count = summary.identifiers.size();
    return count < mostIdentifiers ? QString::number(count)
                                   : Cli::tr("%1 or more").arg(mostIdentifiers);
}

void printRow(const QString &title, const QString &value)
{
    constexpr int titleWidth = 15;
    writeLine(QStringLiteral("%1 %2").arg(title + QLatin1Char(':'), -titleWidth).arg(value));
}

void print(const QString &fileName, DatachunkHelper::ImportFileType type, const Summary &summary)
{
    printRow(Cli::tr("file"), fileName);
    printRow(Cli::tr("type"), typeName(type));
    printRow(Cli::tr("messages"), QString::number(summary.messages));
    printRow(Cli::tr("time"),
             QStringLiteral("%1 - %2").arg(timeText(summary.earliest), timeText(summary.latest)));
    for (auto line = summary.lines.cbegin(); line != summary.lines.cend(); ++line)
        printRow(Cli::tr("line %1").arg(line.key()), QString::number(line.value()));
    printRow(Cli::tr("identifiers"), identifierText(summary));
    printRow(Cli::tr("FD frames"), QString::number(summary.fdFrames));
    printRow(Cli::tr("remote frames"), QString::number(summary.remoteFrames));
    printRow(Cli::tr("error frames"), QString::number(summary.errorFrames));
    for (auto type = summary.errorTypes.cbegin(); type != summary.errorTypes.cend(); ++type)
        printRow(QLatin1String("  ") + type.key(), QString::number(type.value()));
    printRow(Cli::tr("notes"), QString::number(summary.notes));
}

} // namespace

int runInfo(const QCommandLineParser &parser, const QStringList &files)
{
    TraceFile trace;
    trace.name = files.first();
    if (!readTraceOptions(parser, trace))
        return WrongUsage;
    TraceReading reading(trace);
    if (!reading.open())
        return Failed;
    Summary summary;
    TraceReading::Result result = TraceReading::Failed;
    {
        Progress progress(trace.name);
        result = reading.forEachMessage([&](const TraceItem &item) {
            addMessage(summary, item.message);
            summary.notes += item.note.isEmpty() ? 0 : 1;
            progress.countOne();
            return true;
        });
    }
    if (result == TraceReading::Failed)
        return Failed;
    print(trace.name, reading.type(), summary);
    return finishOutput() && result == TraceReading::Complete ? Succeeded : Failed;
}
