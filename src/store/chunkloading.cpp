// The store's part of loading chunk files.

#include "archivelimits.h"
#include "chunkversion.h"
#include "damage.h"
#include "datachunkhandler.h"
#include "datachunkhandler_p.h"
#include "fileerrors.h"
#include "regularfile.h"

#include <utility>

using ChunkFormat::BookmarkMap;
using ChunkReading::Result;

/// What a chunk file adds to the browsing list, before anybody sees it.
struct DatachunkHandlerPrivate::ChunkLoad
{
    bool opened = false;
    Result result = Result::Done;
    ChunkReading::Front front;
    ChunkReading::Records records; // behind those that the browsing list has
    bool hasFdFrame = false;
    quint32 messagesAtMost = 0;
    QString damage;
};

bool DatachunkHandlerPrivate::readChunk(const QString &fileName, BookmarkMap bookmarkMap)
{
    ChunkLoad load;
    {
        const ImportRun run(q);
        const bool enough = withinMemory([&] { loadChunk(run, fileName, bookmarkMap, load); });
        if (!run.goesOn())
            return false;
        if (!enough) {
            emit q->newErrorMessage(FileErrors::outOfMemory(fileName));
            return false;
        }
    }
    if (!load.opened)
        return false;
    if (load.result != Result::Done) {
        refuseChunk(load.result, load.messagesAtMost);
        return false;
    }
    takeChunk(load, bookmarkMap);
    return true;
}

void DatachunkHandlerPrivate::loadChunk(const ImportRun &run, const QString &fileName,
                                        BookmarkMap bookmarkMap, ChunkLoad &load)
{
    RegularFile file(fileName);
    load.opened = file.openForReading();
    if (!load.opened)
        return;
    ChunkReading::Bounds bounds{ArchiveLimits::memoryLimit(), [&run] { return run.turn(); }};
    load.messagesAtMost = ArchiveLimits::messagesIn(file.size());
    load.result = ChunkReading::readFront(file, bookmarkMap, bounds, load.front);
    // A message takes no less room in memory than in a file.
    if (load.result == Result::Done && file.size() > bounds.memory)
        load.result = Result::TooLarge;
    if (load.result != Result::Done)
        return;
    // Live messages go on arriving, so the lock is not held while the disk is read.
    load.records.messages = trace.paged();
    const int shownBefore = load.records.messages.size();
    bounds.memory -= load.front.memory;
    ChunkFormat::RecordReader reader(file, load.front.preamble.version);
    load.result = ChunkReading::readRecords(reader, bounds, load.records, load.hasFdFrame);
    load.damage = file.readErrorText();
    if (load.damage.isEmpty() && file.size() > 0) {
        load.damage = Damage::ofChunk(fileName, load.front, reader.end(),
                                      load.records.messages.size() - shownBefore);
    }
}

void DatachunkHandlerPrivate::takeChunk(ChunkLoad &load, BookmarkMap bookmarkMap)
{
    const quint32 version = load.front.preamble.version;
    setCurrentChunkVersion(version);
    if (version >= ChunkFormat::notesSince)
        notes.show(std::move(load.front.maps.notes));
    trace.setPaged(std::move(load.records.messages));
    trace.addLines(load.records.lines);
    const QPointer<DatachunkHandler> store(q);
    if (version >= ChunkFormat::bookmarksSince && bookmarkMap == BookmarkMap::Read)
        notes.showBookmarks(load.front.maps.bookmarks);
    if (store)
        emit q->chunkContainsFdMessage(load.hasFdFrame);
    if (store)
        tell({load.damage});
}

void DatachunkHandlerPrivate::tell(const QStringList &texts)
{
    const QPointer<DatachunkHandler> store(q);
    for (const QString &text : texts) {
        if (store && !text.isEmpty())
            emit store->newErrorMessage(text);
    }
}

void DatachunkHandlerPrivate::refuseChunk(Result result, quint32 messagesAtMost)
{
    const QPointer<DatachunkHandler> store(q);
    if (result == Result::NewerVersion)
        q->showDataChunkVersionMismatch();
    else
        q->showTooMuchMessagesError(messagesAtMost);
    if (store)
        q->goLive();
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
    ChunkLoad load;
    load.front.preamble.version = ChunkFormat::currentVersion;
    load.front.maps = {job.notes, job.bookmarks};
    load.front.maps.notes.detach();
    load.front.maps.bookmarks.detach();
    for (int i = 0; i < job.messages.size(); ++i) {
        const CAN::CanRxMessage message = ChunkFormat::asInChunk(job.messages.at(i));
        load.records.messages.append(message);
        load.records.lines.insert(static_cast<unsigned char>(message.line));
        load.hasFdFrame |= message.fdFrame;
    }
    takeChunk(load, BookmarkMap::Read);
    if (run.goesOn())
        finishImport(run, false);
    else if (run.storeExists())
        endCancelledImport();
}

void DatachunkHandler::loadDataFromFile(QString fileName, DatachunkHelper::SavedMessageType smt)
{
    loadFile(fileName, false, DatachunkHelper().getImportFileType(fileName), smt, QString());
}
