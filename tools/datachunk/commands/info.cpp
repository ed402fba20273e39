#include "canframe.h"
#include "commands.h"
#include "errorframes.h"
#include "stopsignals.h"
#include "terminal.h"
#include "timetext.h"
#include "traceinput.h"

#include <QMap>
#include <QSet>

#include <algorithm>
#include <limits>

namespace {

// Keeps a trace of nothing but different identifiers from filling the memory.
constexpr int mostIdentifiers = 1000000;

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
    summary.earliest = std::min(summary.earliest, CAN::timeOf(message));
    summary.latest = std::max(summary.latest, CAN::timeOf(message));
    if (!isError && summary.identifiers.size() < mostIdentifiers)
        summary.identifiers.insert(quint64(message.id) | quint64(message.extended) << 32);
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

void print(const TraceInputs &inputs, const Summary &summary)
{
    for (const auto &input : inputs.all()) {
        for (const TraceInput::Name &name : input->names()) {
            printRow(Cli::tr("file"), name.path);
            printRow(Cli::tr("type"), name.type);
        }
    }
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

// Adds up what the index tells. Error types stand in payloads, and notes have to have a message.
TraceReading::Result addIndexed(Summary &summary, const TraceInput &input,
                                const QVector<TraceIdentifier> &identifiers)
{
    const TraceTimeline &timeline = *input.timeline();
    for (const TraceIdentifier &identifier : identifiers) {
        const bool isError = identifier.id == CAN::errorFrameId;
        summary.messages += identifier.count;
        summary.lines[identifier.line] += identifier.count;
        summary.fdFrames += identifier.fdFrame ? identifier.count : 0;
        summary.remoteFrames += identifier.remote ? identifier.count : 0;
        summary.errorFrames += isError ? identifier.count : 0;
        if (!isError && summary.identifiers.size() < mostIdentifiers)
            summary.identifiers.insert(quint64(identifier.id) | quint64(identifier.extended) << 32);
    }
    summary.earliest = std::min(summary.earliest, timeline.firstTime());
    summary.latest = std::max(summary.latest, timeline.lastTime());
    quint64 gone = 0;
    const auto goesOn = [] {
        QCoreApplication::processEvents();
        return !StopSignals::received();
    };
    const auto addError = [&](const QVector<quint64> &positions) {
        for (const quint64 position : positions) {
            const TraceRow row = timeline.row(position);
            gone += row.state == TraceRow::Known ? 0 : 1;
            const QString errorType = errorTypeName(row.message);
            if (!errorType.isEmpty())
                ++summary.errorTypes[errorType];
        }
        return goesOn();
    };
    gone += timeline.forEachFound(*TraceExpression::parse(QStringLiteral("err")), 0,
                                  timeline.count(), addError);
    const auto addNotes = [&](const QVector<quint64> &positions) {
        summary.notes += quint64(positions.size());
        return goesOn();
    };
    gone += timeline.forEachFound(*TraceExpression::parse(QStringLiteral("note")), 0,
                                  timeline.count(), addNotes);
    return interrupted(input.subject()) ? TraceReading::Failed : tellGone(input.subject(), gone);
}

TraceReading::Result add(Summary &summary, TraceInput &input)
{
    const TraceReading::Result opened = input.open();
    if (opened == TraceReading::Failed)
        return opened;
    if (input.timeline()) {
        bool isExact = false;
        const QVector<TraceIdentifier> identifiers = input.timeline()->identifiers(&isExact);
        if (isExact)
            return worse(opened, addIndexed(summary, input, identifiers));
    }
    Progress progress(input.subject(), [&input] { return input.part(); });
    const auto visit = [&](quint64, const TraceItem &item) {
        addMessage(summary, item.message);
        summary.notes += item.note.isEmpty() ? 0 : 1;
        progress.countOne();
        return true;
    };
    return worse(opened, input.forEachMessage(0, visit));
}

} // namespace

int runInfo(const QCommandLineParser &parser, const QStringList &files)
{
    TraceInputs inputs;
    if (!inputs.readOptions(parser))
        return WrongUsage;
    if (!inputs.open(files, TraceInputs::AsStream))
        return Failed;
    Summary summary;
    TraceReading::Result result = TraceReading::Complete;
    for (const auto &input : inputs.all()) {
        result = worse(result, add(summary, *input));
        if (result == TraceReading::Failed)
            return Failed;
    }
    print(inputs, summary);
    return finishOutput() && result == TraceReading::Complete ? Succeeded : Failed;
}
