#pragma once

#include "framekitglobal.h"

#include <QMetaType>
#include <QtGlobal>

namespace CAN {

/// Identifier of a record that stands for an error frame.
constexpr quint32 errorFrameId = 0xFFFF00EF;

/// Number of payload bytes that a record has room for, the most that CAN FD carries.
constexpr int maxDataBytes = 64;

/// One CAN or CAN FD message of a trace: a plain value without invariants, read and written
/// field by field. Registered as the Qt meta type "CAN::CanRxMessage".
struct FRAMEKIT_EXPORT CanRxMessage
{
    /// Clears every field.
    CanRxMessage();

    qint32 seconds;            ///< time stamp, whole seconds
    qint32 microseconds;       ///< time stamp, fraction of the second
    quint32 id;                ///< 11-bit or 29-bit identifier, or CAN::errorFrameId
    qint8 length;              ///< number of valid payload bytes, 0 to 64
    quint8 data[maxDataBytes]; ///< payload; bytes from `length` on mean nothing
    bool remote;               ///< remote transmission request
    bool extended;             ///< 29-bit identifier
    bool fdFrame;              ///< CAN FD frame, 2 in the flag number
    bool flagB;                ///< 8 in the flag number
    bool flagC;                ///< 4 in the flag number
    bool flagD;                ///< kept in chunk files, not printed
    bool transmitted;          ///< sent by this node (Tx); neither kept in chunk files nor printed
    quint32 messageNumber;     ///< running number in the trace
    quint16 line;              ///< bus line; the low 8 bits are the line's key
};

/// The payload length that is safe to read: `length` limited to 0..64.
inline int payloadSize(const CanRxMessage &message)
{
    return qBound(0, int(message.length), maxDataBytes);
}

} // namespace CAN

Q_DECLARE_METATYPE(CAN::CanRxMessage)
