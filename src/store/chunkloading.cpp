#include "chunkloading.h"

#include "archivelimits.h"
#include "chunkversion.h"
#include "damage.h"
#include "fileerrors.h"
#include "importrun.h"
#include "regularfile.h"

#include <utility>

using ChunkFormat::BookmarkMap;

namespace {

/// What a chunk file adds to the browsing list, before anybody sees it.
struct Load
{
    bool opened = false;
    Outcome::Kind result = Outcome::Done;
    ChunkReading::Front front;
    ChunkReading::Records records; // behind those that the browsing list has
    bool hasFdFrame = false;
    quint32 messagesAtMost = 0;
    QString damage;
};

void read(const ImportRun &run, Browsing &browsing, const QString &fileName,
          BookmarkMap bookmarkMap, Load &load)
{
    RegularFile file(fileName);
    load.opened = file.openForReading();
    if (!load.opened)
        return;
    const auto turn = [&] {
        if (run.storeExists())
            browsing.setProgress({file.pos(), file.size(), quint64(load.records.messages.size())});
        return run.turn();
    };
    ChunkReading::Bounds bounds{ArchiveLimits::memoryLimit(), turn};
    load.messagesAtMost = ArchiveLimits::messagesIn(file.size());
    load.result = ChunkReading::readFront(file, bookmarkMap, bounds, load.front);
    // A message takes no less room in memory than in a file.
    if (load.result == Outcome::Done && file.size() > bounds.memory)
        load.result = Outcome::TooLarge;
    if (load.result != Outcome::Done)
        return;
    // Live messages go on arriving, so the lock is not held while the disk is read.
    load.records.messages = browsing.trace.paged();
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

// False when the store is gone.
bool take(Browsing &browsing, Load &load, BookmarkMap bookmarkMap)
{
    Trace &trace = browsing.trace;
    const quint32 version = load.front.preamble.version;
    setCurrentChunkVersion(version);
    if (version >= ChunkFormat::notesSince)
        trace.notes().show(std::move(load.front.maps.notes));
    trace.setPaged(std::move(load.records.messages));
    trace.addLines(load.records.lines);
    const Teller teller = browsing.teller;
    if (version >= ChunkFormat::bookmarksSince && bookmarkMap == BookmarkMap::Read)
        trace.notes().showBookmarks(load.front.maps.bookmarks);
    return teller.tell(&DatachunkHandler::chunkContainsFdMessage, load.hasFdFrame)
        && teller.tellErrors({load.damage});
}

// What a job will have left in its file.
void fill(Load &load, const SaveJob &job)
{
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
}

} // namespace

bool ChunkLoading::readFile(Browsing &browsing, const QString &fileName, BookmarkMap bookmarkMap)
{
    Load load;
    {
        const ImportRun run(browsing);
        const bool enough = withinMemory([&] { read(run, browsing, fileName, bookmarkMap, load); });
        if (!run.goesOn())
            return false;
        if (!enough) {
            browsing.teller.tellLast(&DatachunkHandler::newErrorMessage,
                                     FileErrors::outOfMemory(fileName));
            return false;
        }
    }
    if (!load.opened)
        return false;
    if (load.result != Outcome::Done) {
        refuse(browsing, load.result, load.messagesAtMost);
        return false;
    }
    // Whether the store has outlived what it was told is for the caller to ask.
    static_cast<void>(take(browsing, load, bookmarkMap));
    return true;
}

void ChunkLoading::refuse(Browsing &browsing, Outcome::Kind result, quint32 messagesAtMost)
{
    const bool storeExists = result == Outcome::NewerVersion
        ? browsing.teller.tell(&DatachunkHandler::showDataChunkVersionMismatch)
        : browsing.teller.tell(&DatachunkHandler::showTooMuchMessagesError, messagesAtMost);
    if (storeExists)
        browsing.goLive();
}

void ChunkLoading::showPending(Browsing &browsing, const SaveJob &job)
{
    const ImportRun run(browsing);
    browsing.leaveLive();
    if (!run.goesOn()) {
        run.cancelled();
        return;
    }
    Load load;
    fill(load, job);
    if (take(browsing, load, BookmarkMap::Read) && run.goesOn())
        run.finish(nullptr);
    else
        run.cancelled();
}
