#include "commands.h"
#include "conversion.h"
#include "dataset.h"
#include "filechecks.h"
#include "stopsignals.h"
#include "terminal.h"
#include "tracenames.h"
#include "workfolder.h"

#include <QFileInfo>

namespace {

bool readPaths(const QCommandLineParser &parser, QStringList &inputs, Conversion &wanted)
{
    const bool hasTarget = parser.isSet(QStringLiteral("to"));
    const bool hasFolder = parser.isSet(QStringLiteral("into"));
    // Without an option the last of several is the target.
    if (hasTarget)
        wanted.target = parser.value(QStringLiteral("to"));
    else if (!hasFolder && inputs.size() > 1)
        wanted.target = inputs.takeLast();
    if (hasTarget && hasFolder)
        usageError(Cli::tr("--to and --into exclude each other"));
    else if (hasFolder && !parser.isSet(QStringLiteral("as"))
             && !parser.isSet(QStringLiteral("partition")))
        usageError(Cli::tr("--into needs --as"));
    else if (hasFolder && parser.value(QStringLiteral("into")).isEmpty())
        usageError(Cli::tr("--into is missing"));
    else if (!hasFolder && wanted.target.isEmpty())
        usageError(Cli::tr("the name of the file to write is missing"));
    else
        return true;
    return false;
}

bool convertPaths(const QStringList &paths, const TraceFile &trace, const Conversion &wanted)
{
    if (!wanted.goesToOutput() && !checkFree(wanted.target))
        return false;
    if (paths.size() > int(MergedTrace::mostInputs)) {
        printError(Cli::tr("%1 paths").arg(paths.size()),
                   Cli::tr("At most %1 traces are merged at a time. Chunk files in a folder are "
                           "one: name the folder.")
                       .arg(MergedTrace::mostInputs));
        return false;
    }
    TraceInputs opened(trace);
    if (!opened.openEach(paths))
        return false;
    std::vector<TraceInput *> inputs;
    for (const auto &input : opened.all())
        inputs.push_back(input.get());
    return convert(inputs, wanted);
}

bool isTaken(const QString &fileName)
{
    const QFileInfo file(fileName);
    return file.exists() || file.isSymLink();
}

// The name that a trace gets in the folder: its own one, with a number where that is taken.
QString freeName(const QDir &folder, const QString &path, const QString &suffix)
{
    const QString base = traceName(path);
    QString name = QStringLiteral("%1.%2").arg(base, suffix);
    for (int number = 2; isTaken(folder.filePath(name)); ++number)
        name = QStringLiteral("%1-%2.%3").arg(base, QString::number(number), suffix);
    return folder.filePath(name);
}

bool convertEach(const QStringList &paths, const TraceFile &trace, Conversion wanted,
                 const QDir &folder)
{
    wanted.tellsCounts = true;
    bool areDone = makeFolder(folder);
    if (!areDone)
        return false;
    for (const QString &path : paths) {
        if (interrupted(path))
            return false;
        wanted.target = freeName(folder, path, wanted.format.suffix());
        areDone = convertPaths({path}, trace, wanted) && areDone;
    }
    return areDone;
}

} // namespace

QList<QCommandLineOption> convertOptions()
{
    return traceOptions()
        + QList<QCommandLineOption>{{QStringLiteral("to"),
                                     Cli::tr("Write this file, so that all arguments are traces "
                                             "to read. With \"-\" it goes to standard output."),
                                     QStringLiteral("OUT")},
                                    {QStringLiteral("into"),
                                     Cli::tr("Write a file for each trace into this folder, in "
                                             "the format of --as."),
                                     QStringLiteral("FOLDER")},
                                    partitionOption()}
    + conversionOptions() + Selection::options({QStringLiteral("to")});
}

int runConvert(const QCommandLineParser &parser, const QStringList &files)
{
    TraceFile trace;
    Conversion wanted;
    QStringList inputs = files;
    if (!readPaths(parser, inputs, wanted) || !readTraceOptions(parser, trace))
        return WrongUsage;
    if (parser.isSet(QStringLiteral("partition")))
        return runDataset(parser, inputs, trace);
    if (!readConversion(parser, trace, std::nullopt, wanted))
        return WrongUsage;
    const bool isEach = parser.isSet(QStringLiteral("into"));
    const bool done = isEach
        ? convertEach(inputs, trace, wanted, QDir(parser.value(QStringLiteral("into"))))
        : convertPaths(inputs, trace, wanted);
    return finishOutput() && done ? Succeeded : Failed;
}
