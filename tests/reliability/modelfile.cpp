#include "modelfile.h"

#include "canframe.h"
#include "messages.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr qint32 firstImportedSecond = 1000000;

int payloadOf(quint32 serial)
{
    return int(serial % 13 == 0 ? serial % 65 : serial % 9);
}

char *put(char *to, quint32 value, int bytes)
{
    while (bytes-- > 0)
        *to++ = char(value >> (8 * bytes));
    return to;
}

void addInteger(QByteArray &bytes, quint32 value, int size)
{
    char digits[4];
    put(digits, value, size);
    bytes.append(digits, size);
}

void addText(QByteArray &bytes, const QString &text)
{
    addInteger(bytes, text.isNull() ? 0xFFFFFFFF : quint32(text.size()) * 2, 4);
    for (const QChar c : text)
        addInteger(bytes, c.unicode(), 2);
}

char *putRecord(char *to, const CAN::CanRxMessage &m, bool withLine)
{
    *to++ = char(m.length);
    std::memcpy(to, m.data, std::size_t(m.length));
    to = put(to + m.length, m.extended, 1);
    to = put(to, m.id, 4);
    for (const bool flag : {m.remote, m.flagC, m.fdFrame, m.flagB, m.flagD})
        to = put(to, flag, 1);
    to = put(to, quint32(m.microseconds), 4);
    to = put(to, quint32(m.seconds), 4);
    to = put(to, m.messageNumber, 4);
    return withLine ? put(to, m.line, 2) : to;
}

// Entries are written from the highest key to the lowest.
template <typename Map, typename AddValue>
void addMap(QByteArray &bytes, const Map &map, const AddValue &addValue)
{
    addInteger(bytes, quint32(map.size()), 4);
    const QList<unsigned int> keys = map.keys();
    for (int i = keys.size() - 1; i >= 0; --i) {
        addInteger(bytes, keys.at(i), 4);
        addValue(map.value(keys.at(i)));
    }
}

} // namespace

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
    CAN::CanRxMessage message = makeMessage(serial, payloadOf(serial));
    if (kind == MessageRun::WithoutLine)
        message.line = 0;
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
    expected.line = message.line == 0 ? quint16(0) : expected.line;
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
    const CAN::CanRxMessage first = messages.at(start);
    const CAN::CanRxMessage last = messages.at(end - 1);
    return QString::asprintf("%d.%06d - %d.%06d", first.seconds, first.microseconds, last.seconds,
                             last.microseconds);
}

bool ModelFile::hasFdFrame() const
{
    for (quint32 i = 0; i < messages.count; ++i) {
        if (messages.at(i).fdFrame)
            return true;
    }
    return false;
}

qint64 ModelFile::chunkSize() const
{
    ModelFile head = *this;
    head.messages.count = 0;
    qint64 size = head.chunkBytes().size() + (timeText().size() - head.timeText().size()) * 2;
    for (quint32 i = 0; i < messages.count; ++i)
        size += 25 + payloadOf(messages.serial + i);
    return size;
}

QByteArray ModelFile::chunkBytes(quint32 version) const
{
    QByteArray bytes;
    addText(bytes, timeText());
    addText(bytes, QString::number(version));
    if (version > 100)
        addMap(bytes, notes, [&](const QString &note) { addText(bytes, note); });
    if (version > 103) {
        addMap(bytes, bookmarks, [&](const CanMessageBookmark &bookmark) {
            addInteger(bytes, 0xB00A, 4);
            addInteger(bytes, 1, 1);
            addInteger(bytes, bookmark.messageNumber(), 4);
            addText(bytes, bookmark.text());
        });
    }
    const int head = bytes.size();
    const QVector<CAN::CanRxMessage> saved = records(start);
    bytes.resize(head + saved.size() * (25 + CAN::maxDataBytes));
    char *to = bytes.data() + head;
    for (const CAN::CanRxMessage &message : saved)
        to = putRecord(to, message, version > 102);
    bytes.resize(int(to - bytes.data()));
    return bytes;
}

QString ModelFile::text() const
{
    QString text = QStringLiteral("# timestamp id (dlc): data;flags;notes\n");
    const QVector<CAN::CanRxMessage> lines = records(0);
    for (const CAN::CanRxMessage &m : lines) {
        text += QString::asprintf(" %3d.%06d 0x%03x/%-4u (%d): ", m.seconds, m.microseconds, m.id,
                                  m.id, m.length);
        for (int i = 0; i < m.length && !m.remote; ++i)
            text += QString::asprintf("%02x ", m.data[i]);
        if (m.remote)
            text += QStringLiteral("Remote Transmission Request");
        const int flags = m.extended + 2 * m.fdFrame + 4 * m.flagC + 8 * m.flagB;
        text += QStringLiteral(";%1;").arg(flags) + notes.value(m.messageNumber) + '\n';
    }
    return text;
}
