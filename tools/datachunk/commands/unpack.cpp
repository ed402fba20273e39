#include "commands.h"
#include "filechecks.h"
#include "movefiles.h"
#include "stopsignals.h"
#include "terminal.h"
#include "workfolder.h"

#include <QEventLoop>
#include <QFileInfo>

namespace {

struct Unpacked
{
    QStringList chunks;   // the files, in the store's chunk folder
    bool damaged = false; // something of the archive is missing, which was printed
};

// Returns nothing when a signal came meanwhile.
Unpacked unpackArchive(DatachunkHandler &store, const QString &zipName)
{
    Unpacked unpacked;
    QEventLoop loop;
    const Progress progress(zipName, store);
    QObject::connect(&store, &DatachunkHandler::newErrorMessage, &loop, [&](const QString &text) {
        printError(zipName, text);
        unpacked.damaged = true;
    });
    QObject::connect(&store, &DatachunkHandler::newZippedFile, &loop,
                     [&](const QString &name, const QString &, const QDir &folder) {
                         unpacked.chunks.append(folder.filePath(name));
                     });
    QObject::connect(&store, &DatachunkHandler::zipFileLoaded, &loop, &QEventLoop::quit);
    StopSignals::whenStopped(&loop, [&loop] { loop.quit(); });
    store.importMessages(zipName, DatachunkHelper::ZipArchive);
    loop.exec();
    QCoreApplication::sendPostedEvents(&store);
    return interrupted(zipName) ? Unpacked{{}, true} : unpacked;
}

bool unpack(const QString &zipName, const QDir &folder)
{
    const WorkFolder work(folder.path());
    const auto store = createStore(work, 0, folder.path());
    if (!store)
        return false;
    const Unpacked unpacked = unpackArchive(*store, zipName);
    QStringList names;
    for (const QString &chunk : unpacked.chunks)
        names.append(folder.filePath(QFileInfo(chunk).fileName()));
    return moveChunks(unpacked.chunks, names) && !unpacked.damaged;
}

} // namespace

QList<QCommandLineOption> unpackOptions()
{
    return {{QStringLiteral("into"),
             Cli::tr("Put the chunk files into this folder, which is created if need be."),
             QStringLiteral("FOLDER")}};
}

int runUnpack(const QCommandLineParser &parser, const QStringList &files)
{
    const QString into = parser.value(QStringLiteral("into"));
    if (into.isEmpty())
        return usageError(Cli::tr("--into is missing"));
    const QDir folder(into);
    const bool isNew = !folder.exists();
    if (!checkReadable(files.first()) || !makeFolder(folder))
        return Failed;
    const bool done = unpack(files.first(), folder);
    if (!done && isNew)
        QDir().rmdir(into);
    return finishOutput() && done ? Succeeded : Failed;
}
