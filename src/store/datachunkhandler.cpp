#include "datachunkhandler.h"

#include "datachunkhandler_p.h"

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
    return d->trace.limit();
}

void DatachunkHandler::setContinuesMode(bool on)
{
    d->trace.setContinuous(on);
    d->chunkSaver.setBudget(0);
}

bool DatachunkHandler::getContinuesMode()
{
    return d->trace.isContinuous();
}

bool DatachunkHandler::getIsLive()
{
    return d->trace.isLive();
}

QString DatachunkHandler::chunkFolderPath() const
{
    return d->chunkFolder.path();
}

void DatachunkHandler::appendCanMessage(CAN::CanRxMessage message)
{
    if (d->trace.isContinuous()) {
        appendCanMessageContinuesMode(message);
        return;
    }
    const Trace::Appended appended = d->trace.append(message);
    if (appended.rotated)
        d->finishRotation();
    else if (appended.lineIsNew)
        emit newLine(static_cast<unsigned char>(message.line));
}

void DatachunkHandler::appendCanMessageContinuesMode(CAN::CanRxMessage &message)
{
    if (d->trace.appendContinuous(message))
        emit newLine(static_cast<unsigned char>(message.line));
}

void DatachunkHandler::addnewtestmessage()
{
    appendCanMessage(CAN::CanRxMessage());
}

void DatachunkHandler::handleFullBuffer()
{
    const QPointer<DatachunkHandler> store(this);
    if (!d->trace.isLive())
        return;
    emit informAboutClearStart();
    if (store && d->trace.showNewLiveList())
        d->trace.whileReading([this] { emit informAboutCleared(d->trace.isLive()); });
}

void DatachunkHandler::goLive()
{
    if (d->trace.isLive() && !d->importRunning)
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
        d->trace.clear();
        d->chunkSaver.removeChunks();
        d->slowDiskReported = false;
    }
    if (d->trace.isLive())
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
