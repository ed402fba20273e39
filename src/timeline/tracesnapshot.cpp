#include "tracesnapshot.h"

namespace {

constexpr quint32 perStep = ChunkIndex::recordsPerStep;

// The first message of a segment at or behind which the highest time is `time`.
quint32 offsetOfTime(const TraceSegment &segment, qint64 time)
{
    const ChunkIndex &index = segment.index();
    const auto step =
        quint32(std::lower_bound(index.steps.begin(), index.steps.end(), time,
                                 [](const ChunkIndex::Step &s, qint64 t) { return s.maxTime < t; })
                - index.steps.begin());
    TraceSegment::Messages messages;
    if (step == index.stepCount() || !segment.decode(step, messages))
        return std::min(step * perStep, index.count);
    const auto found =
        std::find_if(messages.begin(), messages.end(), [time](const CAN::CanRxMessage &message) {
            return MessageView(message).time() >= time;
        });
    return step * perStep + quint32(found - messages.begin());
}

} // namespace

void TraceSnapshot::append(SharedSegment segment, quint64 gap)
{
    const qint64 before = all.empty() ? std::numeric_limits<qint64>::min() : all.back().maxTime();
    all.push_back({count() + gap, std::move(segment), before});
}

std::size_t TraceSnapshot::indexOf(quint64 position) const
{
    return std::size_t(
        std::upper_bound(all.begin(), all.end(), position,
                         [](quint64 p, const Placed &placed) { return p < placed.end(); })
        - all.begin());
}

TraceSnapshot::Place TraceSnapshot::at(quint64 position) const
{
    const std::size_t i = indexOf(position);
    if (i == all.size() || position < all[i].begin)
        return {};
    return {&all[i], quint32(position - all[i].begin)};
}

qint64 TraceSnapshot::firstTime() const
{
    std::optional<qint64> time;
    for (const Placed &placed : all) {
        const ChunkIndex &index = placed.segment->index();
        if (index.wholeRecords() > 0)
            time = std::min(time.value_or(index.minTime), index.minTime);
    }
    return time.value_or(0);
}

qint64 TraceSnapshot::lastTime() const
{
    constexpr qint64 none = std::numeric_limits<qint64>::min();
    const qint64 time = all.empty() ? none : all.back().maxTime();
    return time == none ? 0 : time;
}

quint64 TraceSnapshot::positionOfTime(qint64 time) const
{
    const auto placed =
        std::lower_bound(all.begin(), all.end(), time,
                         [](const Placed &candidate, qint64 t) { return candidate.maxTime() < t; });
    return placed == all.end() ? count() : placed->begin + offsetOfTime(*placed->segment, time);
}
