#include "chunkreading.h"

#include "boundeddevice.h"

#include <algorithm>
#include <climits>
#include <type_traits>

namespace ChunkReading {

namespace {

// A file may name a number twice. The last entry counts; a map of Qt 5 keeps the others, too, for
// the next file, and one of Qt 6 cannot.
template <typename Value, typename Map = QMap<unsigned int, Value>,
          typename MultiMap = QMultiMap<unsigned int, Value>>
using EntriesOf = std::conditional_t<std::is_base_of_v<Map, MultiMap>, MultiMap, Map>;

class FrontReader
{
public:
    FrontReader(QIODevice &device, const Bounds &bounds, Front &front)
        : bounds(bounds), front(front), device(device, bounds.keepGoing), stream(&this->device)
    {
    }

    Outcome::Kind read(ChunkFormat::BookmarkMap bookmarkMap);

private:
    template <typename Value> void readMap(QMap<unsigned int, Value> &map);
    void limitNextItem()
    {
        device.setLimit(device.bytesRead() + std::max<qint64>(bounds.memory - front.memory, 0));
    }

    const Bounds &bounds;
    Front &front;
    BoundedDevice device;
    ChunkFormat::Stream stream;
    bool tooLarge = false;
};

Outcome::Kind FrontReader::read(ChunkFormat::BookmarkMap bookmarkMap)
{
    limitNextItem();
    front.preamble = ChunkFormat::readPreamble(stream);
    front.headerIsDamaged = stream.status() != QDataStream::Ok;
    front.memory = device.bytesRead();
    const quint32 version = front.preamble.version;
    if (version > ChunkFormat::currentVersion)
        return Outcome::NewerVersion;
    if (version >= ChunkFormat::notesSince)
        readMap(front.maps.notes);
    if (version >= ChunkFormat::bookmarksSince && bookmarkMap == ChunkFormat::BookmarkMap::Read
        && !tooLarge)
        readMap(front.maps.bookmarks);
    front.size = device.bytesRead();
    if (device.isGivenUp())
        return Outcome::GivenUp;
    return tooLarge || device.limitReached() ? Outcome::TooLarge : Outcome::Done;
}

template <typename Value> void FrontReader::readMap(QMap<unsigned int, Value> &map)
{
    constexpr qint64 smallestEntry = 8;
    // The memory of an entry besides its text: the node in the map and the head of the string.
    constexpr qint64 memoryPerEntry = 96;
    const qint64 start = device.bytesRead();
    EntriesOf<Value> read;
    stream.resetStatus();
    quint32 count = 0;
    limitNextItem();
    stream >> count;
    // A map that claims more entries than the file can hold is cut short, and need not be kept.
    const bool isKept = count * smallestEntry <= device.bytesLeft();
    if (isKept && count * memoryPerEntry > bounds.memory - front.memory) {
        tooLarge = true;
        return;
    }
    for (quint32 i = 0; i < count && stream.status() == QDataStream::Ok; ++i) {
        limitNextItem();
        const qint64 entryStart = device.bytesRead();
        unsigned int number = 0;
        Value value;
        stream >> number >> value;
        if (!isKept)
            continue;
        read.insert(number, value);
        front.memory += memoryPerEntry + device.bytesRead() - entryStart;
    }
    if (stream.status() == QDataStream::Ok) {
        map = read;
        return;
    }
    if (!front.mapsAreDamaged)
        front.damagedMap = start;
    front.mapsAreDamaged = true;
}

} // namespace

Outcome::Kind readFront(QIODevice &device, ChunkFormat::BookmarkMap bookmarkMap,
                        const Bounds &bounds, Front &front)
{
    return FrontReader(device, bounds, front).read(bookmarkMap);
}

WholeRecords findWholeRecords(QIODevice &device, const Bounds &bounds)
{
    device.seek(0);
    Front front;
    WholeRecords whole;
    whole.result = readFront(device, ChunkFormat::BookmarkMap::Read, bounds, front);
    if (whole.result != Outcome::Done || front.headerIsDamaged || front.mapsAreDamaged)
        return whole;
    CAN::CanRxMessage message;
    ChunkFormat::RecordReader records(device, front.preamble.version);
    while (records.next(message) && !records.lastIsCut())
        ++whole.count;
    whole.end = whole.count > 0 ? front.size + records.end().offset : 0;
    return whole;
}

Outcome::Kind readRecords(ChunkFormat::RecordReader &reader, const Bounds &bounds, Records &records,
                          bool &hasFdFrame, const std::function<bool()> &dropsCut)
{
    const int allowed =
        int(std::clamp<qint64>(bounds.memory / qint64(sizeof(CAN::CanRxMessage)), 0, INT_MAX / 2));
    MessageList &messages = records.messages;
    CAN::CanRxMessage message;
    for (;;) {
        const int turn = std::min(allowed, messages.size() + recordsBetweenTurns);
        while (messages.size() < turn) {
            if (!reader.next(message) || (reader.lastIsCut() && dropsCut && dropsCut()))
                return Outcome::Done;
            messages.append(message);
            records.lines.insert(static_cast<unsigned char>(message.line));
            hasFdFrame |= message.fdFrame;
        }
        if (messages.size() >= allowed)
            return reader.next(message) ? Outcome::TooLarge : Outcome::Done;
        if (!bounds.keepGoing())
            return Outcome::GivenUp;
    }
}

} // namespace ChunkReading
