#include "commands.h"
#include "movefiles.h"
#include "terminal.h"
#include "tracefile.h"

#include <QEventLoop>
#include <QFileInfo>

namespace {

// The unpacked chunks stay in the store's chunk folder. False, with a text printed, when the
// archive could not be unpacked completely.
bool unpackAside(DatachunkHandler &store, const QString &zipName, QStringList &chunks)
{
    bool failed = false;
    QEventLoop loop;
    QObject::connect(&store, &DatachunkHandler::newErrorMessage, &loop, [&](const QString &text) {
        printError(zipName, text);
        failed = true;
    });
    QObject::connect(&store, &DatachunkHandler::newZippedFile, &loop,
                     [&](const QString &name, const QString &, const QDir &folder) {
                         chunks.append(folder.filePath(name));
                     });
    QObject::connect(&store, &DatachunkHandler::zipFileLoaded, &loop, &QEventLoop::quit);
    const StopSignals stopSignals;
    QObject::connect(&stopSignals, &StopSignals::stop, &loop, &QEventLoop::quit);
    store.importMessages(zipName, DatachunkHelper::ZipArchive);
    loop.exec();
    return !interrupted(zipName) && !failed;
}

bool unpack(const QString &zipName, const QDir &folder)
{
    const WorkFolder work(folder.path());
    const auto store = createStore(work, 0, folder.path());
    QStringList chunks;
    if (!store || !unpackAside(*store, zipName, chunks))
        return false;
    QStringList names;
    for (const QString &chunk : qAsConst(chunks))
        names.append(folder.filePath(QFileInfo(chunk).fileName()));
    return moveFiles(chunks, names);
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
