// The store's doors for saving and exporting.

#include "datachunkhandler.h"
#include "datachunkhandler_p.h"

#include <QDeadlineTimer>

#include <algorithm>

void DatachunkHandler::newDataFileSaved(QString time)
{
    d->saveReports.chunkSaved(d->chunkSaver.chunkCount() - 1, time);
}

void DatachunkHandler::newPartialDataFileSaved(QString savedFileName, QString time)
{
    d->saveReports.partialChunkSaved(savedFileName, d->partialChunks.importName(), time);
}

void DatachunkHandler::savingFinished(bool success)
{
    d->saveReports.exportEnded(0, success);
}

void DatachunkHandler::saveMessagesToFile(QString fileName, DatachunkHelper::SavedMessageType type,
                                          QList<unsigned int> selected, int startPosition,
                                          int lastPosition)
{
    const bool isExport = type == DatachunkHelper::CurrentMessages;
    const SharedSaveJob job = d->newJob(type, fileName);
    job->selected = selected;
    job->startPosition = startPosition;
    job->packWish = isExport ? d->saveReports.packWish().forExport() : 0;
    job->messages = isExport ? d->trace.liveMessages() : d->trace.rotatedMessages();
    job->endPosition = quint32(job->messages.size());
    if (lastPosition != 0)
        job->endPosition =
            quint32(std::clamp<qint64>(qint64(lastPosition) + 1, 0, job->endPosition));
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
    return d->continuousOutput.create(fileName);
}

void DatachunkHandler::appendToContinuousOutputFile(CAN::CanRxMessage message)
{
    d->continuousOutput.append(message);
}

void DatachunkHandler::finishContinousOutput()
{
    d->continuousOutput.finish();
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
    d->exportMarks.notes = d->trace.notes().live().notes;
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
    TraceNotes::Marks live = d->trace.notes().live();
    d->exportMarks.notes = withNotes ? live.notes : Notes();
    if (d->trace.notes().hasBookmarks())
        d->exportMarks.bookmarks = live.bookmarks;
    saveMessagesToFile(fileName, DatachunkHelper::CurrentMessages, messagesToExport, 0, 0);
}

void DatachunkHandler::exportAllMessages(QString fileName,
                                         DatachunkHelper::ExportOptions expOptions)
{
    const ChunkFolder &folder = d->chunkSaver.folder();
    if (isChunkName(fileName) && folder.exists())
        fileName = folder.path() + QLatin1String("/zlastChunk.dck");
    exportMessages(fileName, expOptions);
}
