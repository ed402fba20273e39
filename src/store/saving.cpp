// The store's part of saving: what goes into a job, and what its reports lead to.

#include "datachunkhandler.h"
#include "datachunkhandler_p.h"
#include "fileerrors.h"

#include <QDeadlineTimer>

#include <algorithm>
#include <utility>

SharedSaveJob DatachunkHandlerPrivate::newJob(DatachunkHelper::SavedMessageType type,
                                              const QString &fileName) const
{
    auto job = std::make_shared<SaveJob>();
    job->type = type;
    job->fileName = fileName;
    job->isPrivate = chunkFolder.holds(fileName);
    job->notes = exportMarks.notes;
    job->bookmarks = exportMarks.bookmarks;
    return job;
}

void DatachunkHandlerPrivate::postReport(const SaveReport &report)
{
    QMetaObject::invokeMethod(
        q, [this, report] { saveEnded(report); }, Qt::QueuedConnection);
}

void DatachunkHandlerPrivate::saveEnded(const SaveReport &report)
{
    const bool isExport = report.type == DatachunkHelper::CurrentMessages;
    const SaveOutcome &outcome = report.outcome;
    // A chunk of a trace that has been cleared since is nobody's business any more.
    if ((!isExport && !chunkSaver.isCurrent(report)) || outcome.result == SaveOutcome::GivenUp)
        return;
    const QPointer<DatachunkHandler> store(q);
    reportSaved(report);
    if (store && report.chunkRemoved)
        q->dataFileWasRemoved();
    if (store && !outcome.errorText.isEmpty())
        emit q->newErrorMessage(FileErrors::notWritten(report.fileName, outcome.errorText));
}

void DatachunkHandlerPrivate::reportSaved(const SaveReport &report)
{
    const SaveOutcome &outcome = report.outcome;
    if (outcome.result == SaveOutcome::TooManyWaiting) {
        if (!std::exchange(slowDiskReported, true)) {
            emit q->newErrorMessage(
                DatachunkHandler::tr("The disk takes messages more slowly than they arrive. The "
                                     "oldest ones that waited for it are lost."));
        }
    } else if (outcome.result == SaveOutcome::NothingToSave || !isChunkName(report.fileName)) {
        return;
    } else if (outcome.result == SaveOutcome::NotOpened) {
        exportFinished(report.packRequest, false);
    } else if (report.type == DatachunkHelper::FullBuffer) {
        chunkSaved(report.chunkIndex, outcome.timeText);
    } else if (report.type == DatachunkHelper::PartialBuffer) {
        partialChunkSaved(report.fileName, report.importName, outcome.timeText);
    } else {
        exportFinished(report.packRequest, true);
    }
}

void DatachunkHandlerPrivate::chunkSaved(quint32 index, const QString &time)
{
    trace.dropRotated();
    zipAfterSaving = false;
    emit q->newDataFile(index, time);
}

void DatachunkHandlerPrivate::exportFinished(quint32 packRequest, bool success)
{
    // A rotation that ended meanwhile cleared zipAfterSaving; this export still carries the
    // request that it was ordered with.
    if (packRequest != 0 && packRequest == packRequests)
        zipAfterSaving = true;
    q->savingFinished(success);
}

void DatachunkHandler::newDataFileSaved(QString time)
{
    d->chunkSaved(d->chunkSaver.chunkCount() - 1, time);
}

void DatachunkHandler::newPartialDataFileSaved(QString savedFileName, QString time)
{
    d->partialChunkSaved(savedFileName, d->loadedFileName, time);
}

void DatachunkHandlerPrivate::partialChunkSaved(const QString &fileName, const QString &importName,
                                                const QString &time)
{
    trace.dropRotated();
    const QPointer<DatachunkHandler> store(q);
    emit q->newPartialDataFile(fileName, importName, time);
    if (store)
        zipAfterSaving = false;
}

