#pragma once

#include "canrxmessage.h"

#include <QByteArray>

/// A message with an identifier, a payload given in hexadecimal and a line.
CAN::CanRxMessage makeMessage(quint32 id, const QByteArray &payloadHex = "", quint16 line = 0);

/// A message whose every field follows from \a seed, so that a mixed-up one is noticed.
CAN::CanRxMessage makeMessage(quint32 seed, int payloadSize);

/// candump log lines "(N.000000) can0 123#..." with the number from \a first on as time and
/// payload.
QByteArray candumpLines(int first, int count);

/// Whether all that a chunk file keeps of two messages is the same.
bool sameInChunk(const CAN::CanRxMessage &a, const CAN::CanRxMessage &b);
