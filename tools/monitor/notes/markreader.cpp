#include "markreader.h"

#include "canframe.h"
#include "messagetext.h"

#include <utility>

MarkReader::MarkReader(QObject *parent)
    : QObject(parent), thread([this](const TurningThread::KeepGoing &keepGoing) {
          while (keepGoing() && readNext(keepGoing)) { }
          return -1;
      })
{
}

void MarkReader::read(const TraceTimeline &timeline)
{
    {
        const std::lock_guard<std::mutex> locker(mutex);
        wanted = timeline;
    }
    thread.setRunning(true);
    thread.wake();
}

void MarkReader::forget()
{
    const std::lock_guard<std::mutex> locker(mutex);
    wanted.reset();
    ++round;
}

void MarkReader::forgetTrace()
{
    forget();
    const std::lock_guard<std::mutex> locker(mutex);
    isOtherTrace = true;
}

// False when nothing waits.
bool MarkReader::readNext(const TurningThread::KeepGoing &keepGoing)
{
    std::unique_lock<std::mutex> locker(mutex);
    if (!wanted)
        return false;
    TraceTimeline timeline = *std::exchange(wanted, std::nullopt);
    const int ofRound = round;
    if (std::exchange(isOtherTrace, false))
        messages.clear();
    locker.unlock();
    const bool isFirst = std::exchange(lastRound, ofRound) != ofRound;
    const auto goesOn = [&] { return round == ofRound && keepGoing(); };
    const MarkList list = listOf(timeline, goesOn);
    if (goesOn() && (isFirst || list.isCut != last.isCut || list.marks != last.marks)) {
        last = list;
        tell(list, ofRound);
    }
    return true;
}

void MarkReader::tell(const MarkList &list, int ofRound)
{
    const auto tellIfWanted = [this, list, ofRound] {
        if (round == ofRound)
            emit marksRead(list);
    };
    QMetaObject::invokeMethod(this, tellIfWanted, Qt::QueuedConnection);
}

MarkList MarkReader::listOf(TraceTimeline &timeline, const std::function<bool()> &goesOn)
{
    timeline.refresh();
    // Another trace in place of the one before.
    if (timeline.count() < lastCount || timeline.firstTime() != lastStart)
        messages.clear();
    lastCount = timeline.count();
    lastStart = timeline.firstTime();
    MarkList list;
    const QVector<TraceMark> marks = timeline.marks(mostMessages + 1, goesOn);
    list.isCut = marks.size() > mostMessages;
    const int count = qMin(int(marks.size()), mostMessages);
    for (int i = 0; i < count && goesOn(); ++i)
        add(marks.at(i), known(timeline, marks.at(i).position), list);
    return list;
}

void MarkReader::add(const TraceMark &mark, const Known &message, MarkList &list)
{
    Mark listed;
    listed.position = mark.position;
    listed.microseconds = message.microseconds;
    listed.number = message.number;
    listed.time = message.time;
    listed.identifier = message.identifier;
    if (!mark.note.isEmpty()) {
        listed.text = mark.note;
        list.marks.append(listed);
    }
    if (mark.bookmark.isValid()) {
        listed.kind = Mark::Bookmark;
        listed.text = mark.bookmark.text();
        list.marks.append(listed);
    }
}

// A message is read once: a chunk of many thousands lies between two of them.
const MarkReader::Known &MarkReader::known(const TraceTimeline &timeline, quint64 position)
{
    const auto before = messages.constFind(position);
    if (before != messages.constEnd())
        return *before;
    constexpr int mostKnown = 2 * mostMessages;
    if (messages.size() >= mostKnown)
        messages.clear();
    const TraceRow row = timeline.row(position);
    Known message;
    if (row.state == TraceRow::Known) {
        message.microseconds = CAN::timeOf(row.message);
        message.number = QString::number(row.message.messageNumber);
        message.time = MessageText::seconds(message.microseconds - timeline.firstTime());
        message.identifier = MessageText::identifier(row.message, 16);
    }
    return *messages.insert(position, message);
}
