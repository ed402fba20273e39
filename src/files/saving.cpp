// The store's part of saving: what goes into a job, and what its reports lead to.

#include "datachunkhandler.h"
#include "datachunkhandler_p.h"
#include "fileerrors.h"

#include <QFileInfo>
#include <QReadLocker>
#include <QWriteLocker>

SharedSaveJob DatachunkHandlerPrivate::newChunkJobLocked(DatachunkHelper::SavedMessageType type)
{
    auto job = std::make_shared<SaveJob>();
    job->type = type;
    job->maximumUsedSpace = maximumHddSpace;
    job->chunkIndex = chunkCount++;
    job->generation = generation;
    return job;
}

SaveQueue &DatachunkHandlerPrivate::queueFor(const SaveJob &job)
{
    // An export to a slow medium must not hold up rotations.
    return job.type == DatachunkHelper::CurrentMessages ? exportQueue : chunkQueue;
}

void DatachunkHandlerPrivate::saveWithExportNotes(const SharedSaveJob &job)
{
    job->notes = savingNotes;
    job->bookmarks = savingBookmarks;
    queueFor(*job).add(job);
    queueFor(*job).start();
}

void DatachunkHandlerPrivate::post(const SaveJob &job, const std::function<void()> &report)
{
    const bool isExport = job.type == DatachunkHelper::CurrentMessages;
    QMetaObject::invokeMethod(
        q,
        [this, isExport, jobGeneration = job.generation, report] {
            // A chunk of a trace that has been cleared since is nobody's business any more.
            if (isExport || jobGeneration == generation)
                report();
        },
        Qt::QueuedConnection);
}

void DatachunkHandlerPrivate::runSave(SaveJob &job)
{
    const QFileInfo target(job.fileName);
    if (!target.absoluteDir().exists())
        QDir().mkdir(target.absolutePath());
    SaveFileWorker worker(job);
    QObject::connect(&worker, &SaveFileWorker::dataFileRemoved,
                     [&] { post(job, [this] { q->dataFileWasRemoved(); }); });
    QObject::connect(&worker, &SaveFileWorker::newDataFile, [&](const QString &time) {
        post(job, [this, time, index = job.chunkIndex] { chunkSaved(index, time); });
    });
    QObject::connect(&worker, &SaveFileWorker::newPartialDataFile,
                     [&](const QString &fileName, const QString &time) {
                         post(job, [this, fileName, time, name = job.importName] {
                             partialChunkSaved(fileName, name, time);
                         });
                     });
    QObject::connect(&worker, &SaveFileWorker::savingFinished, [&](bool success) {
        post(job, [this, success, request = job.packRequest] { exportFinished(request, success); });
    });
    worker.saveToFile();
    if (worker.errorText().isEmpty())
        return;
    const QString error = FileErrors::notWritten(job.fileName, worker.errorText());
    post(job, [this, error] { emit q->newErrorMessage(error); });
}

void DatachunkHandler::waitForChunks()
{
    d->chunkQueue.waitForAll();
}

void DatachunkHandlerPrivate::chunkSaved(quint32 index, const QString &time)
{
    forgetRotatedBuffer();
    zipAfterSaving = false;
    emit q->newDataFile(index, time);
}

void DatachunkHandlerPrivate::exportFinished(quint32 packRequest, bool success)
{
    // A rotation that ended after the export was ordered has cleared the wish, but not for it.
    if (packRequest != 0 && packRequest == packRequests)
        zipAfterSaving = true;
    q->savingFinished(success);
}

void DatachunkHandler::newDataFileSaved(QString time)
{
    quint32 index = 0;
    {
        const QReadLocker locker(&d->lock);
        index = d->chunkCount - 1;
    }
    d->chunkSaved(index, time);
}

void DatachunkHandler::newPartialDataFileSaved(QString savedFileName, QString time)
{
    d->partialChunkSaved(savedFileName, d->loadedFileName, time);
}

void DatachunkHandlerPrivate::partialChunkSaved(const QString &fileName, const QString &importName,
                                                const QString &time)
{
    forgetRotatedBuffer();
    const QPointer<DatachunkHandler> store(q);
    emit q->newPartialDataFile(fileName, importName, time);
    if (store)
        zipAfterSaving = false;
}

void DatachunkHandler::savingFinished(bool success)
{
    d->forgetRotatedBuffer();
    const bool zip = std::exchange(d->zipAfterSaving, false);
    if (zip)
        ++d->packRequests; // the exports behind this one have the same wish, which is used up
    if (zip && success)
        d->archives.run([this] { saveDatachunksToZip(); });
}

