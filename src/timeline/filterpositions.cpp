// Which messages those are that a filter has found.

#include "filterrun.h"

namespace {

constexpr quint32 perStep = ChunkIndex::recordsPerStep;

} // namespace

// A part that was counted by its keys is looked at once more where it matters which messages they
// are. Others the threads look at.
void FilterRun::findSteps(quint64 begin)
{
    Look look;
    {
        const MutexLock locker(mutex);
        const Part *part = partAt(begin);
        if (!part || part->stepsDone >= part->done)
            return;
        look.segment = part->segment;
        look.begin = part->stepsDone;
        look.end = part->done;
    }
    const Notes notes = filter.needsNotes() ? look.segment->marks().notes : Notes();
    const KeyCounter::Span span =
        KeyCounter(filter).span(look.segment->index(), look.segment->isChunk());
    const quint32 first = std::max(look.begin, span.begin);
    const bool isThere = look.segment->scan(
        {filter, notes, nullptr, first, std::max(first, std::min(look.end, span.end))},
        [&look](quint32 step, const quint16 *positions, int count) {
            look.positions.resize(step - look.begin / perStep);
            look.positions.emplace_back(positions, positions + count);
            return true;
        });
    look.positions.resize((look.end + perStep - 1) / perStep - look.begin / perStep);
    const MutexLock locker(mutex);
    Part *part = partAt(begin);
    if (isThere && part && part->stepsDone == look.begin && part->done >= look.end)
        addSteps(*part, look);
}

std::vector<quint16> FilterRun::positionsIn(quint64 begin, quint32 step)
{
    SharedSegment segment;
    {
        const MutexLock locker(mutex);
        const Part *part = partAt(begin);
        if (!part || step >= part->stepCounts.size())
            return {};
        if (inOrder)
            return part->positions[step];
        segment = part->segment;
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

std::optional<quint64> FilterRun::positionOf(quint64 begin, quint64 n)
{
    findSteps(begin);
    quint32 step = 0;
    {
        const MutexLock locker(mutex);
        const Part *part = partAt(begin);
        if (!part)
            return {};
        while (step < part->stepCounts.size() && n >= part->stepCounts[step])
            n -= part->stepCounts[step++];
    }
    const std::vector<quint16> positions = positionsIn(begin, step);
    if (n >= positions.size())
        return {};
    return begin + quint64(step) * perStep + positions[n];
}

quint64 FilterRun::countIn(quint64 begin, quint64 position)
{
    findSteps(begin);
    const auto step = quint32((position - begin) / perStep);
    quint64 sum = 0;
    {
        const MutexLock locker(mutex);
        const Part *part = partAt(begin);
        if (!part)
            return 0;
        for (quint32 s = 0; s < step && s < part->stepCounts.size(); ++s)
            sum += part->stepCounts[s];
    }
    const std::vector<quint16> positions = positionsIn(begin, step);
    const auto behind =
        std::lower_bound(positions.begin(), positions.end(), quint16((position - begin) % perStep));
    return sum + quint64(behind - positions.begin());
}

std::optional<quint64> FilterRun::at(quint64 n)
{
    follow();
    quint64 begin = 0;
    {
        const MutexLock locker(mutex);
        auto part = parts.begin();
        while (part != parts.end() && n >= part->found)
            n -= (part++)->found;
        if (part == parts.end())
            return {};
        begin = part->begin;
    }
    return positionOf(begin, n);
}

quint64 FilterRun::countBefore(quint64 position)
{
    follow();
    quint64 sum = 0;
    quint64 begin = 0;
    {
        const MutexLock locker(mutex);
        auto part = parts.begin();
        while (part != parts.end() && part->begin + part->segment->count() <= position)
            sum += (part++)->found;
        if (part == parts.end() || position <= part->begin)
            return sum;
        begin = part->begin;
    }
    return sum + countIn(begin, position);
}
