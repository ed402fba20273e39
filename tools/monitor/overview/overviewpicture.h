#pragma once

#include "tracetimeline.h"

#include <QVector>

/// A message with a note or bookmark.
struct OverviewMark
{
    quint64 position = 0;
    qint64 time = 0; ///< in microseconds
    bool isBookmark = false;
    QString text;
};

/// What an overview shows of a trace, for so much of its time. Times are in microseconds.
struct OverviewPicture
{
    qint64 traceFirst = 0; ///< of the whole trace
    qint64 traceLast = 0;
    qint64 first = 0; ///< of what is shown
    qint64 last = 0;
    TraceRate rate; ///< of what is shown
    quint64 messages = 0;
    QVector<OverviewMark> marks; ///< of the whole trace, bookmarks and notes by time
    bool hasAllMarks = true;

    /// Length of an interval, 0 where there are none.
    double intervalTime() const;
    /// The interval at a time, limited to those that there are.
    int intervalAt(qint64 time) const;
};

/// What is to be shown: a part of the time, or all of it where \a first is not below \a last.
struct OverviewWish
{
    qint64 first = 0;
    qint64 last = 0;
    int intervals = 0; ///< at most
};

/// Everything but the marks. Counts a few messages one by one, and takes the steps of the timeline
/// for many. \a keepGoing is asked again and again.
OverviewPicture overviewOf(const TraceTimeline &timeline, const OverviewWish &wish,
                           const std::function<bool()> &keepGoing);

/// The first \a most notes and as many bookmarks, by time; \a areAll says whether there are no
/// more. Reads chunks that have any. \a keepGoing is asked again and again; what was found until it
/// returns false is returned.
QVector<OverviewMark> marksOf(const TraceTimeline &timeline, int most, bool &areAll,
                              const std::function<bool()> &keepGoing);
