#include "directoryformat.h"

#include "directorywindow.h"

#include <QFile>
#include <QHash>
#include <QSysInfo>
#include <QtEndian>

#include <algorithm>
#include <cstring>

#include <unistd.h>

// Inlined, so that the library needs no other one for it.
#define XXH_INLINE_ALL
#include <xxhash.h>

namespace DirectoryFormat {

namespace {

constexpr char magic[] = "\xD1"
                         "direct\n";
constexpr char mark[] = "\xD1"
                        "chunk\r\n";
constexpr int markSize = 8;
constexpr int sealSize = 16;
constexpr int frontSize = markSize + 4; // with the size of the payload
constexpr int fixedSize = 116;          // of the payload
constexpr int keySize = 18;
constexpr int stepSize = 24;
constexpr int longestName = 255;
constexpr quint64 mostPayloadBytes = 64ULL * 1024 * 1024;
constexpr int mostLines = 256;

constexpr quint32 cutRecordFlag = 1;
constexpr quint32 numbersRiseFlag = 2;
constexpr quint32 timesRiseFlag = 4;
constexpr quint32 allKeysFlag = 8;
constexpr quint32 allFlags = 15;

template <typename Integer> Integer get(const char *&from)
{
    const auto value = qFromLittleEndian<Integer>(from);
    from += sizeof value;
    return value;
}

class Writer
{
public:
    explicit Writer(int size) : bytes(size, Qt::Uninitialized), at(bytes.data()) { }

    template <typename Integer> void put(Integer value)
    {
        qToLittleEndian(value, at);
        at += sizeof value;
    }
    void putBytes(const void *from, int size)
    {
        at = std::copy_n(static_cast<const char *>(from), size, at);
    }
    /// Ends with the seal of everything in front of it.
    QByteArray sealed(quint64 key);

private:
    QByteArray bytes;
    char *at;
};

XXH128_canonical_t sealOf(const char *from, qint64 size, quint64 key)
{
    XXH128_canonical_t seal;
    XXH128_canonicalFromHash(&seal, XXH3_128bits_withSeed(from, std::size_t(size), key));
    return seal;
}

QByteArray Writer::sealed(quint64 key)
{
    const XXH128_canonical_t seal = sealOf(bytes.constData(), at - bytes.constData(), key);
    putBytes(&seal, sealSize);
    return bytes;
}

bool hasSeal(const char *from, qint64 size, quint64 key)
{
    const XXH128_canonical_t seal = sealOf(from, size, key);
    return std::memcmp(&seal, from + size, sealSize) == 0;
}

/// How many there are of everything that follows the fixed part of a payload.
struct Counts
{
    quint32 nameBytes = 0;
    quint32 lines = 0;
    quint32 keys = 0;
    quint32 steps = 0;

