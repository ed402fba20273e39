#include "chunknames.h"
#include "commands.h"
#include "filechecks.h"
#include "movefiles.h"
#include "selectedmessages.h"
#include "terminal.h"
#include "tracewriter.h"
#include "uniquenumbers.h"
#include "workfolder.h"

#include <QFileInfo>

namespace {

struct Export
{
    QString target;
    Selection selection;
    bool withNotes = false;
    bool withBookmarks = false;
};

QList<QCommandLineOption> outputOptions()
{
    return {{QStringLiteral("to"),
             Cli::tr("Write this file: a chunk file when the name ends in \"dck\", a text "
                     "otherwise. With \"-\" the text goes to standard output."),
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

bool goesToOutput(const Export &wanted)
{
    return wanted.target == QLatin1String("-");
}

// Calls take(item) for the messages that are wanted, until it returns false.
template <typename Take>
TraceReading::Result forEachSelected(TraceInput &input, const Selection &selection,
                                     const Take &take)
{
    UniqueNumbers numbered(input);
    SelectedMessages selected(selection);
    Progress progress(input.subject());
    return selected.forEachIn(numbered, [&](quint64, const TraceItem &item) {
        progress.countOne();
        return take(item);
    });
}

// What stands in front of the messages depends on all of them, so the trace is gone through
// before it is written.
TraceReading::Result survey(TraceInput &input, const Export &wanted, TraceFrame &frame)
{
    const auto add = [&](const TraceItem &item) {
        if (frame.count++ == 0)
            frame.first = item.message;
        frame.last = item.message;
        const quint32 number = item.message.messageNumber;
        if (wanted.withNotes && !item.note.isEmpty())
            frame.notes.insert(number, item.note);
        if (wanted.withBookmarks && item.bookmark.isValid())
            frame.bookmarks.insert(number, item.bookmark);
        return true;
    };
    const auto result = forEachSelected(input, wanted.selection, add);
    if (result != TraceReading::Failed && frame.count == 0) {
        printError(input.subject(), Cli::tr("Nothing to export."));
        return TraceReading::Failed;
    }
    return result;
}

bool writeTrace(TraceInput &input, const Export &wanted, const TraceFrame &frame,
                TraceWriter &writer)
{
    quint64 count = 0;
    bool written = writer.open();
    const auto write = [&](const TraceItem &item) {
        written = writer.write(item.message);
        return written && ++count < frame.count;
    };
    if (written && forEachSelected(input, wanted.selection, write) == TraceReading::Failed)
        return false;
    const bool closed = writer.close();
    if (written && closed && count == frame.count)
        return true;
    // An error of standard output is reported at the end of the program.
    if (!goesToOutput(wanted))
        printError(wanted.target, Cli::tr("The file could not be written completely."));
    return false;
}

int exportTrace(const TraceFile &trace, const Export &wanted)
{
    const bool toOutput = goesToOutput(wanted);
    const QFileInfo target(wanted.target);
    const QString folder = toOutput ? QDir::tempPath() : target.path();
    if (!checkReadable(trace.name) || !(toOutput || checkFree(wanted.target)))
        return Failed;
    const WorkFolder work(folder);
    if (!work.isValid()) {
        printError(toOutput ? folder : wanted.target, work.errorText());
        return Failed;
    }
    TraceInputs inputs(trace);
    TraceFrame frame;
    if (!inputs.open({trace.name}, TraceInputs::AsStream))
        return Failed;
    TraceInput &input = *inputs.all().front();
    const TraceReading::Result result = survey(input, wanted, frame);
    if (result == TraceReading::Failed)
        return Failed;
    const QString unfinished = work.filePath(toOutput ? QStringLiteral("text") : target.fileName());
    TraceWriter writer(unfinished, frame, toOutput);
    const bool done = writeTrace(input, wanted, frame, writer)
        && (toOutput || moveFiles({unfinished}, {wanted.target}));
    return finishOutput() && done && result == TraceReading::Complete ? Succeeded : Failed;
}

} // namespace

QList<QCommandLineOption> exportOptions()
{
    return traceOptions() + outputOptions() + Selection::options({QStringLiteral("to")});
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
    if (!readTarget(parser, wanted) || !wanted.selection.read(parser)
        || !readTraceOptions(parser, trace))
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
