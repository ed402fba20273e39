#include "overviewpicture.h"

#include "canframe.h"
#include "traceexpression.h"

#include <algorithm>

double OverviewPicture::intervalTime() const
{
    return rate.messages.isEmpty() ? 0 : double(last - first) / rate.messages.size();
}

int OverviewPicture::intervalAt(qint64 time) const
{
    const double width = intervalTime();
    const int most = rate.messages.size() - 1;
    return width <= 0 ? 0 : std::clamp(int(double(time - first) / width), 0, std::max(0, most));
}

namespace {

// The steps of a timeline tell too little of a trace with few of them.
constexpr quint64 mostCounted = 200000;

void count(const CAN::CanRxMessage &message, OverviewPicture &picture)
{
    const qint64 time = CAN::timeOf(message);
    if (time < picture.first || time >= picture.last)
        return;
    const auto line = quint8(message.line);
    TraceRate &rate = picture.rate;
    const auto found = std::lower_bound(rate.lines.cbegin(), rate.lines.cend(), line);
    const int interval = picture.intervalAt(time);
    if (found != rate.lines.cend() && *found == line)
        ++rate.messages[interval][int(found - rate.lines.cbegin())];
    rate.errors[interval] += message.id == CAN::errorFrameId ? 1 : 0;
}

// No more than there are messages for, so that the counts of neighbours can be compared.
int intervalsFor(const TraceTimeline &timeline, const OverviewPicture &picture,
                 const OverviewWish &wish)
{
    constexpr quint64 least = 20;
    constexpr quint64 perInterval = 2;
    const quint64 begin = timeline.positionOfTime(picture.first);
    const quint64 end = timeline.positionOfTime(picture.last);
    const quint64 messages = end - std::min(begin, end);
    return int(
        std::min(quint64(std::max(0, wish.intervals)), std::max(least, messages / perInterval)));
}

// Replaces the counts by exact ones, where the messages are few.
void countOneByOne(const TraceTimeline &timeline, OverviewPicture &picture,
                   const std::function<bool()> &keepGoing)
{
    const quint64 begin = timeline.positionOfTime(picture.first);
    const quint64 end = timeline.positionOfTime(picture.last);
    if (end - std::min(begin, end) > mostCounted || picture.rate.messages.isEmpty())
        return;
    const TraceRate roughly = picture.rate;
    for (QVector<quint64> &counts : picture.rate.messages)
        counts.fill(0);
    picture.rate.errors.fill(0);
    bool isWhole = true;
    timeline.forEach(begin, end - std::min(begin, end), [&](const TraceBlock &block) {
        for (int i = 0; i < block.count; ++i)
            count(block.messages[i], picture);
        isWhole = keepGoing();
        return isWhole;
    });
    if (!isWhole)
        picture.rate = roughly;
}

} // namespace

OverviewPicture overviewOf(const TraceTimeline &timeline, const OverviewWish &wish,
                           const std::function<bool()> &keepGoing)
{
    OverviewPicture picture;
    picture.messages = timeline.count();
    if (picture.messages == 0)
        return picture;
    picture.traceFirst = timeline.firstTime();
    // The end of an interval does not belong to it.
    picture.traceLast = timeline.lastTime() + 1;
    constexpr qint64 shortest = 1000;
    constexpr qint64 second = 1000000;
    if (picture.traceLast - picture.traceFirst < shortest)
        picture.traceLast = picture.traceFirst + second;
    const bool isPart = wish.first < wish.last;
    picture.first = isPart ? wish.first : picture.traceFirst;
    picture.last = isPart ? wish.last : picture.traceLast;
    picture.rate =
        timeline.rate(picture.first, picture.last, intervalsFor(timeline, picture, wish));
    countOneByOne(timeline, picture, keepGoing);
    return picture;
}

QVector<OverviewMark> marksOf(const TraceTimeline &timeline, int most, bool &areAll,
                              const std::function<bool()> &keepGoing)
{
    QVector<OverviewMark> marks;
    const auto add = [&](quint64 position, bool isBookmark) {
        const TraceRow row = timeline.row(position);
        if (row.state == TraceRow::Known)
            marks.append({position, CAN::timeOf(row.message), isBookmark,
                          isBookmark ? row.bookmark.text() : row.note});
        return keepGoing();
    };
    const QVector<quint64> bookmarks = timeline.bookmarkPositions();
    areAll = bookmarks.size() <= most;
    for (int i = 0; i < bookmarks.size() && i < most; ++i) {
        if (!add(bookmarks.at(i), true))
            return marks;
    }
    const auto notes = TraceExpression::parse(QStringLiteral("note"));
    int left = most;
    timeline.forEachFound(*notes, 0, timeline.count(), [&](const QVector<quint64> &positions) {
        for (const quint64 position : positions) {
            areAll = areAll && left > 0;
            if (--left < 0 || !add(position, false))
                return false;
        }
        return keepGoing();
    });
    std::stable_sort(marks.begin(), marks.end(),
                     [](const OverviewMark &a, const OverviewMark &b) { return a.time < b.time; });
    return marks;
}
