#pragma once

#include "canframe.h"

#include <QtEndian>

#include <algorithm>

/// What messages are counted by: identifier, line and kind, in one number.
class FrameKey
{
public:
    enum KindBit : quint8 {
        Extended = 1,
        Remote = 2,
        FdFrame = 4,
        FlagC = 8,       ///< bit rate switch
        FlagB = 16,      ///< error state indicator
        Transmitted = 32 ///< only of messages that are not in a chunk yet
    };

    FrameKey() = default;
    FrameKey(quint32 id, quint8 line, quint8 kind)
        : bits(quint64(id) << 16 | quint64(line) << 8 | kind)
    {
    }
    /// Of what value() has given.
    explicit FrameKey(quint64 value) : bits(value) { }

    quint32 id() const { return quint32(bits >> 16); }
    quint8 line() const { return quint8(bits >> 8); }
    quint8 kind() const { return quint8(bits); }
    bool isError() const { return id() == CAN::errorFrameId; }
    quint64 value() const { return bits; } ///< below 2^48

private:
    quint64 bits = 0;
};

inline bool operator==(FrameKey a, FrameKey b)
{
    return a.value() == b.value();
}

/// Seconds and microseconds of a time stamp in microseconds.
inline qint64 microsecondsOf(qint32 seconds, qint32 microseconds)
{
    constexpr qint64 million = 1000000;
    return seconds * million + microseconds;
}

/// A whole record as it lies in a chunk. The bytes belong to somebody else, and every field is read
/// when it is asked for. RecordView and MessageView answer the same questions, so that one template
/// looks at both.
class RecordView
{
public:
    /// \a hasLine as the version of the chunk has it.
    RecordView(const char *record, bool hasLine)
        : record(record), tail(record + 1 + length()), hasLine(hasLine)
    {
    }

    const char *bytes() const { return record; }
    const char *end() const { return record + size(length(), hasLine); }

    /// Bytes of a record with a payload of \a length bytes.
    static constexpr int size(int length, bool hasLine) { return (hasLine ? 25 : 23) + length; }

    int length() const { return *record; } ///< of the payload in bytes, 0 to 64
    const quint8 *data() const { return reinterpret_cast<const quint8 *>(record + 1); }
    quint32 id() const { return qFromBigEndian<quint32>(tail + IdAt); }
    quint8 line() const { return hasLine ? quint8(tail[LineAt + 1]) : 0; } ///< its key
    quint8 kind() const
    {
        // Most frames have none of the flags that stand in a row.
        const int flags = qFromUnaligned<quint32>(tail + RemoteAt) == 0
            ? 0
            : (tail[RemoteAt] ? FrameKey::Remote : 0) | (tail[FdFrameAt] ? FrameKey::FdFrame : 0)
                | (tail[FlagCAt] ? FrameKey::FlagC : 0) | (tail[FlagBAt] ? FrameKey::FlagB : 0);
        return quint8(flags | (tail[ExtendedAt] ? FrameKey::Extended : 0));
    }
    bool isRemote() const { return tail[RemoteAt] != 0; }
    /// Whether every flag is 0 or 1, as it was written.
    bool hasPlainFlags() const
    {
        const auto isPlain = [](char flag) { return flag == 0 || flag == 1; };
        return isPlain(tail[ExtendedAt])
            && std::all_of(tail + RemoteAt, tail + MicrosecondsAt, isPlain);
    }
    FrameKey key() const { return {id(), line(), kind()}; }
    quint32 number() const { return qFromBigEndian<quint32>(tail + NumberAt); }
    qint32 microseconds() const { return qFromBigEndian<qint32>(tail + MicrosecondsAt); }
    qint64 time() const ///< in microseconds
    {
        return microsecondsOf(qFromBigEndian<qint32>(tail + SecondsAt), microseconds());
    }

private:
    // Behind the payload.
    enum Position {
        ExtendedAt = 0,
        IdAt = 1,
        RemoteAt = 5,
        FlagCAt = 6,
        FdFrameAt = 7,
        FlagBAt = 8,
        MicrosecondsAt = 10,
        SecondsAt = 14,
        NumberAt = 18,
        LineAt = 22
    };

    const char *record;
    const char *tail;
    bool hasLine;
};

/// A message in memory.
class MessageView
{
public:
    explicit MessageView(const CAN::CanRxMessage &message) : message(message) { }

    int length() const { return CAN::payloadSize(message); }
    const quint8 *data() const { return message.data; }
    quint32 id() const { return message.id; }
    quint8 line() const { return quint8(message.line); }
    quint8 kind() const
    {
        return quint8(
            (message.extended ? FrameKey::Extended : 0) | (message.remote ? FrameKey::Remote : 0)
            | (message.fdFrame ? FrameKey::FdFrame : 0) | (message.flagC ? FrameKey::FlagC : 0)
            | (message.flagB ? FrameKey::FlagB : 0)
            | (message.transmitted ? FrameKey::Transmitted : 0));
    }
    bool isRemote() const { return message.remote; }
    FrameKey key() const { return {id(), line(), kind()}; }
    quint32 number() const { return message.messageNumber; }
    qint64 time() const { return microsecondsOf(message.seconds, message.microseconds); }

private:
    const CAN::CanRxMessage &message;
};
