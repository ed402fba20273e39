// The store's part of packing chunk files into ZIP archives and reading them back.

#include "archivelimits.h"
#include "chunkunpack.h"
#include "datachunkhandler.h"
#include "datachunkhandler_p.h"
#include "fileerrors.h"
#include "foldertree.h"

#include <QFileInfo>
#include <QMutexLocker>
#include <QThread>

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
    const QMutexLocker locker(&d->zipNameMutex);
    d->zipFileName = fileName;
}

void DatachunkHandler::setZipAfterSaving(bool on)
{
    d->zipAfterSaving = on;
    ++d->packRequests;
}

void DatachunkHandler::saveDatachunksToZip()
{
    if (!d->chunkFolder.exists())
        return;
    QString zipName;
    {
        const QMutexLocker locker(&d->zipNameMutex);
        zipName = d->zipFileName;
    }
    const QString error = d->packChunks(zipName);
    if (!error.isEmpty())
        d->onStoreThread([this, error] { emit newErrorMessage(error); });
}

QString DatachunkHandlerPrivate::packChunks(const QString &zipName)
{
    const QMutexLocker archiveLocker(&archiveMutex);
    const auto keepGoing = [this, packed = chunkSaver.generation()] {
        return !stopping && chunkSaver.generation() == packed;
    };
    if (!chunkSaver.waitForAll(keepGoing))
        return {};
    // The next export into the folder may write the same file again, and packing reads it.
    const ExportDesk::Hold hold(exports);
    return packFolder(zipName, keepGoing);
}

QString DatachunkHandlerPrivate::packFolder(const QString &zipName, const Zip::KeepGoing &keepGoing)
{
    QFileInfoList files;
    if (!FolderTree::listFiles(chunkFolder.path(), files))
        return FileErrors::notRead(chunkFolder.path(), qt_error_string());
    files.removeAll(QFileInfo(zipName));
    // What has begun to be written since must be whole before it is packed.
    if (!chunkSaver.waitForAll(keepGoing))
        return {};
    const Zip::PackOutcome outcome = Zip::packFiles(zipName, files, keepGoing);
    if (!outcome.readErrorText.isEmpty() || outcome.errorText.isEmpty())
        return outcome.readErrorText;
    return FileErrors::notWritten(zipName, outcome.errorText);
}

void DatachunkHandler::sortZipFile(QString zipName, QMap<double, QString> &order)
{
    const Zip::Reader archive(zipName);
    const auto keepGoing = [this] { return !d->stopping; };
    Damage::List damage;
    const auto chunks = ChunkArchive::chunksByStart(archive, keepGoing, damage);
    for (const auto &chunk : ChunkArchive::lastOfEachStart(archive, chunks, keepGoing, damage)) {
        if (chunk.hasHeader())
            order.insert(chunk.start, chunk.entry.name);
    }
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
    const QPointer<DatachunkHandler> store(q);
    onStoreThread([this] { emit q->informAboutClearStart(); });
    if (!store)
        return false;
    const auto keepGoing = [this, viewRequest] { return !stopping && viewRequests == viewRequest; };
    const auto merged = std::make_shared<ChunkArchive::Merged>();
    {
        const QMutexLocker archiveLocker(&archiveMutex);
        ChunkArchive::merge(zipName, ArchiveLimits::memoryLimit(), keepGoing, *merged);
    }
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
    const QPointer<DatachunkHandler> store(q);
    for (const bool hasFdFrame : qAsConst(merged.fdFramesByChunk)) {
        emit store->chunkContainsFdMessage(hasFdFrame);
        if (!store)
            return false;
    }
    const auto isWanted = [this, viewRequest] {
        return viewRequests == viewRequest && !importRunning;
    };
    const Outcome::Result result = merged.outcome.result;
    const bool isNewer = result == Outcome::NewerVersion;
    const bool isRead = result == Outcome::Done && !merged.messages.isEmpty();
    const auto isShown = [&] { return store && isRead && isWanted(); };
    if (isShown())
        showMerged(merged);
    if (result != Outcome::NotOpened && !isNewer)
        emit q->zipFileLoaded(name);
    const QSet<unsigned char> seen = isRead ? merged.lines.toSet() : QSet<unsigned char>();
    for (auto line = seen.begin(); line != seen.end() && isShown(); ++line)
        emit store->newLine(*line);
    // Of a newer version the user is told first, as with a single chunk file.
    if (store && isWanted() && isNewer)
        reportFailure(merged.outcome);
    if (store)
        emit q->informAboutCleared(trace.isLive());
    if (isShown())
        emit q->liveModeChanged(trace.isLive());
    if (isShown() && !merged.outcome.systemError.isEmpty())
        reportFailure(merged.outcome);
    if (store && isWanted())
        tell(merged.outcome.damage);
    if (store && !isRead && isWanted()) {
        showLive();
        if (store && !isNewer)
            reportFailure(merged.outcome);
    }
    return isShown();
}

void DatachunkHandlerPrivate::showMerged(ChunkArchive::Merged &merged)
{
    trace.showMerged(std::move(merged.messages), merged.lines, std::move(merged.notes));
    lastError = DatachunkHandler::tr("Unknown import error");
    if (merged.hasBookmarkMap)
        notes.showBookmarks(merged.bookmarks);
}

void DatachunkHandlerPrivate::reportFailure(const Outcome &outcome)
{
    if (!outcome.systemError.isEmpty()) {
        emit q->newErrorMessage(outcome.systemError);
    } else if (outcome.result == Outcome::NewerVersion) {
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
    const QPointer<DatachunkHandler> store(q);
    const QString name = ArchiveLimits::archiveName(zipName);
    QVector<std::function<void()>> reports;
    const auto unpacked = [&](const QString &entry, const QDir &folder, const QString &time) {
        reports.append([=] { emit q->newZippedFile(entry, name, folder, time); });
        // On this thread a slot could be called, which has to wait for the end.
        if (q->thread() != QThread::currentThread())
            onStoreThread(reports.last());
    };
    Outcome outcome{Outcome::NoRoom, 0, {}};
    if (chunkFolder.exists()) {
        const QMutexLocker archiveLocker(&archiveMutex);
        outcome = ChunkArchive::unpack(
            zipName, chunkFolder.dir(), [this] { return !stopping; }, unpacked);
    }
    const bool anything = !reports.isEmpty();
    if (q->thread() != QThread::currentThread())
        reports.clear();
    reports.append([this, outcome] { tell(outcome.damage); });
    if (!anything || outcome.result != Outcome::Done || !outcome.systemError.isEmpty())
        reports.append([this, outcome] { reportFailure(outcome); });
    reports.append([this, name] { emit q->zipFileLoaded(name); });
    for (int i = 0; i < reports.size() && store; ++i)
        onStoreThread(reports.at(i));
    return anything;
}
