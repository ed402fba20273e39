#include "continuousoutput.h"

#include "chunknames.h"
#include "chunkversion.h"
#include "filelock.h"
#include "savejob.h"

#include <QDebug>

ContinuousOutput::~ContinuousOutput()
{
    finish();
}

bool ContinuousOutput::create(const QString &fileName, const QString &timeText,
                              const ChunkFormat::Notes &notes,
                              const ChunkFormat::Bookmarks &bookmarks)
{
    setCurrentChunkVersion(ChunkFormat::currentVersion);
    if (!isChunkName(fileName))
        return false;
    finish();
    error.clear();
    file.setFileName(fileName);
    if (!file.open(QIODevice::ReadWrite | QIODevice::Truncate))
        return false;
    FileLock::tryLock(file.handle());
    ChunkFormat::Stream stream(&file);
    ChunkFormat::writeHeader(stream, timeText, notes, bookmarks);
    return true;
}

bool ContinuousOutput::create(const QString &fileName)
{
    const CAN::CanRxMessage none;
    return create(fileName, ChunkFormat::timeText(none, none), {}, {});
}

void ContinuousOutput::append(const CAN::CanRxMessage &message)
{
    if (!file.isOpen())
        return;
    char record[ChunkFormat::maxRecordSize];
    const int size = ChunkFormat::encodeRecord(record, message, ChunkFormat::currentVersion);
    if (file.write(record, size) != size)
        noteError();
}

void ContinuousOutput::flush()
{
    if (file.isOpen() && !file.flush())
        noteError();
}

void ContinuousOutput::finish()
{
    if (!file.isOpen())
        return;
    flush();
    file.close();
    if (file.error() != QFileDevice::NoError)
        noteError();
}

void ContinuousOutput::noteError()
{
    if (!error.isEmpty())
        return;
    error = file.errorString();
    qDebug() << "void SaveFileWorker::finishContinousOutput()" << error;
}
