#include "searching.h"

#include "changetracker.h"

namespace {

constexpr quint32 perStep = ChunkIndex::recordsPerStep;

Notes notesFor(const FrameFilter &filter, const TraceSegment &segment)
{
    return filter.needsNotes() ? segment.marks().notes : Notes();
}

} // namespace

Searching::Searching(const TraceTimeline::Data &data, const TraceExpression &expression,
                     const KeepGoing &keepGoing)
    : snapshot(data.snapshot()), expression(expression), filter(filterOf(this->expression)),
      counter(filter), keepGoing(keepGoing)
{
}

// Where in it any may be found.
KeyCounter::Span Searching::spanIn(const TraceSegment &segment)
{
    return counter.span(segment.index(), segment.isChunk());
}

std::optional<quint64> Searching::next(quint64 position)
{
    if (filter.needsChanged())
        return changed(position, snapshot->count(), true);
    const auto &segments = snapshot->segments();
    for (std::size_t i = snapshot->indexOf(position); i < segments.size(); ++i) {
        const TraceSegment &segment = *segments[i].segment;
        const auto from = quint32(std::max(position, segments[i].begin) - segments[i].begin);
        const KeyCounter::Span span = spanIn(segment);
        if (span.end <= from)
            continue;
        std::optional<quint64> found;
        const auto take = [&](quint32 step, const quint16 *positions, int count) {
            if (count > 0)
                found = segments[i].begin + quint64(step) * perStep + positions[0];
            return !found && goesOn();
        };
        segment.scan(
            {filter, notesFor(filter, segment), nullptr, std::max(from, span.begin), span.end},
            take);
        if (found || !goesOn())
            return found;
    }
    return {};
}

std::optional<quint64> Searching::previous(quint64 position)
{
    if (filter.needsChanged())
        return changed(0, position, false);
    const auto &segments = snapshot->segments();
    std::size_t i = snapshot->indexOf(position);
    i += i < segments.size() && segments[i].begin < position ? 1 : 0;
    while (i-- > 0) {
        const auto end = quint32(std::min(position, segments[i].end()) - segments[i].begin);
        const KeyCounter::Span span = spanIn(*segments[i].segment);
        const auto found = lastIn(segments[i], {span.begin, std::min(end, span.end)});
        if (found || !goesOn())
            return found;
    }
    return {};
}

std::optional<quint64> Searching::lastIn(const TraceSnapshot::Placed &placed,
                                         KeyCounter::Span span) const
{
    const TraceSegment &segment = *placed.segment;
    if (span.begin >= span.end)
        return {};
    const Notes notes = notesFor(filter, segment);
    std::optional<quint64> found;
    const auto take = [&](quint32 step, const quint16 *positions, int count) {
        if (count > 0)
            found = placed.begin + quint64(step) * perStep + positions[count - 1];
        return true;
    };
    for (quint32 end = span.end; end > span.begin && !found && goesOn();) {
        const quint32 begin = std::max(span.begin, (end - 1) / perStep * perStep);
        segment.scan({filter, notes, nullptr, begin, end}, take);
        end = begin;
    }
    return found;
}

// Whether a message is changed depends on all in front of it.
std::optional<quint64> Searching::changed(quint64 begin, quint64 end, bool wantsFirst) const
{
    ChangeTracker changes;
    std::optional<quint64> found;
    for (const TraceSnapshot::Placed &placed : snapshot->segments()) {
        if (placed.begin >= end || (found && wantsFirst) || !goesOn())
            break;
        const auto take = [&](quint32 step, const quint16 *positions, int count) {
            for (int i = 0; i < count && !(found && wantsFirst); ++i) {
                const quint64 position = placed.begin + quint64(step) * perStep + positions[i];
                if (position >= begin)
                    found = position;
            }
            return !(found && wantsFirst) && goesOn();
        };
        const auto last = quint32(std::min(end, placed.end()) - placed.begin);
        placed.segment->scan({filter, notesFor(filter, *placed.segment), &changes, 0, last}, take);
    }
    return goesOn() || wantsFirst ? found : std::optional<quint64>();
}

