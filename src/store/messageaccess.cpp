#include "datachunkhandler.h"
#include "datachunkhandler_p.h"

#include <QReadLocker>
#include <QWriteLocker>

namespace {

constexpr quint32 noPosition = 0xFFFFFFFF;

// Where to look for messages from `position` on, which counts dropped messages as well.
int startIndex(const MessageList &messages, quint32 position, quint32 dropped)
{
    return int(qBound<qint64>(0, qint64(position) - dropped, messages.size()));
}

} // namespace

unsigned int DatachunkHandler::getMessageCount()
{
    const QReadLocker locker(&d->lock);
    return unsigned(d->shown().size());
}

CAN::CanRxMessage DatachunkHandler::messageAt(int index) const
{
    const QReadLocker locker(&d->lock);
    return messageAtPassMutex(index);
}

CAN::CanRxMessage DatachunkHandler::messageAtPassMutex(int index) const
{
    return d->shown().value(index);
}

bool DatachunkHandler::getMessageAtIndex(CAN::CanRxMessage &out, int index)
{
    const QReadLocker locker(&d->lock);
    if (index >= d->shown().size())
        return false;
    out = d->shown().value(index);
    return true;
}

unsigned int DatachunkHandler::getPositionOfMessageNumber(unsigned int number)
{
    const QWriteLocker locker(&d->lock);
    const int index = d->shown().indexOfNumber(number);
    return index < 0 ? noPosition : unsigned(index);
}

CAN::CanRxMessage DatachunkHandler::getLastMessage()
{
    const QReadLocker locker(&d->lock);
    return d->shown().value(d->shown().size() - 1);
}

QSet<unsigned char> DatachunkHandler::getLines()
{
    return d->lines.toSet();
}

void DatachunkHandler::clearLines()
{
    d->lines.clear();
}

void DatachunkHandler::updateLines()
{
    clearLines();
    const QReadLocker locker(&d->lock);
    for (int i = 0; i < d->shown().size(); ++i)
        d->insertLine(d->shown().at(i));
    const QSet<unsigned char> lines = getLines();
    for (const unsigned char line : lines)
        emit newLine(line);
}

void DatachunkHandler::resetLinePositions()
{
    for (std::atomic<quint32> &position : d->linePositions)
        position = 0;
}

unsigned int DatachunkHandler::messageCountForLine(unsigned char line)
{
    const QReadLocker locker(&d->lock);
    unsigned int count = 0;
    for (int i = 0; i < d->shown().size(); ++i)
        count += d->shown().at(i).line == line;
    return count;
}

CAN::CanRxMessage DatachunkHandler::firstMessageOfLine(unsigned char line) const
{
    const QReadLocker locker(&d->lock);
    const MessageList &messages = d->shown();
    for (int i = 0; i < messages.size(); ++i) {
        if (messages.at(i).line == line)
            return messages.at(i);
    }
    return messages.value(messages.size() - 1);
}

CAN::CanRxMessage DatachunkHandler::lastMessageOfLine(unsigned char line) const
{
    const QReadLocker locker(&d->lock);
    const MessageList &messages = d->shown();
    for (int i = messages.size() - 1; i >= 0; --i) {
        if (messages.at(i).line == line)
            return messages.at(i);
    }
    return messages.value(0);
}

bool DatachunkHandler::getMessageOfLine(CAN::CanRxMessage &out, unsigned char line,
                                        unsigned int &position)
{
    const QReadLocker locker(&d->lock);
    const MessageList &messages = d->shown();
    const int start = startIndex(messages, position, d->droppedMessageCount);
    for (int i = start; i < messages.size(); ++i) {
        if (messages.at(i).line == line) {
            out = messages.at(i);
            position = unsigned(i);
            return true;
        }
    }
    if (start < messages.size())
        out = messages.value(messages.size() - 1);
    return false;
}

bool DatachunkHandler::nextMessageForLine(CAN::CanRxMessage &out, unsigned char line)
{
    const QReadLocker locker(&d->lock);
    const quint32 resumeAt = d->linePositions[line];
    const MessageList &messages = d->shown();
    for (quint32 i = resumeAt; i < quint32(messages.size()); ++i) {
        if (messages.at(int(i)).line == line) {
            out = messages.at(int(i));
            d->linePositions[line] = i + 1;
            return true;
        }
    }
    return false;
}

QList<CAN::CanRxMessage> DatachunkHandler::getMessagesOfLine(unsigned char line,
                                                             unsigned int fromPosition)
{
    const QReadLocker locker(&d->lock);
    const MessageList &messages = d->shown();
    QList<CAN::CanRxMessage> found;
    for (int i = startIndex(messages, fromPosition, d->droppedMessageCount); i < messages.size();
         ++i) {
        if (messages.at(i).line == line)
            found.append(messages.at(i));
    }
    return found;
}
