#include "commands.h"
#include "movefiles.h"
#include "positions.h"
#include "terminal.h"
#include "tracefile.h"
#include "tracewriter.h"

#include <QFileInfo>

namespace {

struct Export
{
    QString target;
    Positions positions;
    bool withNotes = false;
    bool withBookmarks = false;
};

QList<QCommandLineOption> outputOptions()
{
    return {{QStringLiteral("to"),
             Cli::tr("Write this file: a chunk file when the name ends in \"dck\", a text "
                     "otherwise."),
             QStringLiteral("OUT")},
            {QStringLiteral("notes"),
             Cli::tr("Write the notes into a text, too; a chunk file always has them.")}};
}

bool readTarget(const QCommandLineParser &parser, Export &wanted)
{
    wanted.target = parser.value(QStringLiteral("to"));
    wanted.withBookmarks = isChunkName(wanted.target);
    wanted.withNotes = wanted.withBookmarks || parser.isSet(QStringLiteral("notes"));
    if (!wanted.target.isEmpty())
        return true;
    usageError(Cli::tr("--to is missing"));
    return false;
}

// Calls take(part, message) for each message at the positions, until it returns false.
template <typename Take>
bool forEachMessage(TraceReading &reading, const Positions &positions, const Take &take)
{
    quint64 position = 0;
    return reading.forEachPart([&](DatachunkHandler &part) {
        const int count = int(part.getMessageCount());
        for (int i = 0; i < count && position <= positions.last(); ++i, ++position) {
            if (!positions.contains(position))
                continue;
            if (StopSignals::received() || !take(part, part.messageAtPassMutex(i)))
                return false;
        }
        return position <= positions.last();
    });
}

// What stands in front of the messages depends on all of them, so the trace is gone through
// before it is written. False, with a text printed, when there is nothing to write.
bool survey(TraceReading &reading, const QString &fileName, const Export &wanted, TraceFrame &frame)
{
    bool any = false;
    const auto add = [&](const DatachunkHandler &part, const CAN::CanRxMessage &message) {
        if (!any)
            frame.first = message;
        any = true;
        frame.last = message;
        const quint32 number = message.messageNumber;
        const QString note = wanted.withNotes ? part.getMessageNote(number) : QString();
        if (!note.isEmpty())
            frame.notes.insert(number, note);
        const CanMessageBookmark bookmark =
            wanted.withBookmarks ? part.bookmarkAt(int(number)) : CanMessageBookmark();
        if (bookmark.isValid())
            frame.bookmarks.insert(number, bookmark);
        return true;
    };
    if (!forEachMessage(reading, wanted.positions, add))
        return false;
    if (!any)
        printError(fileName, Cli::tr("Nothing to export."));
    return any;
}

bool writeTrace(TraceReading &reading, const Export &wanted, const TraceFrame &frame,
                const QString &fileName)
{
    TraceWriter writer(fileName, frame);
    bool written = writer.open();
    const auto write = [&](const DatachunkHandler &, const CAN::CanRxMessage &message) {
        written = writer.write(message);
        return written;
    };
    if (written && !forEachMessage(reading, wanted.positions, write))
        return false;
    if (writer.close() && written)
        return true;
    printError(wanted.target, Cli::tr("The file could not be written completely."));
    return false;
}

int exportTrace(const TraceFile &trace, const Export &wanted)
{
    const QFileInfo target(wanted.target);
    if (!checkReadable(trace.name) || !checkFree(wanted.target))
        return Failed;
    const WorkFolder work(target.path());
    if (!work.isValid()) {
        printError(wanted.target, work.errorText());
        return Failed;
    }
    const QString unfinished = work.filePath(target.fileName());
    TraceReading reading(trace);
    TraceFrame frame;
    const bool done = reading.import() && survey(reading, trace.name, wanted, frame)
        && writeTrace(reading, wanted, frame, unfinished)
        && moveFiles({unfinished}, {wanted.target});
    return finishOutput() && done ? Succeeded : Failed;
}

} // namespace

QList<QCommandLineOption> exportOptions()
{
    return traceOptions() + outputOptions() + positionOptions();
}

QList<QCommandLineOption> mergeOptions()
{
    return outputOptions();
}

int runExport(const QCommandLineParser &parser, const QStringList &files)
{
    TraceFile trace;
    trace.name = files.first();
    Export wanted;
    if (!readTarget(parser, wanted) || !wanted.positions.read(parser) || !chooseType(parser, trace))
        return WrongUsage;
    return exportTrace(trace, wanted);
}

int runMerge(const QCommandLineParser &parser, const QStringList &files)
{
    TraceFile trace;
    trace.name = files.first();
    trace.type = DatachunkHelper::ZipArchive;
    Export wanted;
    return readTarget(parser, wanted) ? exportTrace(trace, wanted) : WrongUsage;
}
