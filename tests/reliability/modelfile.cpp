#include "modelfile.h"

#include "messages.h"
#include "textexport.h"

#include <algorithm>

namespace {
constexpr qint32 firstImportedSecond = 1000000;
}

bool sameText(const QString &expected, const QString &actual)
{
    static const QString ofTimes = QStringLiteral("0123456789:.");
    return expected.size() == actual.size()
        && std::equal(expected.begin(), expected.end(), actual.begin(), [](QChar e, QChar a) {
               return e == a || (e.unicode() == unknownTime && ofTimes.contains(a));
           });
}

CAN::CanRxMessage messageOf(quint32 serial, MessageRun::Kind kind)
{
    const int payload = int(serial % 13 == 0 ? serial % 65 : serial % 9);
    const CAN::CanRxMessage message = makeMessage(serial, payload);
    if (kind != MessageRun::Imported)
        return message;
    // What a candump line keeps.
    CAN::CanRxMessage imported;
    imported.seconds = message.seconds + firstImportedSecond;
    imported.microseconds = message.microseconds;
    imported.id = message.id;
    imported.extended = message.extended;
    imported.length = qint8(serial % 9);
    std::copy_n(message.data, imported.length, imported.data);
    return imported;
}

CAN::CanRxMessage MessageRun::at(qint64 position) const
{
    if (position < 0 || position >= count)
        return {};
    CAN::CanRxMessage message = messageOf(serial + quint32(position), kind);
    message.messageNumber = number + quint32(position);
    return message;
}

bool isWhole(const CAN::CanRxMessage &message)
{
    if (sameInChunk(message, CAN::CanRxMessage()))
        return true;
    const bool imported = message.seconds >= firstImportedSecond;
    const quint32 seconds = quint32(message.seconds - (imported ? firstImportedSecond : 0));
    CAN::CanRxMessage expected = messageOf(seconds * 1000 + quint32(message.microseconds) / 1000,
                                           imported ? MessageRun::Imported : MessageRun::Received);
    expected.messageNumber = message.messageNumber;
    return sameInChunk(message, expected);
}

QVector<CAN::CanRxMessage> ModelFile::records(qint64 from) const
{
    QVector<CAN::CanRxMessage> found;
    for (const unsigned int position : selected) {
        if (position < messages.count)
            found.append(messages.at(position));
    }
    const qint64 behind = selected.isEmpty() ? std::min<qint64>(end, messages.count) : 0;
    for (qint64 i = std::max<qint64>(from, 0); i < behind; ++i)
        found.append(messages.at(i));
    return found;
}

QString ModelFile::timeText() const
{
    return ChunkFormat::timeText(messages.at(start), messages.at(end - 1));
}

bool ModelFile::hasFdFrame() const
{
    const QVector<CAN::CanRxMessage> all = records(0);
    return std::any_of(all.begin(), all.end(), [](const auto &message) { return message.fdFrame; });
}

QByteArray ModelFile::chunkBytes() const
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    ChunkFormat::writeHeader(stream, timeText(), notes, bookmarks);
    for (const CAN::CanRxMessage &message : records(start))
        ChunkFormat::writeRecord(stream, message, ChunkFormat::currentVersion);
    return bytes;
}

QString ModelFile::text() const
{
    QString text = TextExport::headerLine();
    for (const CAN::CanRxMessage &message : records(0))
        TextExport::appendMessageLine(text, message, notes.value(message.messageNumber));
    return text;
}
