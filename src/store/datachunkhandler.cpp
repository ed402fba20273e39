#include "datachunkhandler.h"

#include "datachunkhandler_p.h"

#include <QReadLocker>
#include <QWriteLocker>

#include <utility>

namespace {
constexpr quint32 continuousModeLimit = 10000;
}

DatachunkHandler::DatachunkHandler(unsigned int maxMessageCount, QObject *parent)
    : QObject(parent), d(std::make_unique<DatachunkHandlerPrivate>(this, maxMessageCount))
{
}

DatachunkHandler::~DatachunkHandler()
{
    d->stopping = true;
    d->poolTasks.stop();
    d->archives.stop();
}

void DatachunkHandler::setBookmarkhandler(QPointer<BookmarkHandler> bookmarkHandler)
{
    const QWriteLocker locker(&d->lock);
    d->notes.setBookmarkHandler(bookmarkHandler);
}

void DatachunkHandler::setMaximumHDDSpace(unsigned int space)
{
    d->chunkSaver.setBudget(space);
}

void DatachunkHandler::setMaximumWaitingMessages(unsigned int count)
{
    d->chunkSaver.setMostWaiting(count);
}

quint64 DatachunkHandler::givenUpMessageCount() const
{
    return d->chunkSaver.givenUpCount();
}

unsigned int DatachunkHandler::getMaxMessageCount()
{
    return d->maxMessageCount;
}

void DatachunkHandler::setContinuesMode(bool on)
{
    const QWriteLocker locker(&d->lock);
    d->continuesMode = on;
    d->chunkSaver.setBudget(0);
    d->maxMessageCount = continuousModeLimit;
    d->droppedMessageCount = 0;
}

bool DatachunkHandler::getContinuesMode()
{
    return d->continuesMode;
}

bool DatachunkHandler::getIsLive()
{
    return d->isLive;
}

QString DatachunkHandler::chunkFolderPath() const
{
    return d->chunkFolder.path();
}

void DatachunkHandler::appendCanMessage(CAN::CanRxMessage message)
{
    if (d->continuesMode) {
        appendCanMessageContinuesMode(message);
        return;
    }
    bool rotated = false;
    bool lineIsNew = false;
    {
        const QWriteLocker locker(&d->lock);
        if (d->bufferIsFull(d->liveMessages)) {
            d->rotateLocked();
            rotated = true;
        }
        d->numberAndAppendLocked(message);
        d->notes.attachToNext(message.messageNumber);
        lineIsNew = d->view == DatachunkHandlerPrivate::View::Live && d->insertLine(message);
    }
    if (rotated)
        d->finishRotation();
    else if (lineIsNew)
        emit newLine(static_cast<unsigned char>(message.line));
}

void DatachunkHandler::appendCanMessageContinuesMode(CAN::CanRxMessage &message)
{
    {
        const QWriteLocker locker(&d->lock);
        if (quint32(d->liveMessages.size()) >= d->maxMessageCount) {
            d->liveMessages.removeFirst();
            ++d->droppedMessageCount;
        }
        d->numberAndAppendLocked(message);
    }
    if (d->insertLine(message))
        emit newLine(static_cast<unsigned char>(message.line));
}

void DatachunkHandler::addnewtestmessage()
{
    appendCanMessage(CAN::CanRxMessage());
}

void DatachunkHandler::handleFullBuffer()
{
    const QPointer<DatachunkHandler> store(this);
    if (!d->isLive)
        return;
    emit informAboutClearStart();
    if (!store)
        return;
    MessageList unused;
    {
        const QWriteLocker locker(&d->lock);
        if (!d->isLive)
            return;
        d->view = DatachunkHandlerPrivate::View::Live;
        unused = std::exchange(d->rotatedBuffer, {});
    }
    const QReadLocker locker(&d->lock);
    emit informAboutCleared(d->isLive);
}

void DatachunkHandler::goLive()
{
    if (d->isLive && !d->importRunning)
        return;
    d->importCancelled = true;
    ++d->viewRequests;
    d->showLive();
}

void DatachunkHandler::clearAllMessages()
{
    const QPointer<DatachunkHandler> store(this);
    ++d->viewRequests;
    if (d->importRunning)
        goLive();
    if (!store)
        return;
    {
        // Chunks of the new trace must not be there yet when those of the old one are removed.
        const ChunkSaver::Pause pause(d->chunkSaver);
        MessageList unused;
        {
            const QWriteLocker locker(&d->lock);
            if (d->isLive)
                emit informAboutClearStart();
            unused = d->clearLocked();
        }
        d->chunkFolder.removeChunks();
        d->slowDiskReported = false;
    }
    if (d->isLive)
        emit informAboutCleared(true);
    if (store)
        updateLines();
}

void DatachunkHandler::dataFileWasRemoved()
{
    emit dataFileRemoved();
}

void DatachunkHandler::showFileLoadingError()
{
    emit newErrorMessage(tr("The file at %1 does not exists.").arg(d->fileToLoad));
}

void DatachunkHandler::showDataChunkVersionMismatch()
{
    emit newErrorMessage(tr("This import file was created with a newer version of this tool and "
                            "could not be imported.\nGoing live again."));
}

void DatachunkHandler::showTooMuchMessagesError(unsigned int minimum)
{
    emit newErrorMessage(tr("The file contains more messages than actually could be importet. \n\n"
                            "Please increase the maximum message count. \nSet it under "
                            "Settings->Perfomance to a minimum of %1 to import the whole file")
                             .arg(minimum));
}

void DatachunkHandler::informAboutLastError()
{
    emit newErrorMessage(d->lastError);
}
