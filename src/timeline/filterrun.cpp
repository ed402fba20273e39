#include "filterrun.h"

#include <numeric>

namespace {

constexpr quint32 perStep = ChunkIndex::recordsPerStep;

quint64 distance(quint64 a, quint64 b)
{
    return a < b ? b - a : a - b;
}

} // namespace

FilterRun::FilterRun(std::shared_ptr<TraceTimeline::Data> data, const TraceExpression &expression,
                     quint64 focus)
    : data(std::move(data)), expression(expression), filter(filterOf(this->expression)),
      inOrder(filter.needsChanged()), focus(focus), threads([this] { work(); }, inOrder ? 1 : 0)
{
    follow();
}

FilterRun::~FilterRun()
{
    stopping = true;
}

// Every question is answered for the timeline's last refresh.
void FilterRun::follow()
{
    const SharedSnapshot now = data->snapshot();
    bool isOpen = false;
    {
        const MutexLock locker(mutex);
        if (now == snapshot)
            return;
        followLocked(now);
        isOpen = std::any_of(parts.begin(), parts.end(),
                             [](const Part &part) { return !part.isDone(); });
    }
    if (isOpen && !stopping && !threads.wake())
        work();
}

void FilterRun::followLocked(const SharedSnapshot &now)
{
    std::vector<Part> before;
    before.swap(parts);
    for (const TraceSnapshot::Placed &placed : now->segments()) {
        Part part;
        part.segment = placed.segment;
        part.begin = placed.begin;
        parts.push_back(std::move(part));
    }
    if (snapshot && snapshot->epoch() == now->epoch())
        takeOver(before);
    else
        ++generation;
    snapshot = now;
    KeyCounter counter(filter);
    for (Part &part : parts) {
        if (!part.isTaken)
            countByKeys(counter, part);
    }
}

// What is known of a part holds for its messages wherever they lie by now.
void FilterRun::takeOver(std::vector<Part> &before)
{
    auto old = before.begin();
    bool isWhole = true;
    for (Part &part : parts) {
        // What is gone at the front has been looked at, or is of no use any more.
        for (; old != before.end() && old->begin < part.begin; ++old)
            isWhole = isWhole && &part == &parts.front();
        if (old == before.end() || old->begin != part.begin || old->done > part.segment->count())
            continue;
        if (areNotesOthers(*old->segment, *part.segment)) {
            part.round = (old++)->round + 1;
            isWhole = false;
            continue;
        }
        const SharedSegment segment = part.segment;
        part = std::move(*old++);
        part.segment = segment;
        part.isGone = false;
    }
    if (inOrder && !isWhole) {
        ++generation;
        for (Part &part : parts) {
            const SharedSegment segment = part.segment;
            const quint64 begin = part.begin;
            part = {};
            part.segment = segment;
            part.begin = begin;
        }
    }
}

// The notes of a chunk that another one has replaced cannot be read any more; how many there were
// is known.
bool FilterRun::areNotesOthers(const TraceSegment &before, const TraceSegment &now) const
{
    if (!filter.needsNotes() || before.id() == now.id())
        return false;
    const quint32 notes = now.index().notes;
    return before.index().notes != notes
        || (notes > 0 && before.marks().notes != now.marks().notes);
}

// Whether a message is changed may depend on one that other words of the expression refuse.
void FilterRun::countByKeys(KeyCounter &counter, Part &part) const
{
    if (inOrder)
        return;
    const FrameFilter::Count known = counter.count(part.segment->index(), part.segment->isChunk());
    if (!known.isExact)
        return;
    part.done = part.segment->count();
    part.found = known.surely;
}

void FilterRun::work()
{
    Look look;
    while (!stopping && next(look)) {
        lookAt(look);
        take(look);
        look = {};
    }
}

// From the focus outwards, or in order.
FilterRun::Part *FilterRun::nextPart()
{
    Part *nearest = nullptr;
    for (Part &part : parts) {
        if (part.isDone())
            continue;
        if (inOrder)
            return part.isTaken ? nullptr : &part;
        if (!part.isTaken
            && (!nearest || distance(part.begin, focus) < distance(nearest->begin, focus)))
            nearest = &part;
    }
    return nearest;
}

