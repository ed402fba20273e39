#include "textexport.h"

namespace TextExport {

namespace {

void appendHexByte(QString &line, quint8 byte)
{
    static constexpr char digits[] = "0123456789abcdef";
    line += QLatin1Char(digits[byte >> 4]);
    line += QLatin1Char(digits[byte & 15]);
    line += QLatin1Char(' ');
}

QString prefix(const CAN::CanRxMessage &message)
{
    const QString time = QStringLiteral(" %1.%2 ")
                             .arg(message.seconds, 3)
                             .arg(message.microseconds, 6, 10, QLatin1Char('0'));
    const QString length = QStringLiteral(" (%1): ").arg(CAN::payloadSize(message));
    if (message.id == CAN::errorFrameId)
        return time + QLatin1String("Error-frame") + length;
    return time
        + QStringLiteral("0x%1/%2")
              .arg(message.id, 3, 16, QLatin1Char('0'))
              .arg(message.id, -4, 10, QLatin1Char(' '))
        + length;
}

} // namespace

QString headerLine()
{
    return QStringLiteral("# timestamp id (dlc): data;flags;notes\n");
}

int flagNumber(const CAN::CanRxMessage &message)
{
    return (message.extended ? 1 : 0) + (message.fdFrame ? 2 : 0) + (message.flagB ? 8 : 0)
        + (message.flagC ? 4 : 0);
}

QString messageLine(const CAN::CanRxMessage &message, const QString &note)
{
    QString line = prefix(message);
    if (message.remote) {
        line += QLatin1String("Remote Transmission Request");
    } else {
        for (int i = 0; i < CAN::payloadSize(message); ++i)
            appendHexByte(line, message.data[i]);
    }
    line += QLatin1Char(';') + QString::number(flagNumber(message)) + QLatin1Char(';') + note
        + QLatin1Char('\n');
    return line;
}

} // namespace TextExport
