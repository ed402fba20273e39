#include "savefileworker.h"

#include "chunkformat.h"
#include "chunknames.h"
#include "chunkversion.h"
#include "continuousoutput.h"
#include "diskbudget.h"
#include "savejob.h"
#include "textexport.h"

#include <QDebug>
#include <QFileInfo>

#include <utility>

SaveFileWorker::SaveFileWorker(QObject *parent)
    : QObject(parent), messages(nullptr), job(std::make_unique<SaveJob>()),
      continuousOutput(std::make_unique<ContinuousOutput>())
{
}

SaveFileWorker::SaveFileWorker(QString fileName, QList<CAN::CanRxMessage> *messages,
                               DatachunkHelper::SavedMessageType type,
                               unsigned int maximumUsedSpace, unsigned int endPosition,
                               QMap<unsigned int, QString> notes,
                               QMap<unsigned int, CanMessageBookmark> bookmarks, int startPosition,
                               QList<unsigned int> selected, QObject *parent)
    : QObject(parent), messages(messages), job(std::make_unique<SaveJob>()),
      continuousOutput(std::make_unique<ContinuousOutput>())
{
    job->fileName = std::move(fileName);
    job->type = type;
    job->startPosition = startPosition;
    job->endPosition = endPosition;
    job->selected = std::move(selected);
    job->notes = std::move(notes);
    job->bookmarks = std::move(bookmarks);
    job->maximumUsedSpace = maximumUsedSpace;
}

SaveFileWorker::~SaveFileWorker() = default;

QString SaveFileWorker::errorText() const
{
    return lastError.isEmpty() ? continuousOutput->errorText() : lastError;
}

void SaveFileWorker::readMessages()
{
    job->messages = messages ? toMessageList(*messages) : MessageList();
}

void SaveFileWorker::saveToFile()
{
    if (!isChunkName(job->fileName))
        exportMessagesToTxt();
    else if (job->endPosition != 0)
        saveChunk();
    emit ready();
}

void SaveFileWorker::saveChunk()
{
    readMessages();
    const Outcome outcome = writeChunkFile(*job);
    lastError = outcome.text;
    if (outcome.kind == Outcome::NotOpened)
        emit savingFinished(false);
    else if (job->type == DatachunkHelper::FullBuffer)
        emit newDataFile(chunkTimeText(*job));
    else if (job->type == DatachunkHelper::PartialBuffer)
        emit newPartialDataFile(job->fileName, chunkTimeText(*job));
    else
        emit savingFinished(true);
    if (job->type == DatachunkHelper::FullBuffer)
        checkUsedSpace(job->fileName);
}

void SaveFileWorker::checkUsedSpace(QString fileName)
{
    DiskBudget budget(QFileInfo(fileName).absolutePath(), DiskBudget::Folder::Foreign);
    if (budget.removeOldestAbove(job->maximumUsedSpace))
        emit dataFileRemoved();
}

void SaveFileWorker::exportMessagesToTxt()
{
    readMessages();
    lastError = writeTextFile(*job).text;
}

QString SaveFileWorker::getOldStyleTxtOutput(CAN::CanRxMessage message)
{
    return TextExport::messageLine(message, job->notes.value(message.messageNumber));
}

QString SaveFileWorker::writeFileHeader(QDataStream &stream, unsigned int first, unsigned int last)
{
    readMessages();
    const QString time = chunkTimeText(job->messages, first, last);
    ChunkFormat::writeHeader(stream, time, job->notes, job->bookmarks);
    return time;
}

void SaveFileWorker::msgToStream(QDataStream &stream, CAN::CanRxMessage message)
{
    ChunkFormat::writeRecord(stream, message, currentChunkVersion());
}

void SaveFileWorker::msgFromStream(QDataStream &stream, CAN::CanRxMessage &message)
{
    ChunkFormat::readRecord(stream, message, currentChunkVersion());
}

bool SaveFileWorker::createContinuousOutputFile(QString fileName)
{
    readMessages();
    lastError.clear();
    return continuousOutput->create(fileName, chunkTimeText(job->messages, 0, 1), job->notes,
                                    job->bookmarks);
}

void SaveFileWorker::appendToContinuousOutputFile(CAN::CanRxMessage message)
{
    continuousOutput->append(message);
}

void SaveFileWorker::flushContinuousOutput()
{
    continuousOutput->flush();
}

void SaveFileWorker::finishContinousOutput()
{
    continuousOutput->finish();
}
