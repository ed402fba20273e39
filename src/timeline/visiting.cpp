#include "visiting.h"

namespace {

constexpr quint32 perStep = ChunkIndex::recordsPerStep;

// Hands out the messages of a segment at \a begin up to \a end. False when the visitor stops.
bool visitSegment(const TraceSnapshot::Placed &placed, quint32 begin, quint32 end,
                  const std::function<bool(const TraceBlock &block)> &visit, quint64 &gone)
{
    const TraceSegment &segment = *placed.segment;
    const Notes notes = segment.marks().notes;
    TraceSegment::Messages messages;
    for (quint32 at = begin; at < end;) {
        const quint32 step = at / perStep;
        // What a chunk has lost once does not come back.
        if (!segment.decode(step, messages)) {
            gone += end - at;
            return true;
        }
        const quint32 next = std::min(end, (step + 1) * perStep);
        const TraceBlock block{placed.begin + at, messages.data() + at % perStep, int(next - at),
                               notes};
        if (!visit(block))
            return false;
        at = next;
    }
    return true;
}

} // namespace

quint64 visitBlocks(const TraceSnapshot &snapshot, quint64 from, quint64 end,
                    const std::function<bool(const TraceBlock &block)> &visit)
{
    quint64 gone = 0;
    quint64 next = from;
    const auto &segments = snapshot.segments();
    for (std::size_t i = snapshot.indexOf(from); i < segments.size() && next < end; ++i) {
        const TraceSnapshot::Placed &placed = segments[i];
        gone += std::min(end, std::max(placed.begin, next)) - next;
        if (placed.begin >= end)
            break;
        const quint64 begin = std::max(placed.begin, next);
        next = std::min(end, placed.end());
        if (!visitSegment(placed, quint32(begin - placed.begin), quint32(next - placed.begin),
                          visit, gone))
            break;
    }
    return gone;
}