    quint64 payloadBytes() const
    {
        return fixedSize + nameBytes + lines + quint64(keys) * keySize
            + quint64(steps) * (stepSize + (lines + 1) * sizeof(quint32));
    }
};

quint32 flagsOf(const ChunkIndex &index)
{
    return (index.hasCutRecord ? cutRecordFlag : 0) | (index.numbersRise ? numbersRiseFlag : 0)
        | (index.timesRise ? timesRiseFlag : 0) | (index.hasAllKeys ? allKeysFlag : 0);
}

void putFront(Writer &out, quint32 payloadBytes)
{
    out.putBytes(mark, markSize);
    out.put(payloadBytes);
}

void putFixed(Writer &out, const Counts &counts, const DirectoryEntry &entry)
{
    const FileIdentity &file = entry.file;
    const ChunkIndex &index = entry.index;
    out.put(quint16(counts.nameBytes));
    out.put(quint16(counts.lines));
    for (const quint32 value : {counts.keys, counts.steps, flagsOf(index), index.version})
        out.put(value);
    for (const qint64 value : {file.size, file.modified, file.changed, qint64(file.inode)})
        out.put(value);
    for (const qint64 value : {index.recordsStart, index.recordsEnd, index.firstTime,
                               index.lastTime, index.minTime, index.maxTime})
        out.put(value);
    for (const quint32 value : {index.count, index.firstNumber, index.notes, index.bookmarks})
        out.put(value);
}

void putLists(Writer &out, const ChunkIndex &index)
{
    out.putBytes(index.lines.data(), int(index.lines.size()));
    for (std::size_t i = 0; i < index.keys.size(); ++i) {
        const FrameKey frame = index.keys.frame(i);
        out.put(frame.id());
        out.put(frame.line());
        out.put(frame.kind());
        for (const quint32 value :
             {index.keys.counts[i], index.keys.firsts[i], index.keys.lasts[i]})
            out.put(value);
    }
    for (const ChunkIndex::Step &step : index.steps) {
        for (const qint64 value : {step.offset, step.time, step.maxTime})
            out.put(value);
    }
    for (const quint32 count : index.countsBefore)
        out.put(count);
}

Counts readCounts(const char *&from)
{
    Counts counts;
    counts.nameBytes = get<quint16>(from);
    counts.lines = get<quint16>(from);
    counts.keys = get<quint32>(from);
    counts.steps = get<quint32>(from);
    return counts;
}

void readFlags(quint32 flags, ChunkIndex &index)
{
    index.hasCutRecord = flags & cutRecordFlag;
    index.numbersRise = flags & numbersRiseFlag;
    index.timesRise = flags & timesRiseFlag;
    index.hasAllKeys = flags & allKeysFlag;
}

// False when there are flags that nobody has set.
bool readFixed(const char *&from, DirectoryEntry &entry)
{
    FileIdentity &file = entry.file;
    ChunkIndex &index = entry.index;
    const auto flags = get<quint32>(from);
    readFlags(flags, index);
    index.version = get<quint32>(from);
    for (qint64 *value : {&file.size, &file.modified, &file.changed})
        *value = get<qint64>(from);
    file.inode = get<quint64>(from);
    for (qint64 *value : {&index.recordsStart, &index.recordsEnd, &index.firstTime, &index.lastTime,
                          &index.minTime, &index.maxTime})
        *value = get<qint64>(from);
    for (quint32 *value : {&index.count, &index.firstNumber, &index.notes, &index.bookmarks})
        *value = get<quint32>(from);
    return (flags & ~allFlags) == 0;
}

// A bare name: an entry is about a file of its own folder.
bool readName(const char *&from, quint32 size, QString &name)
{
    const QByteArray bytes(from, int(size));
    from += size;
    name = QFile::decodeName(bytes);
    return size > 0 && size <= longestName && !bytes.contains('/') && !bytes.contains('\0')
        && bytes != "." && bytes != "..";
}

void readKeys(const char *&from, quint32 count, ChunkKeys &keys, Frames &frames)
{
    frames.resize(count);
    keys.resize(count);
    for (quint32 i = 0; i < count; ++i) {
        const auto id = get<quint32>(from);
        const auto line = get<quint8>(from);
        frames[i] = {id, line, get<quint8>(from)};
        keys.counts[i] = get<quint32>(from);
        keys.firsts[i] = get<quint32>(from);
        keys.lasts[i] = get<quint32>(from);
    }
}

void readLists(const char *&from, const Counts &counts, ChunkIndex &index)
{
    index.steps.resize(counts.steps);
    for (ChunkIndex::Step &step : index.steps) {
        for (qint64 *value : {&step.offset, &step.time, &step.maxTime})
            *value = get<qint64>(from);
    }
    index.countsBefore.resize(std::size_t(counts.steps) * (counts.lines + 1));
    for (quint32 &count : index.countsBefore)
        count = get<quint32>(from);
}

/// What several entries have in common, and what is used for one after the other.
struct Common
{
    FramePool pool;
    Frames frames;
};

// False when the payload is no entry; nothing is made room for that is not there.
bool readPayload(const char *from, quint32 size, DirectoryEntry &entry, Common &common)
{
    if (size < fixedSize)
        return false;
    const Counts counts = readCounts(from);
    if (counts.payloadBytes() != size || counts.lines > mostLines || !readFixed(from, entry)
        || !readName(from, counts.nameBytes, entry.name))
        return false;
    entry.index.lines.assign(from, from + counts.lines);
    from += counts.lines;
    readKeys(from, counts.keys, entry.index.keys, common.frames);
    entry.index.keys.frames = common.pool.share(common.frames);
    readLists(from, counts, entry.index);
    return entry.index.isSound(entry.file.size);
}

/// Goes through what lies behind the head of a directory.
class Search
{
public:
    Search(const ReadAt &read, qint64 size, quint64 key)
        : window(read, size), size(size), key(key), mostInVain(4 * size)
    {
    }

    /// The next entry that is whole; false at the end.
    bool next(DirectoryEntry &entry);

    /// The first byte passed over so far; -1 for none.
    qint64 damagedAt() const { return firstDamage; }

private:
    const char *findMark();
    void passOver(qint64 end);

