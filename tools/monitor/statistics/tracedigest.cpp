#include "tracedigest.h"

#include "canframe.h"
#include "showntrace.h"

TraceDigest *TraceDigest::of(ShownTrace *trace)
{
    auto *digest = trace->findChild<TraceDigest *>(QString(), Qt::FindDirectChildrenOnly);
    return digest ? digest : new TraceDigest(trace);
}

TraceDigest::TraceDigest(ShownTrace *trace)
    : QObject(trace), trace(trace), timeline(trace->timeline()),
      sums(std::make_unique<DigestSums>()),
      thread([this](const TurningThread::KeepGoing &keepGoing) { return turn(keepGoing); })
{
    sinceMessage.start();
}

TraceDigest::~TraceDigest() = default;

void TraceDigest::setWatched(QObject *watcher, bool on)
{
    if (!on) {
        if (watchers.remove(watcher))
            watcher->disconnect(this);
    } else if (!watchers.contains(watcher)) {
        watchers.insert(watcher);
        connect(watcher, &QObject::destroyed, this,
                [this, watcher] { setWatched(watcher, false); });
    }
    thread.setRunning(!watchers.isEmpty());
}

bool TraceDigest::isGrowing() const
{
    return trace->isGrowing();
}

qint64 TraceDigest::now() const
{
    if (!isGrowing())
        return ownSummary.last;
    return ownSummary.last + sinceMessage.nsecsElapsed() / 1000;
}

bool TraceDigest::isSilent() const
{
    constexpr qint64 second = 1000;
    return isGrowing() && sinceMessage.elapsed() > second;
}

// Returns when the next turn is due.
int TraceDigest::turn(const TurningThread::KeepGoing &keepGoing)
{
    timeline.refresh();
    if (!isSameTrace()) {
        sums = std::make_unique<DigestSums>();
        next = 0;
        lastAdded.reset();
        isNewTrace = true;
        isTold = false;
    }
    const quint64 end = timeline.count();
    if (end > next) {
        isTold = false;
        bool isStopped = false;
        timeline.forEach(next, end - next, [&](const TraceBlock &block) {
            add(block);
            publish();
            isStopped = !keepGoing();
            return !isStopped;
        });
        if (!isStopped)
            next = end; // messages at the end may be gone
    }
    const bool isAllTold = publish();
    const bool isDone = isAllTold && !timeline.mayChange() && timeline.isComplete();
    return isDone && next == timeline.count() ? -1 : millisecondsPerUpdate;
}

// A trace that was cleared begins again at position 0, and may have grown beyond the place since.
bool TraceDigest::isSameTrace() const
{
    if (timeline.count() < next)
        return false;
    if (!lastAdded)
        return true;
    bool isSame = true;
    timeline.forEach(next - 1, 1, [&](const TraceBlock &block) {
        const CAN::CanRxMessage &message = block.messages[0];
        isSame = block.position != next - 1
            || (message.id == lastAdded->id && CAN::timeOf(message) == CAN::timeOf(*lastAdded)
                && message.messageNumber == lastAdded->messageNumber);
        return false;
    });
    return isSame;
}

void TraceDigest::add(const TraceBlock &block)
{
    for (int i = 0; i < block.count; ++i)
        sums->add(block.messages[i], block.position + quint64(i));
    next = block.position + quint64(block.count);
    lastAdded = block.messages[block.count - 1];
}

// False where something is left to be told. A window that is busy is not given more to do.
bool TraceDigest::publish()
{
    constexpr int mostPerUpdate = 2000;
    if (isTold)
        return true;
    if (isUpdateOnItsWay
        || (sinceUpdate.isValid() && !sinceUpdate.hasExpired(millisecondsPerUpdate)))
        return false;
    sinceUpdate.start();
    auto update = std::make_shared<Update>();
    update->isNewTrace = std::exchange(isNewTrace, false);
    update->summary = sums->summary();
    update->summary.done = next;
    update->summary.of = timeline.count();
    update->changed = sums->takeChanged(mostPerUpdate);
    isTold = update->changed.size() < mostPerUpdate && next == timeline.count();
    isUpdateOnItsWay = true;
    QMetaObject::invokeMethod(
        this, [this, update] { take(*update); }, Qt::QueuedConnection);
    return isTold;
}

void TraceDigest::take(const Update &update)
{
    isUpdateOnItsWay = false;
    if (update.isNewTrace) {
        ownIdentifiers.clear();
        ownSummary = {};
        emit cleared();
    }
    if (update.summary.of > ownSummary.of || update.summary.last != ownSummary.last)
        sinceMessage.start();
    ownSummary = update.summary;
    QVector<int> places;
    places.reserve(update.changed.size());
    for (const auto &[place, digest] : update.changed) {
        if (place >= ownIdentifiers.size())
            ownIdentifiers.resize(place + 1);
        ownIdentifiers[place] = digest;
        places.append(place);
    }
    emit updated(places);
}
