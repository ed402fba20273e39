#include "datachunkhandler.h"

#include "datachunkhandler_p.h"
#include "tracetimeline.h"

DatachunkHandler::DatachunkHandler(unsigned int maxMessageCount, QObject *parent)
    : QObject(parent), d(std::make_unique<DatachunkHandlerPrivate>(this, maxMessageCount))
{
}

DatachunkHandler::~DatachunkHandler()
{
    d->stop();
}

void DatachunkHandler::setBookmarkhandler(QPointer<BookmarkHandler> bookmarkHandler)
{
    d->trace.notes().setBookmarkHandler(bookmarkHandler);
}

TraceTimeline DatachunkHandler::timeline() const
{
    return TraceTimeline(std::make_shared<StoreSource>(d->recorded));
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

quint64 DatachunkHandler::unwrittenMessageCount() const
{
    return d->chunkSaver.unwrittenCount();
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
    return d->chunkSaver.folder().path();
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

bool DatachunkHandler::rotate()
{
    const bool rotated = d->trace.rotate();
    if (rotated)
        d->finishRotation();
    return rotated;
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
    d->showNewLiveList();
}

void DatachunkHandler::goLive()
{
    d->browsing.goLive();
}

void DatachunkHandler::clearAllMessages()
{
    const QPointer<DatachunkHandler> store(this);
    d->browsing.newWish();
    if (d->browsing.isImporting())
        goLive();
    if (!store)
        return;
    {
        // Chunks of the new trace must not be there yet when those of the old one are removed.
        const ChunkSaver::Pause pause(d->chunkSaver);
        d->trace.clear();
        d->chunkSaver.removeChunks();
        d->saveReports.traceCleared();
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
    d->browsing.tellLastError();
}

void DatachunkHandler::setZipFileName(QString fileName)
{
    d->archives.setArchiveName(fileName);
}

void DatachunkHandler::setZipAfterSaving(bool on)
{
    d->saveReports.packWish().set(on);
}

void DatachunkHandler::saveDatachunksToZip()
{
    d->archiving.pack();
}

void DatachunkHandler::sortZipFile(QString zipName, QMap<double, QString> &order)
{
    d->archives.sortChunks(zipName, order);
}

bool DatachunkHandler::loadZipMerged(QString zipName)
{
    return !d->browsing.refuseDuringImport() && d->archiving.merge(zipName, d->browsing.newWish());
}

void DatachunkHandler::importZipAndMerge(QString zipName)
{
    if (d->browsing.refuseDuringImport())
        return;
    const quint32 wish = d->browsing.newWish();
    d->archives.later([this, zipName, wish] { d->archiving.merge(zipName, wish); });
}

bool DatachunkHandler::loadZipFile(QString zipName)
{
    return d->archiving.unpack(zipName);
}
