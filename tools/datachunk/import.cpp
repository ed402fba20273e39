#include "commands.h"
#include "movefiles.h"
#include "options.h"
#include "terminal.h"
#include "tracefile.h"

#include <QFileInfo>

namespace {

constexpr quint64 mostMessagesPerFile = 10000000;

bool checkSource(const TraceFile &trace)
{
    if (!checkReadable(trace.name))
        return false;
    if (trace.type == DatachunkHelper::ChunkFile)
        printError(trace.name, Cli::tr("The file is a chunk file already."));
    else if (trace.type == DatachunkHelper::ZipArchive)
        printError(trace.name, Cli::tr("The file is an archive; unpack or merge it."));
    else
        return true;
    return false;
}

// Creates the folder. A new trace must not mix with the chunk files of another one.
bool checkTarget(const QDir &folder, const QString &base)
{
    if (!makeFolder(folder))
        return false;
    const QStringList names = folder.entryList(QDir::Files);
    for (const QString &name : names) {
        if (!name.startsWith(base + QLatin1Char('_')) || !name.endsWith(QLatin1String(".dck")))
            continue;
        printError(folder.filePath(name), Cli::tr("The file exists already."));
        return false;
    }
    return true;
}

QStringList partNames(const QDir &folder, const QString &base, int count)
{
    QStringList names;
    for (int i = 0; i < count; ++i)
        names.append(folder.filePath(QStringLiteral("%1_%2.dck").arg(base).arg(i)));
    return names;
}

} // namespace

QList<QCommandLineOption> importOptions()
{
    return traceOptions()
        + QList<QCommandLineOption>{
            {QStringLiteral("into"),
             Cli::tr("Put the chunk files into this folder, which is created if need be."),
             QStringLiteral("FOLDER")},
            {QStringLiteral("messages"), Cli::tr("Messages per chunk file, 250000 by default."),
             QStringLiteral("N")}};
}

int runImport(const QCommandLineParser &parser, const QStringList &files)
{
    constexpr quint64 messagesPerFile = 250000;
    TraceFile trace;
    trace.name = files.first();
    quint64 messages = 0;
    if (!chooseType(parser, trace)
        || !numberOption(parser, QStringLiteral("messages"), 1, mostMessagesPerFile,
                         messagesPerFile, messages))
        return WrongUsage;
    const QString into = parser.value(QStringLiteral("into"));
    if (into.isEmpty())
        return usageError(Cli::tr("--into is missing"));
    const QDir folder(into);
    const QString base = QFileInfo(trace.name).completeBaseName();
    if (!checkSource(trace) || !checkTarget(folder, base))
        return Failed;
    TraceReading reading(trace, into, quint32(messages));
    const bool done = reading.import()
        && moveFiles(reading.parts(), partNames(folder, base, reading.parts().size()));
    return finishOutput() && done ? Succeeded : Failed;
}
