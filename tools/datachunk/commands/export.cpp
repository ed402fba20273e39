#include "chunknames.h"
#include "commands.h"
#include "conversion.h"
#include "dataset.h"
#include "filechecks.h"
#include "terminal.h"

#include <QFileInfo>

namespace {

bool readTarget(const QCommandLineParser &parser, Conversion &wanted)
{
    wanted.target = parser.value(QStringLiteral("to"));
    if (!wanted.target.isEmpty())
        return true;
    usageError(Cli::tr("--to is missing"));
    return false;
}

int exportTrace(const TraceFile &trace, const Conversion &wanted)
{
    const bool isFile = trace.name != QLatin1String("-") && !QFileInfo(trace.name).isDir();
    if ((isFile && !checkReadable(trace.name))
        || !(wanted.goesToOutput() || checkFree(wanted.target)))
        return Failed;
    TraceInputs inputs(trace);
    const bool done = inputs.open({trace.name}, TraceInputs::AsStream)
        && convert({inputs.all().front().get()}, wanted);
    return finishOutput() && done ? Succeeded : Failed;
}

} // namespace

QList<QCommandLineOption> exportOptions()
{
    return traceOptions()
        + QList<QCommandLineOption>{{QStringLiteral("to"),
                                     Cli::tr("Write this file, in the format that its name ends "
                                             "in, or as a text. With \"-\" it goes to standard "
                                             "output."),
                                     QStringLiteral("OUT")},
                                    {QStringLiteral("into"),
                                     Cli::tr("Write a data set into this folder, as --partition "
                                             "says; several traces are taken then."),
                                     QStringLiteral("FOLDER")},
                                    partitionOption()}
    + conversionOptions() + Selection::options({QStringLiteral("to")});
}

QList<QCommandLineOption> mergeOptions()
{
    return {{QStringLiteral("to"),
             Cli::tr("Write this file: a chunk file when the name ends in \"dck\", a text "
                     "otherwise. With \"-\" the text goes to standard output."),
             QStringLiteral("OUT")},
            {QStringLiteral("notes"),
             Cli::tr("Write the notes into a text, too; a chunk file always has them.")}};
}

int runExport(const QCommandLineParser &parser, const QStringList &files)
{
    TraceFile trace;
    trace.name = files.first();
    Conversion wanted;
    if (!readTraceOptions(parser, trace))
        return WrongUsage;
    if (parser.isSet(QStringLiteral("partition")))
        return runDataset(parser, files, trace);
    if (files.size() > 1)
        return usageError(Cli::tr("without --partition only one trace is taken"));
    if (!readTarget(parser, wanted) || !readConversion(parser, trace, TargetFormat(), wanted))
        return WrongUsage;
    return exportTrace(trace, wanted);
}

int runMerge(const QCommandLineParser &parser, const QStringList &files)
{
    TraceFile trace;
    trace.name = files.first();
    trace.type = DatachunkHelper::ZipArchive;
    Conversion wanted;
    if (!readTarget(parser, wanted))
        return WrongUsage;
    wanted.format.kind =
        isChunkName(wanted.target) ? TargetFormat::OwnChunk : TargetFormat::OwnText;
    wanted.withNotes = parser.isSet(QStringLiteral("notes"));
    return exportTrace(trace, wanted);
}
