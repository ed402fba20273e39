// What a trace tells of the messages shown.

#include "trace.h"

#include <algorithm>

const MessageList &Trace::shownLocked() const
{
    static const MessageList nothing;
    switch (view) {
    case View::Live:
        return current;
    case View::Rotated:
        return rotatedBuffer;
    case View::Paged:
        return pagedMessages;
    case View::Nothing:
        break;
    }
    return nothing;
}

quint32 Trace::count() const
{
    const ReadLock locker(lock);
    return quint32(shownLocked().size());
}

CAN::CanRxMessage Trace::at(int index) const
{
    const ReadLock locker(lock);
    return shownLocked().value(index);
}

bool Trace::read(int index, CAN::CanRxMessage &out) const
{
    const ReadLock locker(lock);
    if (index >= shownLocked().size())
        return false;
    out = shownLocked().value(index);
    return true;
}

CAN::CanRxMessage Trace::last() const
{
    const ReadLock locker(lock);
    return shownLocked().value(shownLocked().size() - 1);
}

int Trace::indexOfNumber(quint32 number)
{
    const WriteLock locker(lock);
    return shownLocked().indexOfNumber(number);
}

quint32 Trace::countOfLine(quint8 line) const
{
    const ReadLock locker(lock);
    const MessageList &messages = shownLocked();
    quint32 count = 0;
    for (int i = 0; i < messages.size(); ++i)
        count += messages.at(i).line == line;
    return count;
}

CAN::CanRxMessage Trace::firstOfLine(quint8 line) const
{
    const ReadLock locker(lock);
    const MessageList &messages = shownLocked();
    for (int i = 0; i < messages.size(); ++i) {
        if (messages.at(i).line == line)
            return messages.at(i);
    }
    return messages.value(messages.size() - 1);
}

CAN::CanRxMessage Trace::lastOfLine(quint8 line) const
{
    const ReadLock locker(lock);
    const MessageList &messages = shownLocked();
    for (int i = messages.size() - 1; i >= 0; --i) {
        if (messages.at(i).line == line)
            return messages.at(i);
    }
    return messages.value(0);
}

int Trace::startIndexLocked(quint32 position) const
{
    return int(std::clamp<qint64>(qint64(position) - dropped, 0, shownLocked().size()));
}

bool Trace::findOfLine(CAN::CanRxMessage &out, quint8 line, quint32 &position) const
{
    const ReadLock locker(lock);
    const MessageList &messages = shownLocked();
    const int start = startIndexLocked(position);
    for (int i = start; i < messages.size(); ++i) {
        if (messages.at(i).line == line) {
            out = messages.at(i);
            position = quint32(i);
            return true;
        }
    }
    if (start < messages.size())
        out = messages.value(messages.size() - 1);
    return false;
}

bool Trace::nextOfLine(CAN::CanRxMessage &out, quint8 line)
{
    const ReadLock locker(lock);
    const MessageList &messages = shownLocked();
    for (quint32 i = linePositions[line]; i < quint32(messages.size()); ++i) {
        if (messages.at(int(i)).line == line) {
            out = messages.at(int(i));
            linePositions[line] = i + 1;
            return true;
        }
    }
    return false;
}

void Trace::resetLinePositions()
{
    for (std::atomic<quint32> &position : linePositions)
        position = 0;
}

QList<CAN::CanRxMessage> Trace::allOfLine(quint8 line, quint32 position) const
{
    const ReadLock locker(lock);
    const MessageList &messages = shownLocked();
    QList<CAN::CanRxMessage> found;
    for (int i = startIndexLocked(position); i < messages.size(); ++i) {
        if (messages.at(i).line == line)
            found.append(messages.at(i));
    }
    return found;
}

void Trace::collectLines(const std::function<void(unsigned char)> &tell)
{
    clearLines();
    const ReadLock locker(lock);
    for (int i = 0; i < shownLocked().size(); ++i)
        addLine(shownLocked().at(i));
    const QSet<unsigned char> collected = lines();
    for (const unsigned char line : collected)
        tell(line);
}

void Trace::whileReading(const std::function<void()> &work) const
{
    const ReadLock locker(lock);
    work();
}
