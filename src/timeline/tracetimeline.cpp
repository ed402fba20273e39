#include "tracetimeline.h"

#include "filesource.h"
#include "filterrun.h"
#include "searching.h"
#include "timelinedata.h"
#include "tracefilter.h"

#include <QThread>

#include <map>

const std::shared_ptr<TraceTimeline::Data> &dataOf(const TraceTimeline &timeline)
{
    return timeline.data;
}

TraceTimeline::TraceTimeline(const QStringList &paths)
    : TraceTimeline(std::make_shared<FileSource>(paths))
{
}

TraceTimeline::TraceTimeline(std::shared_ptr<TraceSource> source)
    : data(std::make_shared<Data>(std::move(source)))
{
}

TraceTimeline::~TraceTimeline() = default;
TraceTimeline::TraceTimeline(const TraceTimeline &) = default;
TraceTimeline &TraceTimeline::operator=(const TraceTimeline &) = default;

bool TraceTimeline::refresh()
{
    return data->refresh();
}

bool TraceTimeline::mayChange() const
{
    return data->source->mayChange();
}

bool TraceTimeline::isComplete() const
{
    return data->source->isComplete();
}

bool TraceTimeline::waitForAll(const std::function<bool()> &keepGoing)
{
    constexpr unsigned long millisecondsBetweenQuestions = 20;
    while (!isComplete()) {
        if (keepGoing && !keepGoing())
            return false;
        QThread::msleep(millisecondsBetweenQuestions);
    }
    refresh();
    return true;
}

QStringList TraceTimeline::problems() const
{
    return data->source->problems();
}

quint64 TraceTimeline::count() const
{
    return data->snapshot()->count();
}

TraceRow TraceTimeline::row(quint64 position) const
{
    return data->cache.row(*data->snapshot(), position);
}

qint64 TraceTimeline::firstTime() const
{
    return data->snapshot()->firstTime();
}

qint64 TraceTimeline::lastTime() const
{
    const SharedSnapshot snapshot = data->snapshot();
    return snapshot->segments().empty() ? 0 : snapshot->segments().back().maxTime();
}

quint64 TraceTimeline::positionOfTime(qint64 time) const
{
    return data->snapshot()->positionOfTime(time);
}

std::optional<quint64> TraceTimeline::positionOfNumber(quint32 number) const
{
    return Searching::positionOfNumber(*data->snapshot(), number);
}

QVector<TraceIdentifier> TraceTimeline::identifiers(bool *isExact) const
{
    const SharedSnapshot snapshot = data->snapshot();
    std::map<quint64, TraceIdentifier> byKey;
    bool exact = true;
    for (const auto &placed : snapshot->segments()) {
        const ChunkIndex &index = placed.segment->index();
        exact = exact && index.hasAllKeys;
        for (const ChunkIndex::Key &key : index.keys) {
            TraceIdentifier &sum = byKey[key.frame.value()];
            if (sum.count == 0) {
                const quint8 kind = key.frame.kind();
                sum = {key.frame.id(),
                       key.frame.line(),
                       (kind & FrameKey::Extended) != 0,
                       (kind & FrameKey::Remote) != 0,
                       (kind & FrameKey::FdFrame) != 0,
                       0,
                       placed.begin + key.first,
                       0};
            }
            sum.count += key.count;
            sum.last = placed.begin + key.last;
        }
    }
    if (isExact)
        *isExact = exact;
    QVector<TraceIdentifier> all;
    for (const auto &entry : byKey)
        all.append(entry.second);
    return all;
}

TraceFilter TraceTimeline::filter(const TraceExpression &expression, quint64 focus) const
{
    return TraceFilter(std::make_shared<FilterRun>(data, expression, focus));
}

std::optional<quint64> TraceTimeline::findNext(const TraceExpression &expression, quint64 position,
                                               const std::function<bool()> &keepGoing) const
{
    return Searching(*data, expression, keepGoing).next(position);
}

std::optional<quint64> TraceTimeline::findPrevious(const TraceExpression &expression,
                                                   quint64 position,
                                                   const std::function<bool()> &keepGoing) const
{
    return Searching(*data, expression, keepGoing).previous(position);
}
