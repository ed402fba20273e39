// How often messages came.

#include "timelinedata.h"

#include <cmath>
#include <set>

namespace {

// The counts in front of a place in time, for each line and behind them for error frames.
class RateCounter
{
public:
    RateCounter(const TraceSnapshot &snapshot, const std::vector<quint8> &lines)
        : snapshot(snapshot), lines(lines), beforeSegment(lines.size() + 1)
    {
    }

    // Of the messages in front of `time`; times must not fall from call to call.
    std::vector<double> before(qint64 time)
    {
        const auto &segments = snapshot.segments();
        while (next < segments.size() && segments[next].maxTime() < time)
            add(*segments[next++].segment, beforeSegment);
        std::vector<double> counts = beforeSegment;
        if (next < segments.size())
            addPart(segments[next], time, counts);
        return counts;
    }

private:
    // All of a segment.
    void add(const TraceSegment &segment, std::vector<double> &counts) const
    {
        addStepEnd(segment, segment.index().stepCount() - 1, 1, counts);
    }

    // What is in front of a step, and a part of the step itself.
    void addStepEnd(const TraceSegment &segment, quint32 step, double part,
                    std::vector<double> &counts) const
    {
        const ChunkIndex &index = segment.index();
        for (std::size_t i = 0; i < index.lines.size() + 1; ++i) {
            const bool isError = i == index.lines.size();
            const auto line = isError
                ? lines.end()
                : std::lower_bound(lines.begin(), lines.end(), index.lines[i]);
            const double before = countBefore(segment, step, i);
            const double behind = countBefore(segment, step + 1, i);
            counts[std::size_t(line - lines.begin())] += before + part * (behind - before);
        }
    }

    // In front of a step, or of the end of the last one.
    static double countBefore(const TraceSegment &segment, quint32 step, std::size_t i)
    {
        const ChunkIndex &index = segment.index();
        return step < index.stepCount()
            ? index.countsBefore[step * std::size_t(index.countsPerStep()) + i]
            : segment.totals()[i];
    }

    void addPart(const TraceSnapshot::Placed &placed, qint64 time,
                 std::vector<double> &counts) const
    {
        const ChunkIndex &index = placed.segment->index();
        const auto found =
            std::lower_bound(index.steps.begin(), index.steps.end(), time,
                             [](const ChunkIndex::Step &s, qint64 t) { return s.maxTime < t; });
        const auto step = quint32(found - index.steps.begin());
        if (step == index.stepCount())
            return;
        const double span = double(found->maxTime) - double(found->time);
        const double part = span <= 0 ? 0 : (double(time) - double(found->time)) / span;
        addStepEnd(*placed.segment, step, std::clamp(part, 0.0, 1.0), counts);
    }

    const TraceSnapshot &snapshot;
    const std::vector<quint8> &lines;
    std::vector<double> beforeSegment;
    std::size_t next = 0;
};

std::vector<quint8> linesOf(const TraceSnapshot &snapshot)
{
    std::set<quint8> lines;
    for (const TraceSnapshot::Placed &placed : snapshot.segments())
        lines.insert(placed.segment->index().lines.begin(), placed.segment->index().lines.end());
    return {lines.begin(), lines.end()};
}

} // namespace

TraceRate TraceTimeline::rate(qint64 from, qint64 to, int intervals) const
{
    const SharedSnapshot snapshot = data->snapshot();
    const std::vector<quint8> lines = linesOf(*snapshot);
    TraceRate rate;
    for (const quint8 line : lines)
        rate.lines.append(line);
    if (intervals <= 0 || to < from)
        return rate;
    RateCounter counter(*snapshot, lines);
    std::vector<double> before = counter.before(from);
    for (int i = 1; i <= intervals; ++i) {
        const double end = double(from) + (double(to) - double(from)) * i / intervals;
        const std::vector<double> now = counter.before(i == intervals ? to : qint64(end));
        QVector<quint64> messages;
        for (std::size_t line = 0; line < lines.size(); ++line)
            messages.append(quint64(std::llround(now[line]) - std::llround(before[line])));
        rate.messages.append(messages);
        rate.errors.append(quint64(std::llround(now.back()) - std::llround(before.back())));
        before = now;
    }
    return rate;
}