void DatachunkHandler::savingFinished(bool success)
{
    d->trace.dropRotated();
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
    const bool isExport = type == DatachunkHelper::CurrentMessages;
    const SharedSaveJob job = d->newJob(type, fileName);
    job->selected = selected;
    job->startPosition = startPosition;
    job->packRequest = isExport && d->zipAfterSaving ? d->packRequests : 0;
    job->messages = isExport ? d->trace.liveMessages() : d->trace.rotatedMessages();
    job->endPosition = quint32(job->messages.size());
    if (lastPosition != 0)
        job->endPosition = quint32(qBound<qint64>(0, qint64(lastPosition) + 1, job->endPosition));
    if (isExport) {
        d->exports.add(job);
        return;
    }
    d->chunkSaver.add(job);
    d->chunkSaver.start();
}

void DatachunkHandler::saveMessages(QString fileName, QList<CAN::CanRxMessage> *messages,
                                    unsigned int endPosition,
                                    DatachunkHelper::SavedMessageType type, int startPosition,
                                    QList<unsigned int> selected)
{
    const SharedSaveJob job = d->newJob(type, fileName);
    if (messages)
        job->messages = toMessageList(*messages);
    job->startPosition = startPosition;
    job->endPosition = endPosition;
    job->selected = selected;
    if (type == DatachunkHelper::CurrentMessages) {
        d->exports.add(job);
        return;
    }
    d->chunkSaver.addUnnumbered(job);
    d->chunkSaver.start();
}

bool DatachunkHandler::waitForSaves(int milliseconds)
{
    const QDeadlineTimer end(milliseconds);
    const auto haveEnded = [&end](const auto &jobs) {
        return std::all_of(jobs.begin(), jobs.end(),
                           [&end](const SharedSaveJob &job) { return job->waitForFinished(end); });
    };
    return haveEnded(d->chunkSaver.unfinished()) && haveEnded(d->exports.unfinished());
}

bool DatachunkHandler::createContinuousOutputFile(QString fileName)
{
    // What goes wrong at the end of the file before is told of that file.
    const QPointer<DatachunkHandler> store(this);
    finishContinousOutput();
    if (!store)
        return false;
    d->continuousOutputReported = false;
    return d->continuousOutput->create(fileName);
}

void DatachunkHandler::appendToContinuousOutputFile(CAN::CanRxMessage message)
{
    d->continuousOutput->append(message);
    d->reportContinuousOutput();
}

void DatachunkHandler::finishContinousOutput()
{
    d->continuousOutput->finish();
    d->reportContinuousOutput();
}

void DatachunkHandlerPrivate::reportContinuousOutput()
{
    const QString reason = continuousOutput->errorText();
    if (reason.isEmpty() || std::exchange(continuousOutputReported, true))
        return;
    emit q->newErrorMessage(FileErrors::notWritten(continuousOutput->fileName(), reason));
}

void DatachunkHandler::exportMessageRange(int firstMessage, int lastMessage, QString saveFileName)
{
    if (lastMessage > d->trace.liveMessages().size()) {
        emit newErrorMessage(tr("Nothing to export."));
        return;
    }
    if (saveFileName.isEmpty()) {
        emit newErrorMessage(tr("No filename specified."));
        return;
    }
    d->exportMarks.notes = d->notes.live().notes;
    saveMessagesToFile(saveFileName, DatachunkHelper::CurrentMessages, {}, firstMessage,
                       lastMessage);
}

void DatachunkHandler::exportMessages(QString fileName, DatachunkHelper::ExportOptions expOptions,
                                      QList<quint32> messagesToExport)
{
    if (d->trace.liveMessages().isEmpty()) {
        emit newErrorMessage(tr("Nothing to export."));
        return;
    }
    if (fileName.isEmpty()) {
        emit newErrorMessage(tr("No filename specified."));
        return;
    }
    const bool withNotes = expOptions.testFlag(DatachunkHelper::ExportWithNotes);
    TraceNotes::Marks live = d->notes.live();
    d->exportMarks.notes = withNotes ? live.notes : Notes();
    if (d->notes.hasBookmarks())
        d->exportMarks.bookmarks = live.bookmarks;
    saveMessagesToFile(fileName, DatachunkHelper::CurrentMessages, messagesToExport, 0, 0);
}

void DatachunkHandler::exportAllMessages(QString fileName,
                                         DatachunkHelper::ExportOptions expOptions)
{
    if (isChunkName(fileName) && d->chunkFolder.exists())
        fileName = d->chunkFolder.path() + QLatin1String("/zlastChunk.dck");
    exportMessages(fileName, expOptions);
}
