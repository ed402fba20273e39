#include "savefileworker.h"

#include "chunkformat.h"
#include "chunkversion.h"
#include "diskbudget.h"
#include "savejob.h"
#include "textexport.h"

#include <QDebug>
#include <QFileInfo>

#include <utility>

namespace {

bool isChunkName(const QString &fileName)
{
    return fileName.endsWith(QLatin1String("dck"));
}

} // namespace

SaveFileWorker::SaveFileWorker(QObject *parent)
    : QObject(parent), ownJob(std::make_unique<SaveJob>()), job(ownJob.get())
{
}

SaveFileWorker::SaveFileWorker(QString fileName, QList<CAN::CanRxMessage> *messages,
                               DatachunkHelper::SavedMessageType type,
                               unsigned int maximumUsedSpace, unsigned int endPosition,
                               QMap<unsigned int, QString> notes,
                               QMap<unsigned int, CanMessageBookmark> bookmarks, int startPosition,
                               QList<unsigned int> selected, QObject *parent)
    : SaveFileWorker(parent)
{
    job->fileName = std::move(fileName);
    job->type = type;
    if (messages)
        job->messages = toMessageList(*messages);
    job->startPosition = startPosition;
    job->endPosition = endPosition;
    job->selected = std::move(selected);
    job->notes = std::move(notes);
    job->bookmarks = std::move(bookmarks);
    job->maximumUsedSpace = maximumUsedSpace;
}

SaveFileWorker::SaveFileWorker(SaveJob &job) : job(&job) { }

SaveFileWorker::~SaveFileWorker() = default;

QString SaveFileWorker::errorText() const
{
    return lastError;
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
    const SaveOutcome outcome = writeChunkFile(*job);
    lastError = outcome.errorText;
    if (outcome.result == SaveOutcome::GivenUp)
        return;
    if (outcome.result == SaveOutcome::NotOpened)
        emit savingFinished(false);
    else if (job->type == DatachunkHelper::FullBuffer)
        emit newDataFile(outcome.timeText);
    else if (job->type == DatachunkHelper::PartialBuffer)
        emit newPartialDataFile(job->fileName, outcome.timeText);
    else
        emit savingFinished(true);
    if (job->type == DatachunkHelper::FullBuffer)
        checkUsedSpace(job->fileName);
}

void SaveFileWorker::checkUsedSpace(QString fileName)
{
    if (DiskBudget::removeOldestAbove(QFileInfo(fileName).absoluteDir(), job->maximumUsedSpace))
        emit dataFileRemoved();
}

void SaveFileWorker::exportMessagesToTxt()
{
    lastError = writeTextFile(*job).errorText;
}

QString SaveFileWorker::getOldStyleTxtOutput(CAN::CanRxMessage message)
{
    return TextExport::messageLine(message, job->notes.value(message.messageNumber));
}

QString SaveFileWorker::writeFileHeader(QDataStream &stream, unsigned int first, unsigned int last)
{
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
    setCurrentChunkVersion(ChunkFormat::currentVersion);
    if (!isChunkName(fileName))
        return false;
    finishContinousOutput();
    lastError.clear();
    continuousOutput.setFileName(fileName);
    if (!continuousOutput.open(QIODevice::ReadWrite | QIODevice::Truncate))
        return false;
    QDataStream stream(&continuousOutput);
    writeFileHeader(stream, 0, 1);
    return true;
}

void SaveFileWorker::appendToContinuousOutputFile(CAN::CanRxMessage message)
{
    if (!continuousOutput.isOpen())
        return;
    char record[ChunkFormat::maxRecordSize];
    const int size = ChunkFormat::encodeRecord(record, message, ChunkFormat::currentVersion);
    if (continuousOutput.write(record, size) != size)
        noteOutputError();
}

void SaveFileWorker::flushContinuousOutput()
{
    if (continuousOutput.isOpen() && !continuousOutput.flush())
        noteOutputError();
}

void SaveFileWorker::finishContinousOutput()
{
    if (!continuousOutput.isOpen())
        return;
    flushContinuousOutput();
    continuousOutput.close();
    if (continuousOutput.error() != QFileDevice::NoError)
        noteOutputError();
}

void SaveFileWorker::noteOutputError()
{
    if (!lastError.isEmpty())
        return;
    lastError = continuousOutput.errorString();
    qDebug() << "void SaveFileWorker::finishContinousOutput()" << lastError;
}
