#include "filterrun.h"

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
        if (!part.hasSteps && !part.isTaken)
            countByKeys(counter, part);
    }
}

// What is known of a part holds for its messages wherever they lie by now.
void FilterRun::takeOver(std::vector<Part> &before)
{
    auto old = before.begin();
    bool isWhole = true;
    for (Part &part : parts) {
        while (old != before.end() && old->begin < part.begin) {
            isWhole = false;
            ++old;
        }
        if (old == before.end() || old->begin != part.begin || old->done > part.segment->count())
            continue;
        const SharedSegment segment = part.segment;
        part = std::move(*old++);
        if (part.segment != segment)
            part.ends = {};
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

void FilterRun::countByKeys(KeyCounter &counter, Part &part)
{
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
    look.partBegin = part->begin;
    look.segment = part->segment;
    look.begin = look.end = part->done;
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

void FilterRun::take(Look &look)
{
    const MutexLock locker(mutex);
    const auto part = std::find_if(parts.begin(), parts.end(), [&look](const Part &candidate) {
        return candidate.begin == look.partBegin;
    });
    if (part == parts.end() || generation != look.generation || part->done != look.begin)
        return;
    part->isTaken = false;
    part->isGone = look.isGone;
    part->hasSteps = true;
    part->done = look.end;
    std::size_t step = look.begin / perStep;
    for (std::vector<quint16> &positions : look.positions) {
        part->stepCounts.resize(std::max(part->stepCounts.size(), step + 1));
        part->stepCounts[step] = quint16(part->stepCounts[step] + positions.size());
        part->found += positions.size();
        if (inOrder) {
            part->positions.resize(part->stepCounts.size());
            auto &all = part->positions[step];
            all.insert(all.end(), positions.begin(), positions.end());
        }
        ++step;
    }
}

quint64 FilterRun::count()
{
    follow();
    const MutexLock locker(mutex);
    quint64 sum = 0;
    for (const Part &part : parts)
        sum += part.found;
    return sum;
}

quint64 FilterRun::messagesDone()
{
    follow();
    const MutexLock locker(mutex);
    quint64 sum = 0;
    for (const Part &part : parts)
        sum += part.isGone ? part.segment->count() : part.done;
    return sum;
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
    follow();
    const MutexLock locker(mutex);
    return std::all_of(parts.begin(), parts.end(), [](const Part &part) { return part.isDone(); });
}

EndCounts FilterRun::endsOf(const Part &part) const
{
    const TraceSegment &segment = *part.segment;
    const KeyCounter::Span span = KeyCounter(filter).span(segment.index(), segment.isChunk());
    const EndCounts::Steps within{span.begin / perStep, (span.end + perStep - 1) / perStep};
    return {segment.index().stepCount(), within, part.found};
}

// False when they are no longer there.
bool FilterRun::countSteps(const TraceSegment &segment, EndCounts::Steps steps,
                           std::vector<quint16> &found) const
{
    const Notes notes = filter.needsNotes() ? segment.marks().notes : Notes();
    const quint32 end = std::min(steps.end * perStep, segment.count());
    const auto takeStep = [&found](quint32, const quint16 *, int count) {
        found.push_back(quint16(count));
        return true;
    };
    return segment.scan({filter, notes, nullptr, steps.begin * perStep, end}, takeStep);
}

// A part that was counted by its keys is looked at where it matters which messages they are. False
// when they are no longer there.
template <typename Known, typename Next>
bool FilterRun::learn(std::size_t i, const Known &isKnown, const Next &next)
{
    SharedSegment segment;
    EndCounts::Steps steps;
    std::vector<quint16> found;
    for (;;) {
        {
            const MutexLock locker(mutex);
            if (i >= parts.size() || (segment && parts[i].segment != segment))
                return false;
            Part &part = parts[i];
            if (part.hasSteps || part.found == 0)
                return true;
            if (part.ends.isEmpty())
                part.ends = endsOf(part);
            if (segment)
                part.ends.set(steps, found);
            if (isKnown(part.ends))
                return true;
            segment = part.segment;
            steps = next(part.ends);
        }
        found.clear();
        if (steps.begin >= steps.end || !countSteps(*segment, steps, found)
            || found.size() != steps.end - steps.begin)
            return false;
    }
}

std::vector<quint16> FilterRun::positionsIn(std::size_t i, quint32 step)
{
    SharedSegment segment;
    {
        const MutexLock locker(mutex);
        if (inOrder)
            return step < parts[i].positions.size() ? parts[i].positions[step]
                                                    : std::vector<quint16>();
        segment = parts[i].segment;
        if (keptSegment == segment->id() && keptStep == step)
            return keptPositions;
    }
    const Notes notes = filter.needsNotes() ? segment->marks().notes : Notes();
    std::vector<quint16> found;
    const quint32 end = std::min((step + 1) * perStep, segment->count());
    segment->scan({filter, notes, nullptr, step * perStep, end},
                  [&found](quint32, const quint16 *positions, int count) {
                      found.assign(positions, positions + count);
                      return true;
                  });
    const MutexLock locker(mutex);
    keptSegment = segment->id();
    keptStep = step;
    keptPositions = found;
    return found;
}

std::optional<quint64> FilterRun::at(quint64 n)
{
    follow();
    std::size_t i = 0;
    {
        const MutexLock locker(mutex);
        while (i < parts.size() && n >= parts[i].found)
            n -= parts[i++].found;
    }
    const bool isLearnt = learn(
        i, [n](const EndCounts &ends) { return ends.find(n).has_value(); },
        [n](const EndCounts &ends) { return ends.nextFor(n); });
    if (!isLearnt)
        return {};
    quint32 step = 0;
    quint64 begin = 0;
    {
        const MutexLock locker(mutex);
        if (i >= parts.size())
            return {};
        const Part &part = parts[i];
        begin = part.begin;
        if (!part.hasSteps) {
            const auto place = part.ends.find(n);
            if (!place)
                return {};
            step = place->step;
            n -= place->before;
        }
        const std::vector<quint16> &counts = part.stepCounts;
        while (part.hasSteps && step < counts.size() && n >= counts[step])
            n -= counts[step++];
    }
    const std::vector<quint16> positions = positionsIn(i, step);
    if (n >= positions.size())
        return {};
    return begin + quint64(step) * perStep + positions[n];
}

quint64 FilterRun::countBefore(quint64 position)
{
    follow();
    std::size_t i = 0;
    quint64 sum = 0;
    quint64 begin = 0;
    {
        const MutexLock locker(mutex);
        while (i < parts.size() && parts[i].begin + parts[i].segment->count() <= position)
            sum += parts[i++].found;
        if (i == parts.size() || position <= parts[i].begin)
            return sum;
        begin = parts[i].begin;
    }
    const auto step = quint32((position - begin) / perStep);
    const bool isLearnt = learn(
        i, [step](const EndCounts &ends) { return ends.before(step).has_value(); },
        [step](const EndCounts &ends) { return ends.nextForStep(step); });
    if (!isLearnt)
        return sum;
    {
        const MutexLock locker(mutex);
        if (i >= parts.size())
            return sum;
        const Part &part = parts[i];
        if (!part.hasSteps && !part.ends.isEmpty())
            sum += part.ends.before(step).value_or(0);
        for (quint32 s = 0; part.hasSteps && s < step && s < part.stepCounts.size(); ++s)
            sum += part.stepCounts[s];
    }
    const auto positions = positionsIn(i, step);
    return sum
        + quint64(std::lower_bound(positions.begin(), positions.end(),
                                   quint16((position - begin) % perStep))
                  - positions.begin());
}
