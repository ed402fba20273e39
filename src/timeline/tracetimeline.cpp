#include "tracetimeline.h"

#include "annotating.h"
#include "filesource.h"
#include "filterrun.h"
#include "searching.h"
#include "timelinedata.h"
#include "tracefilter.h"
#include "visiting.h"

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
    constexpr unsigned long millisecondsBetweenQuestions = 2;
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

QVector<TraceChunk> TraceTimeline::chunks() const
{
    const SharedSnapshot snapshot = data->snapshot();
    QVector<TraceChunk> all;
    for (const auto &placed : snapshot->segments()) {
        const ChunkIndex &index = placed.segment->index();
        if (index.count > 0)
            all.append(
                {placed.segment->name(), placed.begin, index.count, index.minTime, index.maxTime});
    }
    return all;
}

quint64 TraceTimeline::forEach(quint64 from, quint64 count,
                               const std::function<bool(const TraceBlock &block)> &visit) const
{
    const SharedSnapshot snapshot = data->snapshot();
    return visitBlocks(*snapshot, from, snapshot->endOf(from, count), visit);
}

quint64 TraceTimeline::forEachFound(
    const TraceExpression &expression, quint64 from, quint64 count,
    const std::function<bool(const QVector<quint64> &positions)> &visit) const
{
    return Searching(*data, expression, {}).all(from, count, visit);
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
    return data->snapshot()->lastTime();
}

quint64 TraceTimeline::positionOfTime(qint64 time) const
{
    return data->snapshot()->positionOfTime(time);
}

std::optional<quint64> TraceTimeline::positionOfNumber(quint32 number) const
{
    return Searching::positionOfNumber(*data->snapshot(), number);
}

namespace {

TraceIdentifier identifierOf(FrameKey frame, quint64 first)
{
    const quint8 kind = frame.kind();
    return {frame.id(),
            frame.line(),
            (kind & FrameKey::Extended) != 0,
            (kind & FrameKey::Remote) != 0,
            (kind & FrameKey::FdFrame) != 0,
            0,
            first,
            0};
}

// Of the messages that anything is written on, rising.
std::vector<quint32> numbersOf(const TraceNotes::Marks &marks)
{
    std::vector<quint32> numbers(marks.notes.keyBegin(), marks.notes.keyEnd());
    numbers.insert(numbers.end(), marks.bookmarks.keyBegin(), marks.bookmarks.keyEnd());
    std::sort(numbers.begin(), numbers.end());
    numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
    return numbers;
}

void addMarks(const TraceSnapshot::Placed &placed, const TraceNotes::Marks &marks, int most,
              QVector<TraceMark> &all)
{
    for (const auto &message : Searching::offsetsOf(*placed.segment, numbersOf(marks))) {
        if (all.size() >= most)
            return;
        const TraceMark mark{placed.begin + message.offset, marks.notes.value(message.number),
                             marks.bookmarks.value(message.number)};
        if (!mark.note.isEmpty() || mark.bookmark.isValid())
            all.append(mark);
    }
}

} // namespace

QVector<quint64> TraceTimeline::bookmarkPositions() const
{
    const SharedSnapshot snapshot = data->snapshot();
    QVector<quint64> positions;
    for (const auto &placed : snapshot->segments()) {
        if (placed.segment->index().bookmarks == 0)
            continue;
        const auto marks = data->cache.marks(*placed.segment);
        for (const auto &message :
             Searching::offsetsOf(*placed.segment, numbersOf({{}, marks->bookmarks})))
            positions.append(placed.begin + message.offset);
    }
    return positions;
}

QVector<quint64> TraceTimeline::notePositions() const
{
    constexpr int most = 1000000;
    QVector<quint64> positions;
    for (const TraceMark &mark : marks(most)) {
        if (!mark.note.isEmpty())
            positions.append(mark.position);
    }
    return positions;
}

QVector<TraceMark> TraceTimeline::marks(int most, const std::function<bool()> &keepGoing) const
{
    const SharedSnapshot snapshot = data->snapshot();
    QVector<TraceMark> all;
    for (const auto &placed : snapshot->segments()) {
        const ChunkIndex &index = placed.segment->index();
        if (index.notes == 0 && index.bookmarks == 0)
            continue;
        if (all.size() >= most || (keepGoing && !keepGoing()))
            break;
        addMarks(placed, *data->cache.marks(*placed.segment), most, all);
    }
    return all;
}

quint32 TraceTimeline::generation() const
{
    return data->snapshot()->epoch();
}

bool TraceTimeline::setNote(quint64 position, const QString &note, QString *error)
{
    return setNote(position, note, error, generation());
}

bool TraceTimeline::setNote(quint64 position, const QString &note, QString *error,
                            quint32 generation)
{
    return annotate(*data->source, generation, position, {0, note, {}}, error);
}

bool TraceTimeline::setBookmark(quint64 position, const QString &text, QString *error)
{
    return setBookmark(position, text, error, generation());
}

bool TraceTimeline::setBookmark(quint64 position, const QString &text, QString *error,
                                quint32 generation)
{
    return annotate(*data->source, generation, position, {0, {}, text}, error);
}

QVector<TraceIdentifier> TraceTimeline::identifiers(bool *isExact) const
{
    // A trace of nothing but different ones must not fill the memory.
    constexpr std::size_t mostIdentifiers = 1000000;
    const SharedSnapshot snapshot = data->snapshot();
    std::map<quint64, TraceIdentifier> byKey;
    bool exact = true;
    for (const auto &placed : snapshot->segments()) {
        const ChunkIndex &index = placed.segment->index();
        exact = exact && index.hasAllKeys;
        for (std::size_t i = 0; i < index.keys.size(); ++i) {
            const FrameKey frame = index.keys.frame(i);
            auto sum = byKey.find(frame.value());
            if (sum == byKey.end() && byKey.size() < mostIdentifiers) {
                const auto first = identifierOf(frame, placed.begin + index.keys.firsts[i]);
                sum = byKey.emplace(frame.value(), first).first;
            }
            exact = exact && sum != byKey.end();
            if (sum == byKey.end())
                continue;
            sum->second.count += index.keys.counts[i];
            sum->second.last = placed.begin + index.keys.lasts[i];
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
