#include "directorypayload.h"

#include "directorybytes.h"

#include <QFile>

namespace DirectoryPayload {

namespace {

using DirectoryBytes::get;
using DirectoryBytes::Writer;

constexpr int fixedSize = 116;
constexpr int keySize = 18;
constexpr int stepSize = 24;
constexpr int longestName = 255;
constexpr int mostLines = 256;

constexpr quint32 cutRecordFlag = 1;
constexpr quint32 numbersRiseFlag = 2;
constexpr quint32 timesRiseFlag = 4;
constexpr quint32 allKeysFlag = 8;
constexpr quint32 allFlags = 15;

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

} // namespace

QByteArray encoded(const DirectoryEntry &entry)
{
    const QByteArray name = QFile::encodeName(entry.name);
    const ChunkIndex &index = entry.index;
    const Counts counts{quint32(name.size()), quint32(index.lines.size()),
                        quint32(index.keys.size()), quint32(index.steps.size())};
    if (name.size() > longestName || counts.payloadBytes() > mostBytes)
        return {};
    Writer out(int(counts.payloadBytes()));
    putFixed(out, counts, entry);
    out.putBytes(name.constData(), name.size());
    putLists(out, index);
    return out.room();
}

bool Reader::read(const char *from, quint32 size, DirectoryEntry &entry)
{
    if (size < fixedSize)
        return false;
    const Counts counts = readCounts(from);
    if (counts.payloadBytes() != size || counts.lines > mostLines || !readFixed(from, entry)
        || !readName(from, counts.nameBytes, entry.name))
        return false;
    entry.index.lines.assign(from, from + counts.lines);
    from += counts.lines;
    readKeys(from, counts.keys, entry.index.keys, frames);
    entry.index.keys.frames = pool.share(frames);
    readLists(from, counts, entry.index);
    return entry.index.isSound(entry.file.size);
}

} // namespace DirectoryPayload
