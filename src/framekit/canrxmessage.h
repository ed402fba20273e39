#pragma once

#include "framekitglobal.h"

#include <QMetaType>
#include <QtGlobal>

namespace CAN {

/// One CAN or CAN FD message of a trace: a plain value without invariants, read and written
/// field by field. Registered as the Qt meta type "CAN::CanRxMessage".
struct FRAMEKIT_EXPORT CanRxMessage
{
    /// Clears every field.
    CanRxMessage();

    qint32 seconds;        ///< time stamp, whole seconds
    qint32 microseconds;   ///< time stamp, fraction of the second
    quint32 id;            ///< 11-bit or 29-bit identifier, or 0xFFFF00EF for an error frame
    qint8 length;          ///< number of valid payload bytes, 0 to 64
    quint8 data[64];       ///< payload; bytes from `length` on mean nothing
    bool remote;           ///< remote transmission request
    bool extended;         ///< 29-bit identifier
    bool fdFrame;          ///< CAN FD frame, 2 in the flag number
    bool flagB;            ///< 8 in the flag number
    bool flagC;            ///< 4 in the flag number
    bool flagD;            ///< kept in chunk files, not printed
    bool transmitted;      ///< sent by this node (Tx); neither kept in chunk files nor printed
    quint32 messageNumber; ///< running number in the trace
    quint16 line;          ///< bus line; the low 8 bits are the line's key
};

} // namespace CAN

Q_DECLARE_METATYPE(CAN::CanRxMessage)