    DirectoryWindow window;
    const qint64 size;
    qint64 offset = headSize;
    qint64 wholeEnd = headSize; // behind the last entry
    qint64 firstDamage = -1;
    const quint64 key;
    // Marks that promise much and hold nothing must not take for ever.
    qint64 mostInVain; // bytes
    Common common;
};

// Null at the end.
const char *Search::findMark()
{
    while (const char *from = window.at(offset, frontSize + sealSize)) {
        const qint64 bytes = window.bytesAt(offset);
        const void *found = memmem(from, std::size_t(bytes), mark, markSize);
        if (found == from)
            return from;
        offset += found ? static_cast<const char *>(found) - from : bytes - (markSize - 1);
    }
    return nullptr;
}

// What lies between the last entry and \a end belongs to none.
void Search::passOver(qint64 end)
{
    if (firstDamage < 0 && end > wholeEnd)
        firstDamage = wholeEnd;
}

bool Search::next(DirectoryEntry &entry)
{
    while (mostInVain > 0) {
        const char *front = findMark();
        if (!front)
            break;
        const auto size = qFromLittleEndian<quint32>(front + markSize);
        const qint64 sealed = frontSize + qint64(size);
        front = size > mostPayloadBytes ? nullptr : window.at(offset, sealed + sealSize);
        if (!front || !hasSeal(front, sealed, key)) {
            mostInVain -= front ? sealed : 0;
            offset += markSize;
            continue;
        }
        const qint64 begin = offset;
        offset += sealed + sealSize;
        entry = {};
        if (!readPayload(front + frontSize, size, entry, common))
            continue;
        passOver(begin);
        wholeEnd = offset;
        return true;
    }
    passOver(size);
    return false;
}

} // namespace

quint64 ownKey()
{
    static const quint64 key = [] {
        const QByteArray owner = QSysInfo::machineUniqueId() + '\n' + QByteArray::number(getuid())
            + '\n' + QByteArray::number(version);
        return XXH3_64bits(owner.constData(), std::size_t(owner.size()));
    }();
    return key;
}

QByteArray head(qint64 compactBytes, quint64 key)
{
    Writer out(headSize);
    out.putBytes(magic, markSize);
    out.put(version);
    out.put(compactBytes);
    return out.sealed(key);
}

std::optional<qint64> compactBytes(const QByteArray &bytes, quint64 key)
{
    if (bytes.size() < headSize || std::memcmp(bytes.constData(), magic, markSize) != 0
        || !hasSeal(bytes.constData(), headSize - sealSize, key))
        return {};
    const char *at = bytes.constData() + markSize;
    if (get<quint32>(at) != version)
        return {};
    const auto compact = get<qint64>(at);
    if (compact < 0 || compact > mostBytes)
        return {};
    return compact;
}

QByteArray encoded(const DirectoryEntry &entry, quint64 key)
{
    const QByteArray name = QFile::encodeName(entry.name);
    const ChunkIndex &index = entry.index;
    const Counts counts{quint32(name.size()), quint32(index.lines.size()),
                        quint32(index.keys.size()), quint32(index.steps.size())};
    if (name.size() > longestName || counts.payloadBytes() > mostPayloadBytes)
        return {};
    const auto size = quint32(counts.payloadBytes());
    Writer out(frontSize + int(size) + sealSize);
    putFront(out, size);
    putFixed(out, counts, entry);
    out.putBytes(name.constData(), name.size());
    putLists(out, index);
    return out.sealed(key);
}

QByteArray framed(const QByteArray &payload, quint64 key)
{
    Writer out(frontSize + payload.size() + sealSize);
    putFront(out, quint32(payload.size()));
    out.putBytes(payload.constData(), payload.size());
    return out.sealed(key);
}

std::vector<DirectoryEntry> entries(const ReadAt &read, qint64 size, quint64 key, qint64 *damagedAt)
{
    std::vector<DirectoryEntry> all;
    qint64 ignored = 0;
    qint64 &damage = damagedAt ? *damagedAt : ignored;
    damage = 0;
    QByteArray front(headSize, Qt::Uninitialized);
    front.truncate(int(read(front.data(), 0, std::min<qint64>(size, headSize))));
    if (size > mostBytes || !compactBytes(front, key))
        return all;
    QHash<QString, std::size_t> places;
    Search search(read, size, key);
    for (DirectoryEntry entry; search.next(entry);) {
        const auto known = places.constFind(entry.name);
        if (known != places.constEnd()) {
            all[*known] = std::move(entry);
            continue;
        }
        places.insert(entry.name, all.size());
        all.push_back(std::move(entry));
    }
    damage = search.damagedAt();
    return all;
}

std::vector<DirectoryEntry> entries(const QByteArray &bytes, quint64 key)
{
    const auto read = [&bytes](char *to, qint64 offset, qint64 size) {
        std::memcpy(to, bytes.constData() + offset, std::size_t(size));
        return size;
    };
    return entries(read, bytes.size(), key);
}

} // namespace DirectoryFormat
