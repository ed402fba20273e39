#include "messagerows.h"

#include "canframe.h"
#include "columns.h"
#include "encodings.h"

#include <cstring>

namespace Parquet {

namespace {

quint8 flagsOf(const CAN::CanRxMessage &message)
{
    const auto bit = [](Column column, bool isSet) { return int(isSet) << (column - Extended); };
    return quint8(bit(Extended, message.extended) | bit(Remote, message.remote)
                  | bit(Fd, message.fdFrame) | bit(BitRateSwitch, message.flagC)
                  | bit(ErrorState, message.flagB) | bit(Error, message.id == CAN::errorFrameId)
                  | bit(FlagD, message.flagD) | bit(Transmitted, message.transmitted));
}

// A remote frame has no payload, whatever length it asks for. Bytes that a record has all the same
// are kept; zeros are what everybody takes for none.
int payloadOf(const CAN::CanRxMessage &message)
{
    const int size = CAN::payloadSize(message);
    if (!message.remote)
        return size;
    const auto isSet = [](quint8 byte) { return byte != 0; };
    return std::any_of(message.data, message.data + size, isSet) ? size : 0;
}

// As much of a note as is kept, up to a character that is whole.
QString beginningOf(const QString &note)
{
    QString beginning = note.left(MessageRows::mostNoteBytes);
    if (beginning.size() < note.size() && beginning.at(beginning.size() - 1).isHighSurrogate())
        beginning.chop(1);
    return beginning;
}

int wholeCharacters(const QByteArray &text, int most)
{
    int end = qMin(text.size(), most);
    while (end > 0 && end < text.size() && (text.at(end) & 0xC0) == 0x80)
        --end;
    return end;
}

} // namespace

void MessageRows::grow()
{
    constexpr std::size_t fewest = 1024;
    const std::size_t room = std::max(fewest, times.size() * 2);
    times.resize(room);
    numbers.resize(room);
    lines.resize(room);
    identifiers.resize(room);
    // What packs them looks at eight at a time.
    flags.resize(room + sizeof(quint64));
    lengths.resize(room);
    payloadSizes.resize(room);
}

bool MessageRows::isSmall() const
{
    constexpr int few = 4096;
    return count <= few && payloadSize + notes.size() <= few * CAN::maxDataBytes;
}

void MessageRows::add(const CAN::CanRxMessage &message)
{
    const auto row = std::size_t(count);
    if (row == times.size())
        grow();
    times[row] = CAN::timeOf(message);
    numbers[row] = message.messageNumber;
    lines[row] = message.line;
    identifiers[row] = message.id;
    flags[row] = flagsOf(message);
    lengths[row] = quint32(qint32(message.length));
    addPayload(message, row);
    ++count;
}

void MessageRows::addPayload(const CAN::CanRxMessage &message, std::size_t row)
{
    constexpr int word = sizeof(quint64);
    const int size = payloadOf(message);
    if (std::size_t(payloadSize) + CAN::maxDataBytes + word > payloads.size())
        payloads.resize(payloads.size() * 2 + CAN::maxDataBytes + word);
    // Eight bytes are copied faster than fewer.
    std::memcpy(payloads.data() + payloadSize, message.data, std::size_t(std::max(size, word)));
    payloadSizes[row] = quint8(size);
    payloadSize += size;
}

bool MessageRows::addNote(const QString &note)
{
    const QString beginning = beginningOf(note);
    const QByteArray text = beginning.toUtf8();
    const int size = wholeCharacters(text, mostNoteBytes);
    addPlain(quint32(size), notes);
    notes.append(text.constData(), size);
    notedRows.push_back(quint32(count - 1));
    return size == text.size() && beginning.size() == note.size();
}

void MessageRows::clear()
{
    count = 0;
    payloadSize = 0;
    notes.resize(0);
    notedRows.clear();
}

} // namespace Parquet
