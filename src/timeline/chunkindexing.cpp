#include "chunkindexing.h"

#include "recordwalk.h"

#include <cstring>

namespace {

class Indexing
{
public:
    Indexing(QIODevice &device, const ChunkReading::Bounds &bounds,
             const std::function<bool()> &dropsCut, const std::function<void(RecordView)> &look,
             IndexedChunk &chunk)
        : device(device), bounds(bounds), dropsCut(dropsCut), look(look), chunk(chunk),
          version(chunk.front.preamble.version), indexer(version, chunk.front.size),
          buffer(blockSize, Qt::Uninitialized)
    {
    }

    Outcome::Kind read();

private:
    static constexpr int blockSize = 1024 * 1024;

    bool fill();
    void takeRecords();
    void end();

    QIODevice &device;
    const ChunkReading::Bounds &bounds;
    const std::function<bool()> &dropsCut;
    const std::function<void(RecordView)> &look;
    IndexedChunk &chunk;
    const quint32 version;
    ChunkIndexer indexer;
    QByteArray buffer;
    int size = 0; // of what is left of the records in the buffer
    qint64 wholeBytes = 0;
    CAN::CanRxMessage last; // of the block before; its fields show through a cut record
};

bool Indexing::fill()
{
    const qint64 got = device.read(buffer.data() + size, buffer.size() - size);
    size += int(std::max<qint64>(got, 0));
    return got > 0;
}

void Indexing::takeRecords()
{
    const char *const begin = buffer.constData();
    const char *lastRecord = nullptr;
    const bool hasLine = version >= ChunkFormat::lineFieldSince;
    const char *const rest = walkRecords(begin, begin + size, hasLine, [&](RecordView record) {
        indexer.add(record);
        if (look)
            look(record);
        lastRecord = record.bytes();
        return true;
    });
    if (lastRecord)
        ChunkFormat::decodeRecord(lastRecord, last, version);
    wholeBytes += rest - begin;
    size -= int(rest - begin);
    std::memmove(buffer.data(), rest, std::size_t(size));
}

void Indexing::end()
{
    chunk.end.offset = wholeBytes;
    bool isCut = false;
    if (size > 0) {
        const qint8 length = buffer.at(0);
        isCut = length >= 0 && length <= CAN::maxDataBytes;
        chunk.end.cause = isCut ? ChunkFormat::RecordsEnd::Cut : ChunkFormat::RecordsEnd::BadLength;
        chunk.end.length = isCut ? 0 : length;
    }
    isCut = isCut && !(dropsCut && dropsCut());
    if (isCut) {
        ChunkFormat::Stream stream(QByteArray::fromRawData(buffer.constData(), size));
        ChunkFormat::readRecord(stream, last, version);
        indexer.addCut(MessageView(last));
    }
    chunk.index = indexer.finish();
    chunk.index.notes = quint32(chunk.front.maps.notes.size());
    chunk.index.bookmarks = quint32(chunk.front.maps.bookmarks.size());
}

Outcome::Kind Indexing::read()
{
    while (fill()) {
        if (!bounds.keepGoing())
            return Outcome::GivenUp;
        takeRecords();
        if (indexer.count() > ChunkIndex::mostRecords)
            return Outcome::TooLarge;
        // More than any record takes: its length is none.
        if (size > ChunkFormat::maxRecordSize)
            break;
    }
    end();
    return Outcome::Done;
}

} // namespace

IndexedChunk indexChunk(QIODevice &device, const ChunkReading::Bounds &bounds,
                        const std::function<bool()> &dropsCut,
                        const std::function<void(RecordView)> &look)
{
    IndexedChunk chunk;
    chunk.result =
        ChunkReading::readFront(device, ChunkFormat::BookmarkMap::Read, bounds, chunk.front);
    if (chunk.result == Outcome::Done)
        chunk.result = Indexing(device, bounds, dropsCut, look, chunk).read();
    return chunk;
}
