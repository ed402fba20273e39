#include "overviewreader.h"

#include <memory>

namespace {

constexpr int millisecondsPerPicture = 250;

} // namespace

OverviewReader::OverviewReader(const TraceTimeline &timeline, QObject *parent)
    : QObject(parent), timeline(timeline),
      thread([this](const TurningThread::KeepGoing &keepGoing) { return turn(keepGoing); })
{
}

void OverviewReader::setWish(const OverviewWish &newWish)
{
    {
        const std::lock_guard<std::mutex> locker(mutex);
        wish = newWish;
        isWishNew = true;
    }
    thread.wake();
}

void OverviewReader::readMarks()
{
    areMarksOld = true;
    thread.wake();
}

int OverviewReader::turn(const TurningThread::KeepGoing &keepGoing)
{
    timeline.refresh();
    OverviewWish wanted;
    bool isNew = false;
    {
        const std::lock_guard<std::mutex> locker(mutex);
        wanted = wish;
        isNew = std::exchange(isWishNew, false);
    }
    if (isNew || timeline.count() != picture.messages
        || timeline.firstTime() != picture.traceFirst) {
        OverviewPicture fresh = overviewOf(timeline, wanted, keepGoing);
        fresh.marks = picture.marks;
        fresh.hasAllMarks = picture.hasAllMarks;
        picture = std::move(fresh);
        isTold = false;
        publish();
    }
    if (lookForMarks(keepGoing))
        isTold = false;
    publish();
    const bool mayChange = timeline.mayChange() || !timeline.isComplete();
    return mayChange || !isTold || areMarksOld ? millisecondsPerPicture : -1;
}

// True when there are others, as far as that can be told without comparing them.
bool OverviewReader::lookForMarks(const TurningThread::KeepGoing &keepGoing)
{
    // It may take one part of so many of the time, and less where the trace stays as it is.
    const bool hasGrown = timeline.count() != messagesWithMarks;
    const qint64 pause = hasGrown ? 1000 + 20 * timeForMarks : 5000 + 50 * timeForMarks;
    const bool isDue = areMarksOld.exchange(false) || !sinceMarks.isValid()
        || (sinceMarks.hasExpired(pause) && (hasGrown || timeline.mayChange()));
    if (!isDue)
        return false;
    QElapsedTimer taken;
    taken.start();
    bool isStopped = false;
    messagesWithMarks = timeline.count();
    picture.marks = marksOf(timeline, mostMarks, picture.hasAllMarks, [&] {
        isStopped = !keepGoing();
        return !isStopped;
    });
    if (isStopped)
        areMarksOld = true;
    timeForMarks = taken.elapsed();
    sinceMarks.start();
    return true;
}

// A window that is busy is not given more to do.
void OverviewReader::publish()
{
    if (isTold || isPictureOnItsWay)
        return;
    isTold = true;
    isPictureOnItsWay = true;
    const auto ready = std::make_shared<const OverviewPicture>(picture);
    const auto tell = [this, ready] {
        isPictureOnItsWay = false;
        emit pictureReady(*ready);
    };
    QMetaObject::invokeMethod(this, tell, Qt::QueuedConnection);
}
