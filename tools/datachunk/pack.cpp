#include "commands.h"
#include "terminal.h"
#include "tracefile.h"

#include <QEventLoop>
#include <QFileInfo>
#include <QMap>
#include <QThread>

namespace {

// Chunk files by the names that they get in the archive.
using Entries = QMap<QString, QString>;

bool addChunk(const QString &fileName, Entries &entries)
{
    if (!checkChunkFile(fileName))
        return false;
    const QString name = QFileInfo(fileName).fileName();
    // Whoever reads archives takes it for a path and passes it over.
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
    const QStringList names = folder.entryList({QStringLiteral("*.dck")},
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

// The library does not tell of an archive that it cannot begin.
bool checkTarget(const QString &zipName)
{
    const QFileInfo target(zipName);
    const bool writable =
        target.exists() ? target.isFile() && target.isWritable() : !target.fileName().isEmpty();
    if (writable && QFileInfo(target.path()).isDir() && QFileInfo(target.path()).isWritable())
        return true;
    printError(zipName, Cli::tr("The archive cannot be written there."));
    return false;
}

// Links cost no room, wherever the chunks lie.
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

bool pack(const Entries &entries, const QString &zipName)
{
    const WorkFolder work(QDir::tempPath());
    const auto store = createStore(work, 0, zipName);
    if (!store || !linkInto(store->chunkFolderPath(), entries))
        return false;
    bool failed = false;
    QObject::connect(store.get(), &DatachunkHandler::newErrorMessage, [&](const QString &text) {
        printError(zipName, text);
        failed = true;
    });
    const StopSignals stopSignals;
    QObject::connect(&stopSignals, &StopSignals::stop, store.get(),
                     &DatachunkHandler::clearAllMessages);
    store->setZipFileName(zipName);
    QEventLoop loop;
    const std::unique_ptr<QThread> thread(
        QThread::create([&store] { store->saveDatachunksToZip(); }));
    QObject::connect(thread.get(), &QThread::finished, &loop, &QEventLoop::quit);
    thread->start();
    loop.exec();
    thread->wait();
    return !interrupted(zipName) && !failed;
}

} // namespace

QList<QCommandLineOption> packOptions()
{
    return {{QStringLiteral("to"),
             Cli::tr("Write this archive; one that is there is replaced when the new one is "
                     "whole."),
             QStringLiteral("X.zip")}};
}

int runPack(const QCommandLineParser &parser, const QStringList &files)
{
    const QString zipName = parser.value(QStringLiteral("to"));
    if (zipName.isEmpty())
        return usageError(Cli::tr("--to is missing"));
    Entries entries;
    if (!addAll(files, entries) || !checkTarget(zipName) || !pack(entries, zipName))
        return Failed;
    writeOutput(zipName + QLatin1Char('\n'));
    return finishOutput() ? Succeeded : Failed;
}
