#include "traceitems.h"

#include "canframe.h"
#include "plaintexts.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

struct Items
{
    Q_DECLARE_TR_FUNCTIONS(Items)
};

constexpr int rowsBetweenQuestions = 256;

} // namespace

bool TraceSelection::isAll() const
{
    const TraceSelection all;
    return first == all.first && behind == all.behind && firstTime == all.firstTime
        && lastTime == all.lastTime && !expression && !positions;
}

TimelineItems::TimelineItems(const TraceTimeline &timeline, TraceSelection wanted)
    : timeline(timeline), selection(std::move(wanted))
{
    selection.behind = std::min(selection.behind, timeline.count());
    selection.first = std::min(selection.first, selection.behind);
}

bool TimelineItems::forEach(const Take &take, const GoesOn &goesOn)
{
    ownProblems = timeline.problems();
    gone = 0;
    if (selection.positions)
        visitRows(take, goesOn);
    else if (selection.expression)
        visitFound(take, goesOn);
    else
        visitAll(take, goesOn);
    if (gone > 0)
        ownProblems += Items::tr("%L1 messages are no longer there.", nullptr, int(gone)).arg(gone);
    return true;
}

bool TimelineItems::hasTime(const CAN::CanRxMessage &message) const
{
    const qint64 time = CAN::timeOf(message);
    return time >= selection.firstTime && time <= selection.lastTime;
}

double TimelineItems::partAt(quint64 position) const
{
    const quint64 all = selection.behind - selection.first;
    return all == 0 ? 1 : double(position - selection.first) / double(all);
}

// A block has its notes, but tells nothing of bookmarks.
void TimelineItems::visitAll(const Take &take, const GoesOn &goesOn)
{
    const QVector<quint64> marked = timeline.bookmarkPositions();
    auto nextMarked = std::lower_bound(marked.begin(), marked.end(), selection.first);
    TraceItem item;
    const auto visit = [&](const TraceBlock &block) {
        for (int i = 0; i < block.count; ++i) {
            const quint64 position = block.position + quint64(i);
            item.message = block.messages[i];
            item.note = block.notes.value(item.message.messageNumber);
            nextMarked = std::lower_bound(nextMarked, marked.end(), position);
            const bool isMarked = nextMarked != marked.end() && *nextMarked == position;
            item.bookmark = isMarked ? timeline.row(position).bookmark : CanMessageBookmark();
            if (hasTime(item.message) && !take(item))
                return false;
        }
        return goesOn(partAt(block.position));
    };
    gone += timeline.forEach(selection.first, selection.behind - selection.first, visit);
}

bool TimelineItems::takeRow(quint64 position, const Take &take)
{
    const TraceRow row = timeline.row(position);
    if (row.state != TraceRow::Known)
        ++gone;
    else if (hasTime(row.message))
        return take({row.message, row.note, row.bookmark, 0});
    return true;
}

void TimelineItems::visitRows(const Take &take, const GoesOn &goesOn)
{
    const QVector<quint64> &positions = *selection.positions;
    for (int i = 0; i < positions.size(); ++i) {
        if (!takeRow(positions.at(i), take))
            return;
        if (i % rowsBetweenQuestions == 0 && !goesOn(double(i) / double(positions.size())))
            return;
    }
}

void TimelineItems::visitFound(const Take &take, const GoesOn &goesOn)
{
    double part = 0;
    const auto visit = [&](const QVector<quint64> &positions) {
        for (const quint64 position : positions) {
            if (!takeRow(position, take))
                return false;
        }
        if (!positions.isEmpty())
            part = partAt(positions.last());
        return goesOn(part);
    };
    gone += timeline.forEachFound(*selection.expression, selection.first,
                                  selection.behind - selection.first, visit);
}

bool FileItems::forEach(const Take &take, const GoesOn &goesOn)
{
    TraceStream stream(source.path, source.type, source.formatDescription);
    stream.setMode(source.mode);
    const auto asksOn = [&] {
        const ImportProgress progress = stream.progress();
        return goesOn(progress.bytes > 0 ? double(progress.bytesRead) / double(progress.bytes) : 0);
    };
    const TraceStream::Result result = stream.read(take, asksOn);
    ownProblems = stream.errorTexts();
    const ImportReport &report = stream.report();
    if (const quint64 lost = report.linesLost())
        ownProblems += Items::tr("%L1 lines of %2 could not be read as frames.", nullptr, int(lost))
                           .arg(lost)
                           .arg(shortName(source.path));
    if (result == TraceStream::Failed && ownProblems.isEmpty())
        ownProblems += Items::tr("%1 could not be read.").arg(shortName(source.path));
    return result != TraceStream::Failed;
}
