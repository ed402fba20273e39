#include "digesttext.h"

#include "canframe.h"

#include <QCoreApplication>
#include <QLocale>
#include <QStringList>

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(DigestText)
};

bool isError(const CAN::CanRxMessage &message)
{
    return message.id == CAN::errorFrameId;
}

} // namespace

QString DigestText::identifier(const CAN::CanRxMessage &message, int base)
{
    if (isError(message))
        return {};
    const int digits = base != 16 ? 0 : message.extended ? 8 : 3;
    return QStringLiteral("%1").arg(message.id, digits, base, QLatin1Char('0')).toUpper();
}

QString DigestText::kind(const CAN::CanRxMessage &message)
{
    if (isError(message))
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

QString DigestText::byte(quint8 value, int base)
{
    const int width = base == 16 ? 2 : 3;
    const QLatin1Char fill(base == 16 ? '0' : ' ');
    return QStringLiteral("%1").arg(value, width, base, fill).toUpper();
}

QString DigestText::bytes(const CAN::CanRxMessage &message, int base)
{
    QStringList all;
    for (int i = 0; i < CAN::payloadSize(message) && !message.remote; ++i)
        all += byte(message.data[i], base).trimmed();
    return all.join(QLatin1Char(' '));
}

QString DigestText::count(quint64 count)
{
    return QLocale().toString(count);
}

QString DigestText::duration(double microseconds)
{
    if (microseconds >= 10e6)
        return Texts::tr("%1 s").arg(QLocale().toString(microseconds / 1e6, 'f', 1));
    const int digits = microseconds < 10e3 ? 2 : microseconds < 1e6 ? 1 : 0;
    return Texts::tr("%1 ms").arg(QLocale().toString(microseconds / 1e3, 'f', digits));
}

QString DigestText::age(qint64 microseconds)
{
    return Texts::tr("%1 s").arg(QLocale().toString(double(microseconds) / 1e6, 'f', 1));
}

QString DigestText::rate(double perSecond)
{
    return QLocale().toString(perSecond, 'f', perSecond < 100 ? 1 : 0);
}

QString DigestText::percent(double load)
{
    return Texts::tr("%1 %").arg(QLocale().toString(load * 100, 'f', 1));
}

QString DigestText::time(qint64 microseconds)
{
    const qint64 seconds = microseconds / 1000000;
    if (seconds < 100)
        return Texts::tr("%1 s").arg(QLocale().toString(double(microseconds) / 1e6, 'g', 3));
    const QLatin1Char zero('0');
    const qint64 minutes = seconds / 60;
    if (minutes < 60)
        return QStringLiteral("%1:%2").arg(minutes).arg(seconds % 60, 2, 10, zero);
    return QStringLiteral("%1:%2:%3")
        .arg(minutes / 60)
        .arg(minutes % 60, 2, 10, zero)
        .arg(seconds % 60, 2, 10, zero);
}

QString DigestText::expression(const CAN::CanRxMessage &message, bool isOfLine)
{
    QString text = QStringLiteral("err");
    if (!isError(message))
        text = QStringLiteral("id==%1 and %2")
                   .arg(QString::number(message.id, 16),
                        message.extended ? QStringLiteral("ext") : QStringLiteral("not ext"));
    return isOfLine ? text + QStringLiteral(" and line==%1").arg(message.line & 0xFF) : text;
}

QString DigestText::progress(const TraceSummary &summary)
{
    QString text;
    if (summary.done < summary.of)
        text = Texts::tr("So far: %1 of %2 messages").arg(count(summary.done), count(summary.of));
    if (summary.notToldApart > 0) {
        text += text.isEmpty() ? QString() : QStringLiteral("; ");
        text += Texts::tr("%1 messages of more identifiers are not listed")
                    .arg(count(summary.notToldApart));
    }
    return text;
}
