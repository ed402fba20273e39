#include "chunkformat.h"

#include "canframe.h"
#include "fileerrors.h"

#include <QtEndian>

#include <cstring>

namespace ChunkFormat {

namespace {

constexpr int blockSize = 256 * 1024;

int recordSize(int payload, quint32 version)
{
    return (version >= lineFieldSince ? 25 : 23) + payload;
}

template <typename Integer> char *put(char *out, Integer value)
{
    qToBigEndian(value, out);
    return out + sizeof value;
}

template <typename Integer> const char *get(const char *in, Integer &value)
{
    value = qFromBigEndian<Integer>(in);
    return in + sizeof value;
}

// The size of a block, or for a small file only what it needs. How much an entry of an archive
// still has is not known.
int bufferSizeFor(const QIODevice &device)
{
    constexpr qint64 smallestSize = 2LL * maxRecordSize;
    return device.isSequential()
        ? blockSize
        : int(qBound(smallestSize, device.bytesAvailable() + 1, qint64(blockSize)));
}

// The order of the entries is that of Qt 5, the highest number first. Qt 6 turns it round.
template <typename Value> void writeMap(QDataStream &stream, const QMap<unsigned int, Value> &map)
{
    stream << quint32(map.size());
    for (auto entry = map.constEnd(); entry != map.constBegin();) {
        --entry;
        stream << entry.key() << entry.value();
    }
}

} // namespace

QString timeText(const CAN::CanRxMessage &first, const CAN::CanRxMessage &last)
{
    return QStringLiteral("%1.%2 - %3.%4")
        .arg(first.seconds)
        .arg(first.microseconds, 6, 10, QLatin1Char('0'))
        .arg(last.seconds)
        .arg(last.microseconds, 6, 10, QLatin1Char('0'));
}

void writeHeader(QDataStream &stream, const QString &timeText, const Notes &notes,
                 const Bookmarks &bookmarks)
{
    writeHeader(stream, {timeText, currentVersion}, {notes, bookmarks});
}

void writeHeader(QDataStream &stream, const Preamble &preamble, const Maps &maps)
{
    stream << preamble.timeText << QString::number(preamble.version);
    if (preamble.version >= notesSince)
        writeMap(stream, maps.notes);
    if (preamble.version >= bookmarksSince)
        writeMap(stream, maps.bookmarks);
}

Preamble readPreamble(QDataStream &stream)
{
    Preamble preamble;
    QString versionText;
    stream >> preamble.timeText >> versionText;
    preamble.version = versionText.remove(QLatin1Char('.')).toUInt();
    return preamble;
}

int encodeRecord(char *out, const CAN::CanRxMessage &message, quint32 version)
{
    const int payload = CAN::payloadSize(message);
    char *to = put(out, qint8(payload));
    // The whole payload: a copy of fixed size is much faster, and the next fields overwrite the
    // rest.
    std::memcpy(to, message.data, sizeof message.data);
    to += payload;
    *to++ = char(message.extended);
    to = put(to, message.id);
    *to++ = char(message.remote);
    *to++ = char(message.flagC);
    *to++ = char(message.fdFrame);
    *to++ = char(message.flagB);
    *to++ = char(message.flagD);
    to = put(to, message.microseconds);
    to = put(to, message.seconds);
    to = put(to, message.messageNumber);
    if (version >= lineFieldSince)
        to = put(to, message.line);
    return int(to - out);
}

void writeRecord(QDataStream &stream, const CAN::CanRxMessage &message, quint32 version)
{
    const int payload = CAN::payloadSize(message);
    stream << qint8(payload);
    stream.writeRawData(reinterpret_cast<const char *>(message.data), payload);
    stream << message.extended << message.id << message.remote << message.flagC << message.fdFrame
           << message.flagB << message.flagD << message.microseconds << message.seconds
           << message.messageNumber;
    if (version >= lineFieldSince)
        stream << message.line;
}

void decodeRecord(const char *in, CAN::CanRxMessage &message, quint32 version)
{
    in = get(in, message.length);
    std::memcpy(message.data, in, std::size_t(message.length));
    in += message.length;
    message.extended = *in++ != 0;
    in = get(in, message.id);
    message.remote = *in++ != 0;
    message.flagC = *in++ != 0;
    message.fdFrame = *in++ != 0;
    message.flagB = *in++ != 0;
    message.flagD = *in++ != 0;
    in = get(in, message.microseconds);
    in = get(in, message.seconds);
    in = get(in, message.messageNumber);
    if (version >= lineFieldSince)
        get(in, message.line);
}

CAN::CanRxMessage asInChunk(const CAN::CanRxMessage &message)
{
    char record[maxRecordSize];
    encodeRecord(record, message, currentVersion);
    CAN::CanRxMessage read;
    decodeRecord(record, read, currentVersion);
    return read;
}

bool readRecord(QDataStream &stream, CAN::CanRxMessage &message, quint32 version)
{
    qint8 length = 0;
    stream >> length;
    if (length < 0 || length > CAN::maxDataBytes) {
        stream.setStatus(QDataStream::ReadCorruptData);
        return false;
    }
    message.length = length;
    stream.readRawData(reinterpret_cast<char *>(message.data), length);
    stream >> message.extended >> message.id >> message.remote >> message.flagC >> message.fdFrame
        >> message.flagB >> message.flagD >> message.microseconds >> message.seconds
        >> message.messageNumber;
    if (version >= lineFieldSince)
        stream >> message.line;
    return true;
}

RecordReader::RecordReader(QIODevice &device, quint32 version)
    : device(device), version(version), buffer(bufferSizeFor(device), Qt::Uninitialized)
{
}

void RecordReader::refill()
{
    const int rest = size - position;
    std::memmove(buffer.data(), buffer.constData() + position, std::size_t(rest));
    position = 0;
    size = rest;
    while (!atEnd && size < maxRecordSize) {
        const qint64 got = device.read(buffer.data() + size, buffer.size() - size);
        if (got <= 0)
            atEnd = true;
        else
            size += int(got);
    }
}

bool RecordReader::readCutRecord(CAN::CanRxMessage &message)
{
    const QByteArray rest = QByteArray::fromRawData(buffer.constData() + position, size - position);
    position = size;
    cause = RecordsEnd::Cut;
    Stream stream(rest);
    return readRecord(stream, message, version);
}

bool RecordReader::next(CAN::CanRxMessage &message)
{
    if (size - position < maxRecordSize && !atEnd)
        refill();
    if (position == size)
        return false;
    const char *record = buffer.constData() + position;
    const qint8 length = *record;
    if (length < 0 || length > CAN::maxDataBytes) {
        position = size;
        atEnd = true;
        cause = RecordsEnd::BadLength;
        badLength = length;
        return false;
    }
    const int bytes = recordSize(length, version);
    if (size - position < bytes)
        return readCutRecord(message);
    decodeRecord(record, message, version);
    position += bytes;
    wholeBytes += bytes;
    return true;
}

RecordWriter::RecordWriter(QIODevice &device, quint32 version)
    : device(device), version(version), buffer(blockSize, Qt::Uninitialized)
{
}

bool RecordWriter::write(const CAN::CanRxMessage &message)
{
    if (used > blockSize - maxRecordSize)
        flush();
    used += encodeRecord(buffer.data() + used, message, version);
    return !failed;
}

bool RecordWriter::flush()
{
    failed = failed || !FileErrors::write(device, buffer.constData(), used);
    used = 0;
    return !failed;
}

} // namespace ChunkFormat
