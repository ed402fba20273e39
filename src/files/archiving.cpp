// The store's part of packing chunk files into ZIP archives and reading them back.

#include "archivelimits.h"
#include "chunkunpack.h"
#include "datachunkhandler.h"
#include "datachunkhandler_p.h"

#include <QFileInfo>
#include <QMutexLocker>
#include <QReadLocker>
#include <QThread>
#include <QWriteLocker>

#include <utility>

using ChunkArchive::Outcome;

void DatachunkHandlerPrivate::onStoreThread(const std::function<void()> &function)
{
    if (q->thread() == QThread::currentThread())
        function();
    else
        QMetaObject::invokeMethod(q, function, Qt::QueuedConnection);
}

void DatachunkHandler::setZipFileName(QString fileName)
{
    const QWriteLocker locker(&d->lock);
    d->zipFileName = fileName;
}

void DatachunkHandler::setZipAfterSaving(bool on)
{
    d->zipAfterSaving = on;
    ++d->packRequests;
}

void DatachunkHandler::saveDatachunksToZip()
{
    if (d->chunkFolder.exists())
        d->packChunks();
}

void DatachunkHandlerPrivate::packChunks()
{
    const QMutexLocker archiveLocker(&archiveMutex);
    QString zipName;
    quint64 packedGeneration = 0;
    {
        const QReadLocker locker(&lock);
        zipName = zipFileName;
        packedGeneration = generation;
    }
    const auto keepGoing = [this, packedGeneration] {
        const QReadLocker locker(&lock);
        return !stopping && generation == packedGeneration;
    };
    chunkQueue.waitForAll();
    exportQueue.waitForAll();
    QFileInfoList files = chunkFolder.dir().entryInfoList(QDir::Files, QDir::NoSort);
    files.removeAll(QFileInfo(zipName));
    // What has begun to be written since must be whole before it is packed.
    chunkQueue.waitForAll();
    exportQueue.waitForAll();
    const Zip::PackOutcome outcome = Zip::packFiles(zipName, files, keepGoing);
    if (outcome.errorText.isEmpty())
        return;
    const QString error = incompleteFileText(zipName, outcome.errorText);
    onStoreThread([this, error] { emit q->newErrorMessage(error); });
}

void DatachunkHandler::sortZipFile(QString zipName, QMap<double, QString> &order)
{
    const Zip::Reader archive(zipName);
    for (const auto &chunk : ChunkArchive::chunksByStart(archive, [this] { return !d->stopping; }))
        order.insert(chunk.start, chunk.entry.name);
}

bool DatachunkHandler::loadZipMerged(QString zipName)
{
    return !d->refuseDuringImport() && d->mergeArchive(zipName, ++d->viewRequests);
}

void DatachunkHandler::importZipAndMerge(QString zipName)
{
    if (d->refuseDuringImport())
        return;
    d->archives.run(
        [this, zipName, request = ++d->viewRequests] { d->mergeArchive(zipName, request); });
}

bool DatachunkHandlerPrivate::mergeArchive(const QString &zipName, quint32 viewRequest)
{
    const QMutexLocker archiveLocker(&archiveMutex);
    const auto keepGoing = [this, viewRequest] { return !stopping && viewRequests == viewRequest; };
    onStoreThread([this] { emit q->informAboutClearStart(); });
    const auto merged = std::make_shared<ChunkArchive::Merged>();
    ChunkArchive::merge(
        zipName, ArchiveLimits::memoryLimit(), keepGoing,
        [this](bool hasFdFrame) {
            onStoreThread([this, hasFdFrame] { emit q->chunkContainsFdMessage(hasFdFrame); });
        },
        *merged);
    // Whoever waits for the store's thread may be waited for by it, so the outcome of another
    // thread's merge is only told.
    const bool readAny = merged->outcome.result == Outcome::Done && !merged->messages.isEmpty();
    const QString name = ArchiveLimits::archiveName(zipName);
    if (q->thread() == QThread::currentThread())
        return endMerge(name, viewRequest, *merged);
    onStoreThread([this, name, viewRequest, merged] { endMerge(name, viewRequest, *merged); });
    return readAny;
}

bool DatachunkHandlerPrivate::endMerge(const QString &name, quint32 viewRequest,
                                       ChunkArchive::Merged &merged)
{
    const Outcome::Result result = merged.outcome.result;
    const bool wanted = viewRequests == viewRequest && !importRunning;
    const bool shows = wanted && result == Outcome::Done && !merged.messages.isEmpty();
    if (shows)
        showMerged(merged);
    if (result != Outcome::NotOpened && result != Outcome::NewerVersion)
        emit q->zipFileLoaded(name);
    if (shows) {
        const QSet<unsigned char> seen = merged.lines.toSet();
        for (const unsigned char line : seen)
            emit q->newLine(line);
    }
    // Of a newer version the user is told first, as with a single chunk file.
    const bool isNewer = result == Outcome::NewerVersion;
    if (wanted && isNewer)
        reportFailure(merged.outcome);
    emit q->informAboutCleared(isLive);
    if (shows) {
        emit q->liveModeChanged(isLive);
    } else if (wanted) {
        showLive();
        if (!isNewer)
            reportFailure(merged.outcome);
    }
    return shows;
}

void DatachunkHandlerPrivate::showMerged(ChunkArchive::Merged &merged)
{
    MessageList unused;
    {
        const QWriteLocker locker(&lock);
        unused = std::exchange(pagedMessages, {});
        leaveLiveModeLocked();
        pagedMessages = std::move(merged.messages);
        view = View::Paged;
        rotatedBuffer.clear();
        const QSet<unsigned char> seen = merged.lines.toSet();
        for (const unsigned char line : seen)
            lines.insert(line);
        const QMutexLocker notesLocker(&notesLock);
        notes = std::move(merged.notes);
    }
    q->resetLinePositions();
    if (merged.hasBookmarkMap)
        setBookmarks(merged.bookmarks);
}

void DatachunkHandlerPrivate::reportFailure(const Outcome &outcome)
{
    if (outcome.result == Outcome::NewerVersion) {
        q->showDataChunkVersionMismatch();
    } else if (outcome.result == Outcome::TooLarge) {
        q->showTooMuchMessagesError(outcome.messages);
    } else if (outcome.result == Outcome::NoRoom) {
        emit q->newErrorMessage(
            DatachunkHandler::tr("There is no room on the disk to unpack the archive."));
    } else if (outcome.result != Outcome::GivenUp) {
        reportNothingImported();
    }
}

bool DatachunkHandler::loadZipFile(QString zipName)
{
    return d->unpackArchive(zipName);
}

bool DatachunkHandlerPrivate::unpackArchive(const QString &zipName)
{
    const QMutexLocker archiveLocker(&archiveMutex);
    const QString name = ArchiveLimits::archiveName(zipName);
    bool anything = false;
    const auto unpacked = [&](const QString &entry, const QDir &folder, const QString &time) {
        anything = true;
        onStoreThread([=] { emit q->newZippedFile(entry, name, folder, time); });
    };
    Outcome outcome{Outcome::NoRoom};
    if (chunkFolder.exists()) {
        outcome = ChunkArchive::unpack(
            zipName, chunkFolder.dir(), [this] { return !stopping; }, unpacked);
    }
    const bool failed = !anything || outcome.result != Outcome::Done;
    onStoreThread([=] {
        if (failed)
            reportFailure(outcome);
        emit q->zipFileLoaded(name);
    });
    return anything;
}
