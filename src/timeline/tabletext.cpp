#include "tabletext.h"

#include "canframe.h"

#include <QByteArray>
#include <QStringList>

QString TableText::time(qint64 microseconds)
{
    constexpr quint64 million = 1000000;
    const bool isNegative = microseconds < 0;
    const quint64 size = isNegative ? 0 - quint64(microseconds) : quint64(microseconds);
    return QStringLiteral("%1%2.%3")
        .arg(isNegative ? QStringLiteral("-") : QString())
        .arg(size / million)
        .arg(size % million, 6, 10, QLatin1Char('0'));
}

QString TableText::identifier(const CAN::CanRxMessage &message)
{
    if (message.id == CAN::errorFrameId)
        return {};
    const int digits = message.extended ? 8 : 3;
    return QStringLiteral("%1").arg(message.id, digits, 16, QLatin1Char('0')).toUpper();
}

QString TableText::kind(const CAN::CanRxMessage &message)
{
    if (message.id == CAN::errorFrameId)
        return QStringLiteral("ERR");
    QStringList words;
    const auto add = [&words](bool isSo, const char *word) {
        if (isSo)
            words += QLatin1String(word);
    };
    add(message.extended, "EXT");
    add(message.remote, "RTR");
    add(message.fdFrame, "FD");
    add(message.flagC, "BRS");
    add(message.flagB, "ESI");
    return words.join(QLatin1Char(' '));
}

QString TableText::data(const CAN::CanRxMessage &message)
{
    if (message.remote)
        return {};
    const auto *bytes = reinterpret_cast<const char *>(message.data);
    return QString::fromLatin1(
        QByteArray::fromRawData(bytes, CAN::payloadSize(message)).toHex(' ').toUpper());
}
