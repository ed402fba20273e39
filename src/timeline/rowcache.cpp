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
    const int cost = 1 + read->notes.size() + read->bookmarks.size();
    const MutexLock locker(mutex);
    notes.insert(segment.id(), new SharedMarks(read), cost);
    return read;
}
