#include "chunknames.h"
#include "commands.h"
#include "lossreport.h"
#include "movefiles.h"
#include "options.h"
#include "rotation.h"
#include "stopsignals.h"
#include "terminal.h"
#include "tracefile.h"
#include "workfolder.h"

#include <QFileInfo>

namespace {

constexpr quint64 mostMessagesPerFile = 10000000;

bool checkSource(TraceFile &trace)
{
    if (!checkTrace(trace))
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
        if (!name.startsWith(base + QLatin1Char('_'))
            || !name.endsWith(QLatin1String(ChunkNames::suffix)))
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
        names.append(folder.filePath(ChunkNames::part(base, quint32(i))));
    return names;
}

// The chunk files that the store makes of a trace.
struct Parts
{
    QStringList files; // in order
    bool imported = false;
    bool errorPrinted = false;
};

Parts importParts(DatachunkHandler &store, const TraceFile &trace, quint32 messagesPerPart)
{
    Parts parts;
    Progress progress(trace.name, store);
    QObject::connect(&store, &DatachunkHandler::newErrorMessage, &store, [&](const QString &text) {
        printError(trace.name, text);
        parts.errorPrinted = true;
    });
    QObject::connect(&store, &DatachunkHandler::newPartialDataFile, &store,
                     [&](const QString &fileName) {
                         parts.files.append(fileName);
                         progress.setCount(quint64(parts.files.size()) * messagesPerPart);
                     });
    QObject::connect(&store, &DatachunkHandler::messagesImported, &store,
                     [&](const QString &name) { parts.imported = !name.isEmpty(); });
    StopSignals::whenStopped(&store, [&store] { store.goLive(); });
    store.setImportMode(trace.mode);
    store.setReadsCompressed(true);
    store.importMessages(trace.name, trace.type, trace.formatDescription);
    store.disconnect();
    if (parts.imported)
        progress.setCount(quint64(qMax(0, parts.files.size() - 1)) * messagesPerPart
                          + store.getMessageCount());
    return parts;
}

bool importTrace(const TraceFile &trace, const QDir &folder, const QString &base,
                 quint32 messagesPerPart)
{
    const WorkFolder work(folder.path());
    const auto store = createStore(work, messagesPerPart + rotationMargin, trace.name);
    if (!store)
        return false;
    const Parts parts = importParts(*store, trace, messagesPerPart);
    if (interrupted(trace.name))
        return false;
    const ImportReport report = store->importReport();
    printReport(trace, report);
    if (!parts.imported && !parts.errorPrinted)
        printError(trace.name, Cli::tr("The file could not be imported."));
    return parts.imported && moveChunks(parts.files, partNames(folder, base, parts.files.size()))
        && !parts.errorPrinted && !failsOnLoss(trace, report);
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
    if (!readTraceOptions(parser, trace)
        || !numberOption(parser, QStringLiteral("messages"), 1, mostMessagesPerFile,
                         messagesPerFile, messages))
        return WrongUsage;
    const QString into = parser.value(QStringLiteral("into"));
    if (into.isEmpty())
        return usageError(Cli::tr("--into is missing"));
    const QDir folder(into);
    const QString base = QFileInfo(trace.name).completeBaseName();
    if (!checkSource(trace))
        return Failed;
    const bool isNew = !folder.exists();
    if (!checkTarget(folder, base))
        return Failed;
    const bool done = importTrace(trace, folder, base, quint32(messages));
    if (!done && isNew)
        QDir().rmdir(into);
    return finishOutput() && done ? Succeeded : Failed;
}
