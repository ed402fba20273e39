// What a trace tells of the messages shown.

#include "trace.h"

#include <QReadLocker>
#include <QWriteLocker>

const MessageList &Trace::shown() const
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
    const QReadLocker locker(&lock);
    return quint32(shown().size());
}

CAN::CanRxMessage Trace::at(int index) const
{
    const QReadLocker locker(&lock);
    return shown().value(index);
}

bool Trace::read(int index, CAN::CanRxMessage &out) const
{
    const QReadLocker locker(&lock);
    if (index >= shown().size())
        return false;
    out = shown().value(index);
    return true;
}

CAN::CanRxMessage Trace::last() const
{
    const QReadLocker locker(&lock);
    return shown().value(shown().size() - 1);
}

int Trace::indexOfNumber(quint32 number)
{
    const QWriteLocker locker(&lock);
    return shown().indexOfNumber(number);
}

quint32 Trace::countOfLine(quint8 line) const
{
    const QReadLocker locker(&lock);
    const MessageList &messages = shown();
    quint32 count = 0;
    for (int i = 0; i < messages.size(); ++i)
        count += messages.at(i).line == line;
    return count;
}

CAN::CanRxMessage Trace::firstOfLine(quint8 line) const
{
    const QReadLocker locker(&lock);
    const MessageList &messages = shown();
    for (int i = 0; i < messages.size(); ++i) {
        if (messages.at(i).line == line)
            return messages.at(i);
    }
    return messages.value(messages.size() - 1);
}

CAN::CanRxMessage Trace::lastOfLine(quint8 line) const
{
    const QReadLocker locker(&lock);
    const MessageList &messages = shown();
    for (int i = messages.size() - 1; i >= 0; --i) {
        if (messages.at(i).line == line)
            return messages.at(i);
    }
    return messages.value(0);
}

int Trace::startIndex(quint32 position) const
{
    return int(qBound<qint64>(0, qint64(position) - dropped, shown().size()));
}

bool Trace::findOfLine(CAN::CanRxMessage &out, quint8 line, quint32 &position) const
{
    const QReadLocker locker(&lock);
    const MessageList &messages = shown();
    const int start = startIndex(position);
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
    const QReadLocker locker(&lock);
    const MessageList &messages = shown();
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
    const QReadLocker locker(&lock);
    const MessageList &messages = shown();
    QList<CAN::CanRxMessage> found;
    for (int i = startIndex(position); i < messages.size(); ++i) {
        if (messages.at(i).line == line)
            found.append(messages.at(i));
    }
    return found;
}

void Trace::collectLines(const std::function<void(unsigned char)> &tell)
{
    clearLines();
    const QReadLocker locker(&lock);
    for (int i = 0; i < shown().size(); ++i)
        addLine(shown().at(i));
    const QSet<unsigned char> collected = lines();
    for (const unsigned char line : collected)
        tell(line);
}

void Trace::whileReading(const std::function<void()> &work) const
{
    const QReadLocker locker(&lock);
    work();
}
