#include "chunknames.h"
#include "commands.h"
#include "filechecks.h"
#include "movefiles.h"
#include "stopsignals.h"
#include "terminal.h"
#include "workfolder.h"

#include <QEventLoop>
#include <QFileInfo>
#include <QMap>
#include <QThread>

#include <cerrno>
#include <cstdio>

namespace {

// Chunk files by the names that they get in the archive.
using Entries = QMap<QString, QString>;

bool addChunk(const QString &fileName, Entries &entries)
{
    if (!checkChunkFile(fileName))
        return false;
    const QString name = QFileInfo(fileName).fileName();
    // Readers of archives take a backslash for a separator and pass the entry over.
    if (name.contains(QLatin1Char('\\'))) {
        printError(fileName, Cli::tr("A name with a backslash cannot be packed."));
        return false;
    }
    if (entries.contains(name)) {
        printError(fileName, Cli::tr("The archive would have two files of that name."));
        return false;
    }
    entries.insert(name, QFileInfo(fileName).absoluteFilePath());
    return true;
}

bool addFolder(const QString &path, Entries &entries)
{
    const QDir folder(path);
    const QStringList names =
        folder.entryList({QLatin1Char('*') + QLatin1String(ChunkNames::suffix)},
                         QDir::Files | QDir::Hidden | QDir::CaseSensitive);
    if (names.isEmpty())
        printError(path, Cli::tr("The folder holds no chunk files."));
    for (const QString &name : names) {
        if (!addChunk(folder.filePath(name), entries))
            return false;
    }
    return !names.isEmpty();
}

bool addAll(const QStringList &files, Entries &entries)
{
    for (const QString &file : files) {
        if (!(QFileInfo(file).isDir() ? addFolder(file, entries) : addChunk(file, entries)))
            return false;
    }
    return true;
}

bool isArchive(const QString &fileName)
{
    QFile file(fileName);
    const QByteArray start = file.open(QIODevice::ReadOnly) ? file.read(4) : QByteArray();
    return start == "PK\3\4" || start == "PK\5\6";
}

// Only an archive that is none of the files to pack may be replaced.
bool checkTarget(const QString &name, const Entries &entries)
{
    const QFileInfo target(name);
    const QFileInfo folder(target.path());
    const bool hasPlace = !target.fileName().isEmpty() && folder.isDir() && folder.isWritable();
    if (!hasPlace || (target.exists() && !target.isFile())) {
        printError(name, Cli::tr("The archive cannot be written there."));
        return false;
    }
    if (!checkNoInput(name, entries.values()))
        return false;
    if (!target.exists())
        return checkFree(name);
    if (isArchive(name))
        return true;
    printError(name, Cli::tr("The file is no archive, and only an archive is replaced."));
    return false;
}

// Collects the chunks as links, which take no room on the disk.
bool linkInto(const QDir &folder, const Entries &entries)
{
    for (auto entry = entries.cbegin(); entry != entries.cend(); ++entry) {
        QFile file(entry.value());
        if (file.link(folder.filePath(entry.key())))
            continue;
        printError(entry.value(), file.errorString());
        return false;
    }
    return true;
}

// Returns when the archive is written, or has failed with a text printed.
bool packInto(DatachunkHandler &store, const QString &archive, const QString &subject)
{
    bool failed = false;
    QEventLoop loop;
    const Progress progress(subject, store);
    QObject::connect(&store, &DatachunkHandler::newErrorMessage, &loop, [&](const QString &text) {
        printError(subject, QString(text).replace(archive, subject));
        failed = true;
    });
    StopSignals::whenStopped(&store, [&store] { store.clearAllMessages(); });
    store.setZipFileName(archive);
    const std::unique_ptr<QThread> thread(
        QThread::create([&store] { store.saveDatachunksToZip(); }));
    QObject::connect(thread.get(), &QThread::finished, &loop, &QEventLoop::quit);
    thread->start();
    if (thread->isRunning() || thread->isFinished())
        loop.exec();
    else
        store.saveDatachunksToZip();
    thread->wait();
    QCoreApplication::sendPostedEvents(&store);
    if (interrupted(subject) || failed)
        return false;
    // The library does not report an archive that it cannot create.
    if (!isArchive(archive))
        printError(subject, Cli::tr("The archive cannot be written there."));
    return isArchive(archive);
}

// If the name is a link, the file that it leads to is replaced.
QString realPath(const QString &zipName)
{
    const QFileInfo target(zipName);
    return target.exists() ? target.canonicalFilePath() : target.absoluteFilePath();
}

// Returns 0 or the errno of the failure.
int replaceFile(const QString &archive, const QString &target)
{
    QFile::setPermissions(archive, QFile::permissions(target));
    const QByteArray source = QFile::encodeName(archive);
    return std::rename(source.constData(), QFile::encodeName(target).constData()) == 0 ? 0 : errno;
}

bool putInPlace(const QString &archive, const QString &zipName, const Entries &entries)
{
    // Another file may have taken the name while the archive was made.
    if (!checkTarget(zipName, entries))
        return false;
    const QString target = realPath(zipName);
    const int error =
        QFile::exists(target) ? replaceFile(archive, target) : moveFile(archive, target);
    if (error != 0)
        printError(zipName, systemErrorText(error));
    return error == 0;
}

// The archive is written in a work folder, so that no existing file is opened for writing.
bool pack(const Entries &entries, const QString &zipName)
{
    if (!checkTarget(zipName, entries))
        return false;
    const WorkFolder work(QFileInfo(realPath(zipName)).path());
    const auto store = createStore(work, 0, zipName);
    if (!store || !linkInto(store->chunkFolderPath(), entries))
        return false;
    const QString archive = work.filePath(QStringLiteral("archive.zip"));
    return packInto(*store, archive, zipName) && putInPlace(archive, zipName, entries);
}

} // namespace

QList<QCommandLineOption> packOptions()
{
    return {{QStringLiteral("to"),
             Cli::tr("Write this archive; one that is there is replaced when the new one is "
                     "whole. No other file is."),
             QStringLiteral("X.zip")}};
}

int runPack(const QCommandLineParser &parser, const QStringList &files)
{
    const QString zipName = parser.value(QStringLiteral("to"));
    if (zipName.isEmpty())
        return usageError(Cli::tr("--to is missing"));
    Entries entries;
    if (!addAll(files, entries) || !pack(entries, zipName))
        return Failed;
    writeLine(zipName);
    return finishOutput() ? Succeeded : Failed;
}
