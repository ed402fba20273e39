#include "datachunkhandler.h"
#include "datachunkhandler_p.h"

unsigned int DatachunkHandler::getMessageCount()
{
    return d->trace.count();
}

CAN::CanRxMessage DatachunkHandler::messageAt(int index) const
{
    return d->trace.at(index);
}

CAN::CanRxMessage DatachunkHandler::messageAtPassMutex(int index) const
{
    return d->trace.atWithoutLock(index);
}

bool DatachunkHandler::getMessageAtIndex(CAN::CanRxMessage &out, int index)
{
    return d->trace.read(index, out);
}

unsigned int DatachunkHandler::getPositionOfMessageNumber(unsigned int number)
{
    constexpr quint32 noPosition = 0xFFFFFFFF;
    const int index = d->trace.indexOfNumber(number);
    return index < 0 ? noPosition : unsigned(index);
}

CAN::CanRxMessage DatachunkHandler::getLastMessage()
{
    return d->trace.last();
}

QSet<unsigned char> DatachunkHandler::getLines()
{
    return d->trace.lines();
}

void DatachunkHandler::clearLines()
{
    d->trace.clearLines();
}

void DatachunkHandler::updateLines()
{
    d->trace.collectLines([this](unsigned char line) { emit newLine(line); });
}

void DatachunkHandler::resetLinePositions()
{
    d->trace.resetLinePositions();
}

unsigned int DatachunkHandler::messageCountForLine(unsigned char line)
{
    return d->trace.countOfLine(line);
}

CAN::CanRxMessage DatachunkHandler::firstMessageOfLine(unsigned char line) const
{
    return d->trace.firstOfLine(line);
}

CAN::CanRxMessage DatachunkHandler::lastMessageOfLine(unsigned char line) const
{
    return d->trace.lastOfLine(line);
}

bool DatachunkHandler::getMessageOfLine(CAN::CanRxMessage &out, unsigned char line,
                                        unsigned int &position)
{
    return d->trace.findOfLine(out, line, position);
}

bool DatachunkHandler::nextMessageForLine(CAN::CanRxMessage &out, unsigned char line)
{
    return d->trace.nextOfLine(out, line);
}

QList<CAN::CanRxMessage> DatachunkHandler::getMessagesOfLine(unsigned char line,
                                                             unsigned int fromPosition)
{
    return d->trace.allOfLine(line, fromPosition);
}
