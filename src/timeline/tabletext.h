#pragma once

#include "canrxmessage.h"

#include <QString>

/// What a table shows of a message.
namespace TableText {

/// Seconds with six digits behind the point.
QString time(qint64 microseconds);
/// Hexadecimal, 8 digits where it is extended, else 3; nothing for an error frame.
QString identifier(const CAN::CanRxMessage &message);
/// What kind of frame it is, in the words that everybody uses for it.
QString kind(const CAN::CanRxMessage &message);
/// Bytes in hexadecimal. The payload of a remote frame means nothing.
QString data(const CAN::CanRxMessage &message);

} // namespace TableText
