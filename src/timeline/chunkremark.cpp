#include "chunkremark.h"

#include "archivelimits.h"
#include "fileerrors.h"

namespace {

// Whether the first and the last messages are those that the index tells of.
bool hasSameEnds(const TraceSegment &segment)
{
    const ChunkIndex &index = segment.index();
    TraceSegment::Messages messages;
    if (index.count == 0)
        return true;
    if (!segment.decode(0, messages) || messages.front().messageNumber != index.firstNumber
        || MessageView(messages.front()).time() != index.firstTime)
        return false;
    return segment.decode(index.stepCount() - 1, messages)
        && MessageView(messages.back()).time() == index.lastTime;
}

} // namespace

void putBehind(const ChunkReading::Front &front, ChunkIndex &index)
{
    index.moveBy(front.size - index.recordsStart);
    index.version = front.preamble.version;
    index.notes = quint32(front.maps.notes.size());
    index.bookmarks = quint32(front.maps.bookmarks.size());
}

std::optional<ChunkIndex> remarkedIndex(const ChunkIndex &index, const FileIdentity &before,
                                        const FileIdentity &now, const ChunkReading::Front &front)
{
    const bool hasLine = front.preamble.version >= ChunkFormat::lineFieldSince;
    if (front.headerIsDamaged || front.mapsAreDamaged || now.modified != before.modified
        || hasLine != index.hasLine() || now.size - front.size != before.size - index.recordsStart)
        return {};
    ChunkIndex moved = index;
    putBehind(front, moved);
    return moved;
}

std::optional<quint32> numberAt(const QString &path, const FileIdentity &now,
                                const ChunkIndex &index, quint32 offset)
{
    const ChunkSegment segment(std::make_shared<ChunkFileBytes>(path, now), index);
    TraceSegment::Messages messages;
    if (!segment.decode(offset / ChunkIndex::recordsPerStep, messages))
        return {};
    return messages[offset % ChunkIndex::recordsPerStep].messageNumber;
}

namespace {

SharedSegment remarkedAs(const QString &path, const TraceSegment &segment,
                         const FileIdentity &before, const FileIdentity &now)
{
    const auto bytes = std::make_shared<ChunkFileBytes>(path, now);
    const ChunkReading::Bounds bounds{ArchiveLimits::memoryLimit(), [] { return true; }};
    std::optional<ChunkIndex> index;
    const auto read = [&](QIODevice &device) {
        ChunkReading::Front front;
        if (ChunkReading::readFront(device, ChunkFormat::BookmarkMap::Read, bounds, front)
            == Outcome::Done)
            index = remarkedIndex(segment.index(), before, now, front);
    };
    if (!withinMemory([&] { bytes->readWith(read, bounds.keepGoing); }) || !index)
        return {};
    auto moved = std::make_shared<ChunkSegment>(bytes, std::move(*index));
    return hasSameEnds(*moved) ? moved : nullptr;
}

} // namespace

SharedSegment remarkedSegment(const QString &path, const TraceSegment &segment,
                              const FileIdentity &before, FileIdentity &now)
{
    constexpr int attempts = 50;
    for (int i = 0; i < attempts; ++i) {
        if (SharedSegment marked = remarkedAs(path, segment, before, now))
            return marked;
        const auto next = FileIdentity::of(path);
        if (!next || *next == now)
            return {};
        now = *next;
    }
    return {};
}
