#include "chunkmerge.h"

#include "chunkversion.h"
#include "fileerrors.h"

#include <QDataStream>

#include <algorithm>
#include <climits>

namespace ChunkArchive {

namespace {

// Of chunks with equal starts only the last one.
std::vector<Chunk> withoutEqualStarts(const std::vector<Chunk> &chunks)
{
    std::vector<Chunk> kept;
    for (const Chunk &chunk : chunks) {
        if (!kept.empty() && kept.back().start == chunk.start)
            kept.back() = chunk;
        else
            kept.push_back(chunk);
    }
    return kept;
}

void drain(QIODevice &device)
{
    QByteArray block(64 * 1024, Qt::Uninitialized);
    while (device.read(block.data(), block.size()) > 0) { }
}

// A number that a damaged chunk has twice keeps the value which comes last in the file, and that
// is the first one in the map.
template <typename Map> void unite(Map &all, const Map &some)
{
    for (auto entry = some.end(); entry != some.begin();) {
        --entry;
        all.insert(entry.key(), entry.value());
    }
}

class Merger
{
public:
    Merger(qint64 memoryLimit, Merged &merged) : memoryLimit(memoryLimit), merged(merged) { }

    Outcome::Result readChunk(Zip::EntryDevice &chunk);
    bool lastHasFdFrame() const { return hasFdFrame; }

private:
    Outcome::Result readRecords(Zip::EntryDevice &chunk, quint32 version);
    qint64 room() const
    {
        return memoryLimit - memoryOfMaps
            - merged.messages.size() * qint64(sizeof(CAN::CanRxMessage));
    }

    const qint64 memoryLimit;
    Merged &merged;
    qint64 memoryOfMaps = 0;
    bool hasFdFrame = false;
};

Outcome::Result Merger::readChunk(Zip::EntryDevice &chunk)
{
    // The most memory that a byte of a map, which is then united with others, is turned into.
    constexpr qint64 memoryPerMapByte = 16;
    hasFdFrame = false;
    chunk.setLimit(room() / memoryPerMapByte);
    QDataStream stream(&chunk);
    const ChunkFormat::Preamble preamble = ChunkFormat::readPreamble(stream);
    if (preamble.version > ChunkFormat::currentVersion) {
        // Only the end tells whether that is its version or damage.
        drain(chunk);
        return chunk.isDamaged() ? Outcome::Done : Outcome::NewerVersion;
    }
    const ChunkFormat::Maps maps = ChunkFormat::readMaps(stream, preamble.version);
    if (chunk.limitReached())
        return Outcome::TooLarge;
    setCurrentChunkVersion(preamble.version);
    unite(merged.notes, maps.notes);
    unite(merged.bookmarks, maps.bookmarks);
    merged.hasBookmarkMap |= preamble.version >= ChunkFormat::bookmarksSince;
    memoryOfMaps += (chunk.unpackedSize() - chunk.bytesAvailable()) * memoryPerMapByte;
    chunk.setLimit(Zip::maxClaim);
    return readRecords(chunk, preamble.version);
}

Outcome::Result Merger::readRecords(Zip::EntryDevice &chunk, quint32 version)
{
    const qint64 messagesAllowed = std::min<qint64>(
        merged.messages.size() + room() / qint64(sizeof(CAN::CanRxMessage)), INT_MAX / 2);
    CAN::CanRxMessage message;
    ChunkFormat::RecordReader records(chunk, version);
    while (records.next(message) && !(records.lastIsCut() && chunk.isDamaged())) {
        if (merged.messages.size() >= messagesAllowed)
            return Outcome::TooLarge;
        merged.messages.append(message);
        merged.lines.insert(static_cast<unsigned char>(message.line));
        hasFdFrame |= message.fdFrame;
    }
    return Outcome::Done;
}

void mergeChunks(const Zip::Reader &archive, qint64 memoryLimit, const Zip::KeepGoing &keepGoing,
                 Merged &merged)
{
    const std::vector<Chunk> chunks = withoutEqualStarts(chunksByStart(archive, keepGoing));
    if (!archive.isOpen()) {
        merged.outcome.result = Outcome::NotOpened;
        return;
    }
    // A message takes no less room in memory than in a file.
    if (isBomb(archive, chunks) || totalSize(chunks) > memoryLimit) {
        merged.outcome = tooLarge(chunks);
        return;
    }
    Merger merger(memoryLimit, merged);
    for (const Chunk &chunk : chunks) {
        const auto content = archive.open(chunk.entry, keepGoing);
        if (!content)
            continue;
        const Outcome::Result result = merger.readChunk(*content);
        merged.outcome.result = keepGoing() ? result : Outcome::GivenUp;
        if (merged.outcome.result == Outcome::TooLarge)
            merged.outcome = tooLarge(chunks);
        if (merged.outcome.result != Outcome::Done)
            return;
        merged.fdFramesByChunk.append(merger.lastHasFdFrame());
    }
}

} // namespace

void merge(const QString &zipName, qint64 memoryLimit, const Zip::KeepGoing &keepGoing,
           Merged &merged)
{
    const auto mergeArchive = [&] {
        const Zip::Reader archive(zipName);
        mergeChunks(archive, memoryLimit, keepGoing, merged);
        merged.outcome.systemError = archive.readErrorText();
    };
    if (!withinMemory(mergeArchive))
        merged.outcome = {Outcome::TooLarge, 0, FileErrors::outOfMemory(zipName)};
}

} // namespace ChunkArchive
