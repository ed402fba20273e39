#include "messagetext.h"

#include <QDateTime>
#include <QRegularExpression>

namespace {

constexpr qint64 million = 1000000;
constexpr int bytesOfGroup = 8;
constexpr quint32 mostStandardIdentifier = 0x7FF;

} // namespace

QString MessageText::identifier(const CAN::CanRxMessage &message, int base)
{
    if (message.id == CAN::errorFrameId)
        return {};
    if (base == 10)
        return QString::number(message.id);
    const int digits = message.extended ? 8 : 3;
    return QStringLiteral("%1").arg(message.id, digits, 16, QLatin1Char('0')).toUpper();
}

QString MessageText::data(const CAN::CanRxMessage &message, int base)
{
    if (message.remote)
        return {};
    static const char digits[] = "0123456789ABCDEF";
    QString text;
    text.reserve(4 * CAN::payloadSize(message));
    for (int i = 0; i < CAN::payloadSize(message); ++i) {
        if (i > 0)
            text += i % bytesOfGroup == 0 ? QLatin1String("  ") : QLatin1String(" ");
        const quint8 byte = message.data[i];
        if (base == 10)
            text += QString::number(byte).rightJustified(3);
        else
            text.append(QLatin1Char(digits[byte >> 4])).append(QLatin1Char(digits[byte & 0xF]));
    }
    return text;
}

QString MessageText::ascii(const CAN::CanRxMessage &message)
{
    QString text;
    for (int i = 0; !message.remote && i < CAN::payloadSize(message); ++i) {
        const char character = char(message.data[i]);
        text += QLatin1Char(character >= ' ' && character <= '~' ? character : '.');
    }
    return text;
}

QString MessageText::seconds(qint64 time)
{
    const quint64 size = time < 0 ? 0 - quint64(time) : quint64(time);
    return QStringLiteral("%1%2.%3")
        .arg(time < 0 ? QStringLiteral("-") : QString())
        .arg(size / million)
        .arg(size % million, 6, 10, QLatin1Char('0'));
}

bool MessageText::isDate(qint64 time)
{
    constexpr qint64 year = qint64(365) * 24 * 3600 * million;
    return time >= year;
}

QString MessageText::dateAndTime(qint64 time)
{
    const qint64 fraction = (time % million + million) % million;
    const auto second = QDateTime::fromMSecsSinceEpoch((time - fraction) / 1000);
    return second.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"))
        + QStringLiteral(".%1").arg(fraction, 6, 10, QLatin1Char('0'));
}

QString MessageText::moment(qint64 time)
{
    return isDate(time) ? dateAndTime(time) : seconds(time);
}

QString MessageText::filterOfIdentifier(const CAN::CanRxMessage &message)
{
    if (message.id == CAN::errorFrameId)
        return QStringLiteral("err");
    const QString text = QStringLiteral("id==%1").arg(message.id, 0, 16);
    if (message.id > mostStandardIdentifier)
        return text;
    return text + (message.extended ? QLatin1String(" and ext") : QLatin1String(" and not ext"));
}

QString MessageText::filterOfLine(const CAN::CanRxMessage &message)
{
    return QStringLiteral("line==%1").arg(message.line & 0xFF);
}

QString MessageText::filterOfData(const CAN::CanRxMessage &message)
{
    const int length = CAN::payloadSize(message);
    QString text = QStringLiteral("%1 and len==%2").arg(filterOfIdentifier(message)).arg(length);
    if (message.remote)
        return text + QLatin1String(" and rtr");
    if (length > 0)
        text += QStringLiteral(" and data~\"%1\"").arg(data(message, 16).simplified());
    return text;
}

QString MessageText::filterWithout(const QString &filter, const QString &unwanted)
{
    const QString rest = QStringLiteral("not (%1)").arg(unwanted);
    if (filter.trimmed().isEmpty())
        return rest;
    static const QRegularExpression either(QStringLiteral("\\|\\||\\bor\\b"),
                                           QRegularExpression::CaseInsensitiveOption);
    const bool isLoose = filter.contains(either);
    return (isLoose ? QStringLiteral("(%1) and %2") : QStringLiteral("%1 and %2"))
        .arg(filter.trimmed(), rest);
}
