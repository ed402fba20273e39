#include "rowcache.h"

RowCache::SharedMessages RowCache::messages(const TraceSegment &segment, quint32 step)
{
    const QPair<quint64, quint32> key(segment.id(), step);
    {
        const MutexLock locker(mutex);
        if (const SharedMessages *known = steps.object(key))
            return *known;
    }
    // Not under the lock: the disk may take its time.
    auto read = std::make_shared<TraceSegment::Messages>();
    if (!segment.decode(step, *read))
        return {};
    const MutexLock locker(mutex);
    steps.insert(key, new SharedMessages(read));
    return read;
}

RowCache::SharedMarks RowCache::marks(const TraceSegment &segment)
{
    {
        const MutexLock locker(mutex);
        if (const SharedMarks *known = notes.object(segment.id()))
            return *known;
    }
    const auto read = std::make_shared<const TraceNotes::Marks>(segment.marks());
    const int cost = costOfSet + read->notes.size() + read->bookmarks.size();
    const MutexLock locker(mutex);
    notes.insert(segment.id(), new SharedMarks(read), cost);
    return read;
}

std::optional<CAN::CanRxMessage> RowCache::messageAt(const TraceSegment &segment, quint32 offset)
{
    if (const CAN::CanRxMessage *held = segment.held(offset))
        return *held;
    const SharedMessages step = messages(segment, offset / ChunkIndex::recordsPerStep);
    if (!step)
        return {};
    return (*step)[offset % ChunkIndex::recordsPerStep];
}

TraceRow RowCache::row(const TraceSnapshot &snapshot, quint64 position)
{
    TraceRow row;
    if (position >= snapshot.count())
        return row;
    row.state = TraceRow::Gone;
    const TraceSnapshot::Place place = snapshot.at(position);
    if (!place.placed)
        return row;
    const TraceSegment &segment = *place.placed->segment;
    const auto message = messageAt(segment, place.offset);
    if (!message)
        return row;
    row.state = TraceRow::Known;
    row.message = *message;
    const SharedMarks known = marks(segment);
    row.note = known->notes.value(row.message.messageNumber);
    row.bookmark = known->bookmarks.value(row.message.messageNumber);
    return row;
}