quint64 Searching::all(quint64 from, quint64 count, const Visit &visit)
{
    const quint64 end = snapshot->endOf(from, count);
    const auto &segments = snapshot->segments();
    ChangeTracker changes;
    quint64 gone = 0;
    std::size_t i = filter.needsChanged() ? 0 : snapshot->indexOf(from);
    for (; from < end && i < segments.size() && segments[i].begin < end; ++i) {
        const KeyCounter::Span span = spanIn(*segments[i].segment);
        if (!filter.needsChanged() && span.begin >= span.end)
            continue;
        if (!allIn(segments[i], from, end, changes, visit, gone))
            break;
    }
    return gone;
}

// False when the visitor stops.
bool Searching::allIn(const TraceSnapshot::Placed &placed, quint64 from, quint64 end,
                      ChangeTracker &changes, const Visit &visit, quint64 &gone) const
{
    const TraceSegment &segment = *placed.segment;
    const auto offsetOf = [&placed](quint64 position) {
        return quint32(qBound(placed.begin, position, placed.end()) - placed.begin);
    };
    const quint32 first = offsetOf(from);
    const quint32 last = offsetOf(end);
    quint32 next = filter.needsChanged() ? 0 : first; // that is still to be looked at
    bool wantsMore = true;
    QVector<quint64> found;
    const auto take = [&](quint32 step, const quint16 *positions, int count) {
        found.resize(0);
        for (int at = 0; at < count; ++at) {
            const quint32 offset = step * perStep + positions[at];
            if (offset >= first)
                found.append(placed.begin + offset);
        }
        next = std::min(last, (step + 1) * perStep);
        wantsMore = visit(found);
        return wantsMore;
    };
    const Notes notes = notesFor(filter, segment);
    if (!segment.scan({filter, notes, filter.needsChanged() ? &changes : nullptr, next, last},
                      take))
        gone += last - std::max(first, next);
    return wantsMore;
}

std::optional<quint64> Searching::positionOfNumber(const TraceSnapshot &snapshot, quint32 number)
{
    for (const TraceSnapshot::Placed &placed : snapshot.segments()) {
        const TraceSegment &segment = *placed.segment;
        const ChunkIndex &index = segment.index();
        if (index.numbersRise) {
            const quint32 offset = number - index.firstNumber;
            if (offset < index.count)
                return placed.begin + offset;
            continue;
        }
        TraceSegment::Messages messages;
        for (quint32 step = 0; step < index.stepCount() && segment.decode(step, messages); ++step) {
            const auto found = std::find_if(messages.begin(), messages.end(),
                                            [number](const CAN::CanRxMessage &message) {
                                                return message.messageNumber == number;
                                            });
            if (found != messages.end())
                return placed.begin + quint64(step) * perStep + quint64(found - messages.begin());
        }
    }
    return {};
}

std::vector<Searching::Numbered> Searching::offsetsOf(const TraceSegment &segment,
                                                      const std::vector<quint32> &numbers)
{
    const ChunkIndex &index = segment.index();
    std::vector<Numbered> found;
    if (index.numbersRise) {
        for (const quint32 number : numbers) {
            if (number - index.firstNumber < index.count)
                found.push_back({number - index.firstNumber, number});
        }
        std::sort(found.begin(), found.end(),
                  [](Numbered a, Numbered b) { return a.offset < b.offset; });
        return found;
    }
    TraceSegment::Messages messages;
    for (quint32 step = 0; step < index.stepCount(); ++step) {
        if (!segment.decode(step, messages))
            continue;
        for (std::size_t i = 0; i < messages.size(); ++i) {
            const quint32 number = messages[i].messageNumber;
            if (std::binary_search(numbers.begin(), numbers.end(), number))
                found.push_back({step * perStep + quint32(i), number});
        }
    }
    return found;
}
