#include "chunkmerge.h"

#include "chunkversion.h"
#include "fileerrors.h"

namespace ChunkArchive {

namespace {

void drain(QIODevice &device)
{
    QByteArray block(64 * 1024, Qt::Uninitialized);
    while (device.read(block.data(), block.size()) > 0) { }
}

// If a damaged chunk holds a number twice, the value that comes last in the file counts. In the map
// that is the first one.
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
    Merger(const Zip::Reader &archive, qint64 memoryLimit, WorkProgress &work, Merged &merged)
        : archive(archive), memoryLimit(memoryLimit), work(work), merged(merged)
    {
    }

    Outcome::Kind readChunk(const Chunk &chunk);

    Damage::List damage;

private:
    Outcome::Kind read(Zip::EntryDevice &content);
    void tellDamage(const Chunk &chunk, const Zip::EntryDevice &content, int messages);

    const Zip::Reader &archive;
    const qint64 memoryLimit;
    WorkProgress &work;
    Merged &merged;
    qint64 memoryOfMaps = 0;
    // These belong to the chunk read last.
    ChunkReading::Front front;
    ChunkFormat::RecordsEnd recordsEnd;
    bool hasFdFrame = false;
};

Outcome::Kind Merger::readChunk(const Chunk &chunk)
{
    const auto content = archive.open(chunk.entry, work);
    if (!content) {
        damage.add(Damage::notOpened(Damage::entryName(chunk.entry.name, archive.fileName())));
        return Outcome::Done;
    }
    const int messagesBefore = merged.messages.size();
    front = {};
    recordsEnd = {};
    hasFdFrame = false;
    const Outcome::Kind result = read(*content);
    if (result == Outcome::GivenUp || !work.goesOn())
        return Outcome::GivenUp;
    if (result == Outcome::TooLarge)
        return Outcome::TooLarge;
    // Only at the end of the entry does its checksum show whether the version is real or damaged.
    if (result == Outcome::NewerVersion && !content->isDamaged())
        return Outcome::NewerVersion;
    merged.fdFramesByChunk.append(hasFdFrame);
    // An archive that cannot be read to its end has a text of its own, in place of the damage.
    if (archive.readErrorText().isEmpty())
        tellDamage(chunk, *content, merged.messages.size() - messagesBefore);
    return Outcome::Done;
}

Outcome::Kind Merger::read(Zip::EntryDevice &content)
{
    const qint64 memory = memoryLimit - memoryOfMaps;
    const qint64 memoryOfMessages = merged.messages.size() * qint64(sizeof(CAN::CanRxMessage));
    const auto keepGoing = [this] {
        work.setMessages(quint64(merged.messages.size()));
        return work.goesOn();
    };
    const Outcome::Kind result = ChunkReading::readFront(
        content, ChunkFormat::BookmarkMap::Read, {memory - memoryOfMessages, keepGoing}, front);
    if (result == Outcome::NewerVersion)
        drain(content);
    if (result != Outcome::Done)
        return result;
    const quint32 version = front.preamble.version;
    setCurrentChunkVersion(version);
    unite(merged.notes, front.maps.notes);
    unite(merged.bookmarks, front.maps.bookmarks);
    merged.hasBookmarkMap |= version >= ChunkFormat::bookmarksSince;
    memoryOfMaps += front.memory;
    ChunkFormat::RecordReader records(content, version);
    const Outcome::Kind end =
        ChunkReading::readRecords(records, {memory - front.memory, keepGoing}, merged, hasFdFrame,
                                  [&content] { return content.isDamaged(); });
    recordsEnd = records.end();
    return end;
}

void Merger::tellDamage(const Chunk &chunk, const Zip::EntryDevice &content, int messages)
{
    const QString name = Damage::entryName(chunk.entry.name, archive.fileName());
    const QString sentence = content.isDamaged()
        ? damageOf(archive, chunk, content, Damage::messagesRead(messages))
        : Damage::ofChunk(name, front, recordsEnd, messages);
    if (!sentence.isEmpty())
        damage.add(sentence);
}

void mergeChunks(const Zip::Reader &archive, qint64 memoryLimit, WorkProgress &work, Merged &merged)
{
    merged.outcome = checkDirectory(archive);
    if (!merged.outcome.isDone())
        return;
    Merger merger(archive, memoryLimit, work, merged);
    const std::vector<Chunk> chunks =
        lastOfEachStart(archive, chunksByStart(archive, work, merger.damage), work, merger.damage);
    if (!work.goesOn()) {
        merged.outcome = Outcome::givenUp();
        return;
    }
    // A message takes at least as much room in memory as in a file.
    if (isBomb(archive, chunks) || totalSize(chunks) > memoryLimit) {
        merged.outcome = tooLarge(chunks);
        return;
    }
    work.begin(totalSize(chunks));
    for (const Chunk &chunk : chunks) {
        merged.outcome.kind = merger.readChunk(chunk);
        work.setMessages(quint64(merged.messages.size()));
        if (merged.outcome.kind == Outcome::TooLarge)
            merged.outcome = tooLarge(chunks);
        if (!merged.outcome.isDone())
            return;
    }
    merged.damage = merger.damage.sentences(archive.fileName());
}

} // namespace

void merge(const QString &zipName, qint64 memoryLimit, WorkProgress &work, Merged &merged)
{
    const auto mergeArchive = [&] {
        const Zip::Reader archive(zipName);
        mergeChunks(archive, memoryLimit, work, merged);
        if (merged.outcome.text.isEmpty())
            merged.outcome.text = archive.readErrorText();
    };
    if (!withinMemory(mergeArchive))
        merged.outcome = {Outcome::TooLarge, FileErrors::outOfMemory(zipName), 0};
}

} // namespace ChunkArchive
