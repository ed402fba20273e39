// The store's part of loading and splitting chunk files.

#include "chunkversion.h"
#include "datachunkhandler.h"
#include "datachunkhandler_p.h"
#include "fileerrors.h"
#include "regularfile.h"

#include <QFileInfo>
#include <QMutexLocker>
#include <QWriteLocker>

#include <utility>

using ChunkFormat::BookmarkMap;

bool DatachunkHandlerPrivate::readChunk(const QString &fileName, BookmarkMap bookmarkMap)
{
    bool read = false;
    if (!withinMemory([&] { read = readChunkWithinMemory(fileName, bookmarkMap); }))
        emit q->newErrorMessage(FileErrors::outOfMemory(fileName));
    return read;
}

bool DatachunkHandlerPrivate::readChunkWithinMemory(const QString &fileName,
                                                    BookmarkMap bookmarkMap)
{
    RegularFile file(fileName);
    if (!file.openForReading())
        return false;
    QDataStream stream(&file);
    const ChunkFormat::Preamble preamble = ChunkFormat::readPreamble(stream);
    if (preamble.version > ChunkFormat::currentVersion) {
        refuseNewerVersion();
        return false;
    }
    const ChunkFormat::Maps maps = ChunkFormat::readMaps(stream, preamble.version, bookmarkMap);
    setCurrentChunkVersion(preamble.version);
    if (preamble.version >= ChunkFormat::notesSince) {
        const QMutexLocker locker(&notesLock);
        notes = maps.notes;
    }
    if (preamble.version >= ChunkFormat::bookmarksSince && bookmarkMap == BookmarkMap::Read)
        setBookmarks(maps.bookmarks);
    const QPointer<DatachunkHandler> store(q);
    emit q->chunkContainsFdMessage(readRecords(file, preamble.version));
    if (store && !file.readErrorText().isEmpty())
        emit store->newErrorMessage(file.readErrorText());
    return true;
}

void DatachunkHandlerPrivate::refuseNewerVersion()
{
    const QPointer<DatachunkHandler> store(q);
    q->showDataChunkVersionMismatch();
    if (store)
        q->goLive();
}

bool DatachunkHandlerPrivate::readRecords(QIODevice &file, quint32 version)
{
    bool containsFdFrame = false;
    CAN::CanRxMessage message;
    ChunkFormat::RecordReader reader(file, version);
    // Live messages go on arriving, so the lock is not held while the disk is read.
    MessageList messages = pagedMessages;
    while (reader.next(message)) {
        messages.append(message);
        containsFdFrame |= message.fdFrame;
        insertLine(message);
    }
    const QWriteLocker locker(&lock);
    pagedMessages = std::move(messages);
    return containsFdFrame;
}

bool DatachunkHandler::loadDckFile(QString fileName)
{
    return !d->refuseDuringImport() && d->readChunk(fileName, BookmarkMap::Read);
}

bool DatachunkHandler::appendDckFile(QString fileName)
{
    return !d->refuseDuringImport() && d->readChunk(fileName, BookmarkMap::NotRead);
}

bool DatachunkHandler::loadDataFromFile(int number)
{
    if (!d->chunkFolder.exists())
        return true;
    if (const SharedSaveJob job = d->chunkSaver.pending(quint32(number))) {
        d->showPending(*job);
        return true;
    }
    const QString name = QStringLiteral("/tmpData%1.dck").arg(number);
    loadFile(d->chunkFolder.path() + name, true, DatachunkHelper::ChunkFile,
             DatachunkHelper::CurrentMessages, QString());
    return true;
}

void DatachunkHandlerPrivate::showPending(const SaveJob &job)
{
    if (refuseDuringImport())
        return;
    fileToLoad = job.fileName;
    const ImportRun run(q);
    leaveLiveMode();
    if (!run.goesOn()) {
        if (run.storeExists())
            endCancelledImport();
        return;
    }
    bool containsFdFrame = false;
    MessageList messages;
    for (int i = 0; i < job.messages.size(); ++i) {
        messages.append(ChunkFormat::asInChunk(job.messages.at(i)));
        containsFdFrame |= messages.at(i).fdFrame;
        insertLine(messages.at(i));
    }
    {
        const QWriteLocker locker(&lock);
        pagedMessages = std::move(messages);
        const QMutexLocker notesLocker(&notesLock);
        notes = job.notes;
        notes.detach();
    }
    setBookmarks(job.bookmarks);
    setCurrentChunkVersion(ChunkFormat::currentVersion);
    emit q->chunkContainsFdMessage(containsFdFrame);
    if (run.goesOn())
        finishImport(run, false);
    else if (run.storeExists())
        endCancelledImport();
}

void DatachunkHandler::loadDataFromFile(QString fileName, DatachunkHelper::SavedMessageType smt)
{
    loadFile(fileName, false, DatachunkHelper().getImportFileType(fileName), smt, QString());
}

bool DatachunkHandler::splitFile(QString fileName, unsigned int messagesPerFile)
{
    bool split = false;
    if (!withinMemory([&] { split = d->split(fileName, messagesPerFile); }))
        emit newErrorMessage(FileErrors::outOfMemory(fileName));
    return split;
}

bool DatachunkHandlerPrivate::split(const QString &fileName, quint32 messagesPerFile)
{
    const QFileInfo source(fileName);
    RegularFile file(fileName);
    if (messagesPerFile == 0 || !source.isFile())
        return false;
    const QString baseName = source.baseName();
    QDir folder = source.absoluteDir();
    const QString folderName = baseName + QLatin1String("_splitted");
    folder.mkdir(folderName);
    if (!folder.cd(folderName) || !file.openForReading())
        return false;
    QDataStream stream(&file);
    const ChunkFormat::Preamble preamble = ChunkFormat::readPreamble(stream);
    if (preamble.version > ChunkFormat::currentVersion) {
        refuseNewerVersion();
        return false;
    }
    ChunkFormat::readMaps(stream, preamble.version);
    setCurrentChunkVersion(preamble.version);
    const QString partTemplate = folder.absoluteFilePath(baseName + QLatin1String("_%1.dck"));
    const QPointer<DatachunkHandler> store(q);
    const bool good = splitRecords(file, preamble.version, partTemplate, messagesPerFile);
    if (store && !file.readErrorText().isEmpty())
        emit store->newErrorMessage(file.readErrorText());
    return good && file.readErrorText().isEmpty();
}

bool DatachunkHandlerPrivate::splitRecords(QIODevice &file, quint32 version,
                                           const QString &partTemplate, quint32 messagesPerFile)
{
    // Eight bits on purpose: part 256 is part 0 again.
    quint8 part = 0;
    quint32 count = 0;
    CAN::CanRxMessage message;
    ChunkFormat::RecordReader reader(file, version);
    const QPointer<DatachunkHandler> store(q);
    while (store && reader.next(message)) {
        if (count % messagesPerFile == 0) {
            q->finishContinousOutput();
            if (!store || (count != 0 && !continuousOutput.errorText().isEmpty()))
                return false;
            if (!q->createContinuousOutputFile(fillChunkNumber(partTemplate, part++)))
                return false;
        }
        message.messageNumber = count++;
        q->appendToContinuousOutputFile(message);
    }
    if (!store)
        return false;
    continuousOutput.flush();
    reportContinuousOutput();
    return store && (count == 0 || continuousOutput.errorText().isEmpty());
}
