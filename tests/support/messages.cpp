#include "messages.h"

#include "canframe.h"

#include <algorithm>
#include <tuple>

CAN::CanRxMessage makeMessage(quint32 id, const QByteArray &payloadHex, quint16 line)
{
    CAN::CanRxMessage message;
    message.id = id;
    message.extended = id > 0x7FF;
    message.line = line;
    const QByteArray payload = QByteArray::fromHex(payloadHex);
    message.length = qint8(payload.size());
    std::copy(payload.begin(), payload.end(), message.data);
    return message;
}

CAN::CanRxMessage makeMessage(quint32 seed, int payloadSize)
{
    CAN::CanRxMessage message;
    message.seconds = qint32(seed / 1000);
    message.microseconds = qint32(seed % 1000 * 1000 + 7);
    message.id = seed * 2654435761U % 0x20000000;
    message.length = qint8(payloadSize);
    for (int i = 0; i < payloadSize; ++i)
        message.data[i] = quint8(seed + quint32(i) * 31);
    message.remote = seed % 7 == 0;
    message.extended = message.id > 0x7FF;
    message.fdFrame = payloadSize > 8;
    message.flagB = seed % 3 == 0;
    message.flagC = seed % 5 == 0;
    message.flagD = seed % 11 == 0;
    message.messageNumber = seed;
    message.line = quint16(seed % 4 + seed % 13 * 256);
    return message;
}

QByteArray candumpLines(int first, int count)
{
    QByteArray lines;
    for (int i = first; i < first + count; ++i)
        lines += '(' + QByteArray::number(i) + ".000000) can0 123#"
            + QByteArray::number(i % 256, 16).rightJustified(2, '0') + "55\n";
    return lines;
}

bool sameInChunk(const CAN::CanRxMessage &a, const CAN::CanRxMessage &b)
{
    const auto fields = [](const CAN::CanRxMessage &m) {
        return std::make_tuple(m.seconds, m.microseconds, m.id, m.length, m.remote, m.extended,
                               m.fdFrame, m.flagB, m.flagC, m.flagD, m.messageNumber, m.line);
    };
    return fields(a) == fields(b) && std::equal(a.data, a.data + CAN::payloadSize(a), b.data);
}
