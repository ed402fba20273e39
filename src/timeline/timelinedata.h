#pragma once

#include "rowcache.h"
#include "tracesource.h"
#include "tracetimeline.h"

/// What the copies of a timeline share with its filters.
class TraceTimeline::Data
{
public:
    explicit Data(std::shared_ptr<TraceSource> source) : source(std::move(source)) { refresh(); }

    SharedSnapshot snapshot() const EXCLUDES(mutex)
    {
        const MutexLock locker(mutex);
        return current;
    }

    /// True when there is another snapshot now.
    bool refresh() EXCLUDES(mutex)
    {
        SharedSnapshot fresh = source->refresh();
        const MutexLock locker(mutex);
        current.swap(fresh);
        return current != fresh;
    }

    const std::shared_ptr<TraceSource> source;
    RowCache cache;

private:
    mutable Mutex mutex; // taken last
    SharedSnapshot current GUARDED_BY(mutex);
};

const std::shared_ptr<TraceTimeline::Data> &dataOf(const TraceTimeline &timeline);
