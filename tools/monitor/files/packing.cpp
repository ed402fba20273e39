#include "packing.h"

#include "chunkmove.h"
#include "chunknames.h"
#include "datachunkhandler.h"
#include "exporting.h"
#include "partfile.h"
#include "turningthread.h"

#include <QCoreApplication>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace {

struct Archiving
{
    Q_DECLARE_TR_FUNCTIONS(Archiving)
};

// While a store works on an archive, tells the job how far it is, and the store when the job is
// cancelled.
class ArchiveWatch
{
public:
    ArchiveWatch(DatachunkHandler &store, JobControl &control)
        : thread(
            [&store, &control](const TurningThread::KeepGoing &) { return look(store, control); })
    {
        thread.setRunning(true);
    }

private:
    static int look(DatachunkHandler &store, JobControl &control)
    {
        constexpr int interval = 50; // milliseconds
        const ImportProgress progress = store.importProgress();
        control.total = progress.bytes;
        control.done = progress.bytesRead;
        if (control.isCancelled)
            store.cancelImport();
        return interval;
    }

    TurningThread thread;
};

// A store for the work on one archive, on the thread that makes it. It tells nothing before it is
// asked to.
class ArchiveStore
{
public:
    explicit ArchiveStore(ArchiveResult &result) : result(result), store(0)
    {
        QObject::connect(
            &store, &DatachunkHandler::newErrorMessage, &store,
            [this](const QString &text) { this->result.problems += text; }, Qt::DirectConnection);
        if (folder().isEmpty())
            result.problems += Archiving::tr("There is no place for temporary files.");
    }

    QString folder() { return store.chunkFolderPath(); }

    void pack(const QString &archive, JobControl &control)
    {
        store.setZipFileName(archive);
        const ArchiveWatch watch(store, control);
        store.saveDatachunksToZip();
    }
    void unpack(const QString &archive, JobControl &control)
    {
        const ArchiveWatch watch(store, control);
        store.loadZipFile(archive);
    }
    // What the store has to tell comes as events, for which this thread has no loop.
    void takeErrors() { QCoreApplication::sendPostedEvents(&store); }

private:
    ArchiveResult &result;
    DatachunkHandler store;
};

// The files of all chunks, or nothing where one of them is none.
QStringList chunkFiles(const TraceTimeline &timeline, const QStringList &paths)
{
    const auto isPlace = [](const QString &path) {
        return QFileInfo(path).isDir() || isChunkName(path);
    };
    if (paths.isEmpty() || !std::all_of(paths.begin(), paths.end(), isPlace))
        return {};
    QStringList files;
    const QVector<TraceChunk> chunks = timeline.chunks();
    for (const TraceChunk &chunk : chunks) {
        if (!QFileInfo(chunk.name).isFile())
            return {};
        files += chunk.name;
    }
    return files;
}

// A name that is not taken in the folder.
QString freeName(const QDir &folder, const QString &name)
{
    const QFileInfo info(name);
    QString free = info.fileName();
    for (int number = 2; QFileInfo::exists(folder.filePath(free)); ++number)
        free = QStringLiteral("%1_%2.%3")
                   .arg(info.completeBaseName(), QString::number(number), info.suffix());
    return folder.filePath(free);
}

// As links, which take no room on the disk.
bool linkFiles(const QStringList &files, const QDir &folder, ArchiveResult &result)
{
    for (const QString &name : files) {
        QFile file(QFileInfo(name).absoluteFilePath());
        if (!file.link(freeName(folder, name))) {
            result.problems += QStringLiteral("%1: %2").arg(name, file.errorString());
            return false;
        }
        ++result.chunks;
    }
    return !files.isEmpty();
}

bool writeChunks(const TraceTimeline &timeline, const QDir &folder, ArchiveResult &result,
                 JobControl &control)
{
    constexpr quint64 messagesPerChunk = 250000;
    const quint64 count = timeline.count();
    const ExportOrder order{{}, {TargetFormat::OwnChunk}};
    for (quint64 first = 0; first < count; first += messagesPerChunk) {
        TraceSelection part;
        part.first = first;
        part.behind = std::min(count, first + messagesPerChunk);
        TimelineItems items(timeline, part);
        const QString name = folder.filePath(ChunkNames::rotated(result.chunks));
        const ExportResult written = writeItems(items, name, order, control);
        const bool isGone = written.messages == 0 && !items.problems().isEmpty();
        result.problems += written.losses;
        if (!written.isWritten && !isGone) {
            result.problems += written.error;
            return false;
        }
        result.chunks += written.isWritten ? 1 : 0;
    }
    result.problems.removeDuplicates();
    return result.chunks > 0;
}

// Moves what was unpacked to its folder.
bool moveInto(const QDir &folder, const QString &from, ArchiveResult &result,
              const JobControl &control)
{
    QStringList moved;
    QDirIterator files(from, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString name = files.next();
        if (!isChunkName(name))
            continue;
        const QString target = freeName(folder, name);
        const auto rename = [&] { return QFile::rename(name, target); };
        if (!control.isCancelled && moveChunk(name, target, rename)) {
            moved += target;
            continue;
        }
        for (const QString &file : moved)
            QFile::remove(file);
        if (!control.isCancelled)
            result.problems += Archiving::tr("%1 could not be written.").arg(target);
        return false;
    }
    result.chunks = int(moved.size());
    return !moved.isEmpty();
}

ArchiveResult cancelled()
{
    ArchiveResult result;
    result.isCancelled = true;
    return result;
}

} // namespace

ArchiveResult packTrace(const TraceTimeline &timeline, const QStringList &paths,
                        const QString &archive, JobControl &control)
{
    ArchiveResult result;
    PartFile file(archive, QStringLiteral("zip"));
    ArchiveStore store(result);
    const QDir folder(store.folder());
    if (!file.isValid())
        result.problems += file.errorText();
    if (!result.problems.isEmpty())
        return result;
    const QStringList files = chunkFiles(timeline, paths);
    const bool areThere = files.isEmpty() ? writeChunks(timeline, folder, result, control)
                                          : linkFiles(files, folder, result);
    if (areThere && !control.isCancelled) {
        store.pack(file.name(), control);
        store.takeErrors();
    }
    if (control.isCancelled)
        return cancelled();
    if (!areThere)
        return result;
    result.isDone = QFileInfo(file.name()).size() > 0 && file.putInPlace();
    if (!file.errorText().isEmpty())
        result.problems += file.errorText();
    return result;
}

ArchiveResult unpackArchive(const QString &archive, const QString &folder, JobControl &control)
{
    ArchiveResult result;
    ArchiveStore store(result);
    if (!QDir(folder).mkpath(QStringLiteral(".")))
        result.problems += Archiving::tr("The folder %1 could not be created.").arg(folder);
    if (!result.problems.isEmpty())
        return result;
    store.unpack(archive, control);
    store.takeErrors();
    if (!control.isCancelled)
        result.isDone = moveInto(QDir(folder), store.folder(), result, control);
    return control.isCancelled ? cancelled() : result;
}
