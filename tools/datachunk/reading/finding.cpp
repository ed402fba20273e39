#include "finding.h"

#include "stopsignals.h"
#include "tracefilter.h"
#include "tracematcher.h"

#include <QCoreApplication>

#include <deque>

namespace {

using Result = TraceReading::Result;

// Looks through a trace from front to back.
class StreamSearch
{
public:
    StreamSearch(const FindRequest &request, quint64 begin, FindOutput &output)
        : request(request), begin(begin), output(output), matcher(request.selection.expression())
    {
    }

    Result run(TraceInput &input)
    {
        return input.forEachMessage(0, [this](quint64 at, const TraceItem &item) {
            end = at + 1;
            return take(begin + at, item.message, item.note);
        });
    }
    quint64 count() const { return end; }

private:
    struct Waiting
    {
        CAN::CanRxMessage message;
        QString note;
    };

    // False when nothing more is wanted.
    bool take(quint64 position, const CAN::CanRxMessage &message, const QString &note)
    {
        const Positions &wanted = request.selection.positions();
        const bool isTaken = matcher.takes(message, note) && wanted.contains(position);
        const bool isHit = isTaken && !output.isFull();
        if (request.counts) {
            output.addCount(isHit ? 1 : 0);
            return !output.isFull() && position < wanted.last();
        }
        if (isHit)
            return printWaiting(position) && output.print(message, note, position, true)
                && !output.isDone(position + 1);
        if (position < output.contextEnd() && output.count() > 0)
            return output.print(message, note, position, false) && !output.isDone(position + 1);
        if (request.before > 0) {
            waiting.push_back({message, note});
            if (waiting.size() > request.before)
                waiting.pop_front();
        }
        return !output.isDone(position + 1);
    }

    bool printWaiting(quint64 end)
    {
        quint64 position = end - waiting.size();
        for (const Waiting &item : waiting) {
            if (!output.print(item.message, item.note, position++, false))
                return false;
        }
        waiting.clear();
        return true;
    }

    const FindRequest &request;
    const quint64 begin;
    FindOutput &output;
    TraceMatcher matcher;
    std::deque<Waiting> waiting;
    quint64 end = 0;
};

// Looks where the index of a timeline leads to.
class TimelineSearch
{
public:
    TimelineSearch(const FindRequest &request, quint64 begin, FindOutput &output)
        : request(request), begin(begin), output(output)
    {
    }

    Result run(const TraceInput &input)
    {
        timeline = input.timeline();
        if (request.counts)
            count();
        else
            print();
        return interrupted(input.subject()) ? Result::Failed : tellGone(input.subject(), gone);
    }

private:
    static bool goesOn()
    {
        QCoreApplication::processEvents();
        return !StopSignals::received();
    }
    // The ends of what may be a hit, the second not included.
    quint64 from() const { return request.selection.positions().firstIn(begin); }
    quint64 end() const
    {
        return std::max(from(), request.selection.positions().endIn(begin, timeline->count()));
    }

    void count()
    {
        const TraceFilter filter = timeline->filter(request.selection.expression());
        if (!filter.wait(goesOn))
            return;
        output.addCount(filter.countBefore(end()) - (from() > 0 ? filter.countBefore(from()) : 0));
        gone = filter.messagesGone();
    }

    void print()
    {
        gone += timeline->forEachFound(request.selection.expression(), from(), end() - from(),
                                       [this](const QVector<quint64> &found) {
                                           const bool goesOnPrinting = std::all_of(
                                               found.begin(), found.end(),
                                               [this](quint64 position) { return take(position); });
                                           return goesOnPrinting && !output.isFull() && goesOn();
                                       });
        printContext(timeline->count());
    }

    bool take(quint64 position)
    {
        if (output.isFull() || !printContext(position))
            return false;
        const quint64 begins = position - std::min(position, request.before);
        for (quint64 at = std::max(begins, next()); at < position; ++at) {
            if (!printRow(at, false))
                return false;
        }
        return printRow(position, true);
    }

    // What stands behind the last hit, but not behind \a end.
    bool printContext(quint64 end)
    {
        const quint64 last = output.contextEnd() > begin ? output.contextEnd() - begin : 0;
        for (quint64 at = next(); at < std::min(end, last); ++at) {
            if (!printRow(at, false))
                return false;
        }
        return true;
    }

    quint64 next() const { return output.next() > begin ? output.next() - begin : 0; }

    bool printRow(quint64 at, bool isHit)
    {
        const TraceRow row = timeline->row(at);
        if (row.state != TraceRow::Known) {
            ++gone;
            return goesOn();
        }
        return output.print(row.message, row.note, begin + at, isHit);
    }

    const FindRequest &request;
    const quint64 begin;
    FindOutput &output;
    const TraceTimeline *timeline = nullptr;
    quint64 gone = 0;
};

} // namespace

Result findIn(TraceInput &input, const FindRequest &request, quint64 &position, FindOutput &output)
{
    const Result opened = input.open();
    if (opened == Result::Failed)
        return opened;
    if (input.timeline()) {
        TimelineSearch search(request, position, output);
        const Result result = search.run(input);
        position += input.timeline()->count();
        return worse(opened, result);
    }
    StreamSearch search(request, position, output);
    const Result result = search.run(input);
    position += search.count();
    return worse(opened, result);
}
