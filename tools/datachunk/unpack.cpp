#include "commands.h"
#include "filechecks.h"
#include "movefiles.h"
#include "terminal.h"
#include "unpacking.h"
#include "workfolder.h"

#include <QFileInfo>

namespace {

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
    return moveFiles(unpacked.chunks, names) && !unpacked.damaged;
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