bool FilterRun::next(Look &look)
{
    const MutexLock locker(mutex);
    Part *part = nextPart();
    if (!part)
        return false;
    part->isTaken = true;
    look.generation = generation;
    look.round = part->round;
    look.partBegin = part->begin;
    look.segment = part->segment;
    look.begin = look.end = part->stepsDone;
    return true;
}

void FilterRun::lookAt(Look &look)
{
    if (inOrder && generationOfChanges != look.generation) {
        changes = {};
        generationOfChanges = look.generation;
    }
    const TraceSegment &segment = *look.segment;
    const Notes notes = filter.needsNotes() ? segment.marks().notes : Notes();
    const auto takeStep = [&](quint32 step, const quint16 *positions, int count) {
        look.positions.resize(step - look.begin / perStep);
        look.positions.emplace_back(positions, positions + count);
        look.end = std::min((step + 1) * perStep, segment.count());
        return !stopping;
    };
    if (inOrder) {
        look.isGone =
            !segment.scan({filter, notes, &changes, look.begin, segment.count()}, takeStep);
        return;
    }
    const KeyCounter::Span span = KeyCounter(filter).span(segment.index(), segment.isChunk());
    look.isGone = !segment.scan(
        {filter, notes, nullptr, std::max(look.begin, span.begin), span.end}, takeStep);
    if (!look.isGone && !stopping)
        look.end = segment.count();
}

void FilterRun::take(const Look &look)
{
    const MutexLock locker(mutex);
    Part *part = partAt(look.partBegin);
    if (!part || generation != look.generation || part->round != look.round)
        return;
    part->isTaken = false;
    if (part->stepsDone != look.begin)
        return;
    part->isGone = look.isGone;
    addSteps(*part, look);
    if (part->stepsDone >= part->done) {
        part->done = part->stepsDone;
        part->found = part->stepsFound;
    }
}

void FilterRun::addSteps(Part &part, const Look &look)
{
    std::size_t step = look.begin / perStep;
    for (const std::vector<quint16> &positions : look.positions) {
        part.stepCounts.resize(std::max(part.stepCounts.size(), step + 1));
        part.stepCounts[step] = quint16(part.stepCounts[step] + positions.size());
        part.stepsFound += positions.size();
        if (inOrder) {
            part.positions.resize(part.stepCounts.size());
            auto &all = part.positions[step];
            all.insert(all.end(), positions.begin(), positions.end());
        }
        ++step;
    }
    part.stepsDone = look.end;
}

FilterRun::Found FilterRun::found()
{
    follow();
    const MutexLock locker(mutex);
    Found now{snapshot, generation, {}, 0, 0, true};
    now.counts.reserve(parts.size());
    for (const Part &part : parts) {
        now.counts.push_back(part.found);
        now.messages += part.segment->count();
        now.messagesDone += part.isGone ? part.segment->count() : part.done;
        now.isComplete = now.isComplete && part.isDone();
    }
    return now;
}

quint64 FilterRun::count()
{
    const Found now = found();
    return std::accumulate(now.counts.begin(), now.counts.end(), Q_UINT64_C(0));
}

quint64 FilterRun::messagesDone()
{
    return found().messagesDone;
}

quint64 FilterRun::messagesGone()
{
    follow();
    const MutexLock locker(mutex);
    quint64 sum = 0;
    for (const Part &part : parts)
        sum += part.isGone ? part.segment->count() - part.done : 0;
    return sum;
}

bool FilterRun::isComplete()
{
    return found().isComplete;
}

// Other threads may have the parts follow the timeline at any time, so that one is known by where
// it begins.
FilterRun::Part *FilterRun::partAt(quint64 begin)
{
    const auto part =
        std::lower_bound(parts.begin(), parts.end(), begin,
                         [](const Part &candidate, quint64 b) { return candidate.begin < b; });
    return part != parts.end() && part->begin == begin ? &*part : nullptr;
}