void DatachunkHandler::saveMessagesToFile(QString fileName, DatachunkHelper::SavedMessageType type,
                                          QList<unsigned int> selected, int startPosition,
                                          int lastPosition)
{
    SharedSaveJob job;
    {
        const QWriteLocker locker(&d->lock);
        if (type == DatachunkHelper::CurrentMessages) {
            job = std::make_shared<SaveJob>();
            job->messages = d->liveMessages;
            job->packRequest = d->zipAfterSaving ? d->packRequests : 0;
        } else {
            job = d->newChunkJobLocked(type);
            job->messages = d->rotatedBuffer;
            fileName = fillChunkNumber(fileName, job->chunkIndex);
        }
    }
    job->fileName = fileName;
    job->selected = selected;
    job->startPosition = startPosition;
    job->endPosition = quint32(job->messages.size());
    if (lastPosition != 0)
        job->endPosition = quint32(qBound<qint64>(0, qint64(lastPosition) + 1, job->endPosition));
    d->saveWithExportNotes(job);
}

void DatachunkHandler::saveMessages(QString fileName, QList<CAN::CanRxMessage> *messages,
                                    unsigned int endPosition,
                                    DatachunkHelper::SavedMessageType type, int startPosition,
                                    QList<unsigned int> selected)
{
    auto job = std::make_shared<SaveJob>();
    job->fileName = fileName;
    job->type = type;
    if (messages)
        job->messages = toMessageList(*messages);
    job->startPosition = startPosition;
    job->endPosition = endPosition;
    job->selected = selected;
    job->maximumUsedSpace = d->maximumHddSpace;
    {
        const QReadLocker locker(&d->lock);
        job->chunkIndex = d->chunkCount - 1;
        job->generation = d->generation;
    }
    d->saveWithExportNotes(job);
}

bool DatachunkHandler::createContinuousOutputFile(QString fileName)
{
    // What goes wrong at the end of the file before is told of that file.
    const QPointer<DatachunkHandler> store(this);
    finishContinousOutput();
    if (!store)
        return false;
    d->continuousOutputName = fileName;
    d->continuousOutputReported = false;
    return d->continuousOutput->createContinuousOutputFile(fileName);
}

void DatachunkHandler::appendToContinuousOutputFile(CAN::CanRxMessage message)
{
    d->continuousOutput->appendToContinuousOutputFile(message);
    d->reportContinuousOutput();
}

void DatachunkHandler::finishContinousOutput()
{
    d->continuousOutput->finishContinousOutput();
    d->reportContinuousOutput();
}

void DatachunkHandlerPrivate::reportContinuousOutput()
{
    const QString reason = continuousOutput->errorText();
    if (reason.isEmpty() || std::exchange(continuousOutputReported, true))
        return;
    emit q->newErrorMessage(FileErrors::notWritten(continuousOutputName, reason));
}

void DatachunkHandler::exportMessageRange(int firstMessage, int lastMessage, QString saveFileName)
{
    if (lastMessage > d->liveMessageCount()) {
        emit newErrorMessage(tr("Nothing to export."));
        return;
    }
    if (saveFileName.isEmpty()) {
        emit newErrorMessage(tr("No filename specified."));
        return;
    }
    d->savingNotes = d->notesInView();
    saveMessagesToFile(saveFileName, DatachunkHelper::CurrentMessages, {}, firstMessage,
                       lastMessage);
}

void DatachunkHandler::exportMessages(QString fileName, DatachunkHelper::ExportOptions expOptions,
                                      QList<quint32> messagesToExport)
{
    if (d->liveMessageCount() == 0) {
        emit newErrorMessage(tr("Nothing to export."));
        return;
    }
    if (fileName.isEmpty()) {
        emit newErrorMessage(tr("No filename specified."));
        return;
    }
    const bool withNotes = expOptions.testFlag(DatachunkHelper::ExportWithNotes);
    d->savingNotes = withNotes ? d->notesInView() : ChunkFormat::Notes();
    if (d->bookmarkHandler)
        d->savingBookmarks = d->bookmarkHandler->copyOfBookmarks();
    saveMessagesToFile(fileName, DatachunkHelper::CurrentMessages, messagesToExport, 0, 0);
}

void DatachunkHandler::exportAllMessages(QString fileName,
                                         DatachunkHelper::ExportOptions expOptions)
{
    const bool asChunk = fileName.endsWith(QLatin1String("dck"));
    if (asChunk && d->chunkFolder.exists())
        fileName = d->chunkFolder.dir().absoluteFilePath(QStringLiteral("zlastChunk.dck"));
    exportMessages(fileName, expOptions);
}
